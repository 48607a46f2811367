#pragma once

#include <cstdint>
#include <vector>

namespace morvane::demo {

struct DemoSong {
    int Entry; ///< its number in the sound archive
    std::vector<std::uint8_t> Bytes;
};

/// The songs of the demo game, each a Standard MIDI File: old tunes that belong to everyone, and one of our
/// own.
std::vector<DemoSong> MakeSongs();

} // namespace morvane::demo
