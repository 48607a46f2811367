#pragma once

#include "GameFolder.h"
#include "SoundKinds.h"

#include <array>
#include <cstdint>
#include <vector>

namespace morvane {

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
