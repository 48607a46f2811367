#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace morvane {

/// What a sound entry holds, told by its first bytes.
enum class SoundKind : std::int32_t {
    None = 0, ///< not present, or not recognised
    InstBank, ///< instrument bank
    Midi,     ///< MIDI song
    Voc,      ///< digitised sound
    End       ///< one past the last kind; no entry has it
};

/// All that the program knows of a kind of sound.
struct SoundKindRow {
    SoundKind Kind;
    const char* Signature;  ///< the first bytes of such an entry
    const char* ListLabel;  ///< what stands before the entry number in the list
    const char* FileName;   ///< what an exported file's name begins with
    bool Numbered;          ///< whether the entry number follows in that name
    const char* DialogName; ///< what the save dialog calls it
    const char* Extension;  ///< of exported files, without a dot
};

/// The kinds, in the order in which their signatures are looked for.
inline constexpr std::array<SoundKindRow, static_cast<std::size_t>(SoundKind::End) - 1> SoundKinds{
    {{SoundKind::InstBank, "IBK", "InstBank ", "Morvane", false, "Instrument Bank", "ibk"},
     {SoundKind::Midi, "MThd", "MIDI ", "Song ", true, "MIDI", "mid"},
     {SoundKind::Voc, "Creative Voice File", "VOC ", "Sound ", true, "VOC", "voc"}}};

/// The row of a kind, which must not be None.
constexpr const SoundKindRow& RowOf(SoundKind kind) {
    return SoundKinds.at(static_cast<std::size_t>(kind) - 1);
}

static_assert(SoundKinds.back().Kind == SoundKind(SoundKinds.size()), "a kind of sound has no row");

} // namespace morvane
