#pragma once

#include <cstdint>
#include <vector>

namespace morvane::demo {

struct DemoEffect {
    int Entry; ///< its number in the sound archive
    std::vector<std::uint8_t> Bytes;
};

/// The sound effects of the demo game, each a Creative Voice File. The longest fills its entry to the last of
/// the 65,535 bytes an entry can have.
std::vector<DemoEffect> MakeEffects();

} // namespace morvane::demo
