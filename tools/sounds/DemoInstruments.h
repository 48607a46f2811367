#pragma once

#include <cstdint>
#include <vector>

namespace morvane::demo {

/// The instrument bank files of the demo game, each of 128 instruments: one for the halls above and a duller,
/// more distant one for the caves below.
std::vector<std::uint8_t> MakeHallBank();
std::vector<std::uint8_t> MakeCaveBank();

} // namespace morvane::demo
