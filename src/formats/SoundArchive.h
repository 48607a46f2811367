#pragma once

#include "GameFolder.h"

#include <array>
#include <cstdint>
#include <vector>

namespace morvane {

/// What a sound entry holds, told by its first bytes.
enum class SoundKind : std::int32_t {
    None = 0,     ///< not present, or not recognised
    InstBank = 1, ///< instrument bank
    Midi = 2,     ///< MIDI song
    Voc = 3       ///< digitised sound
};

/// One record of the sound archive's directory. Present when Size and Offset are positive.
struct SoundEntry {
    std::int32_t Size = 0;   ///< in bytes, 0 to 65535
    std::int32_t Offset = 0; ///< byte position in the archive, as stored
    SoundKind Kind = SoundKind::None;
};

/// The directory of SND.DAT, indexed by entry number.
using SoundTable = std::array<SoundEntry, 160>;

/// Reads the directory of SND.DAT (160 records of a 16-bit size and a 32-bit offset) and recognises every
/// present entry by its signature. A missing archive leaves the entries as they were.
void ReadSoundArchive(const GameFolder& game, SoundTable& entries);

/// Reads the bytes of one entry of SND.DAT, exactly as many as its size says.
std::vector<std::uint8_t> ReadSoundEntry(const GameFolder& game, const SoundEntry& entry);

} // namespace morvane
