#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvane::demo {

/// One file of a game folder.
struct GameFile {
    std::string Name;
    std::vector<std::uint8_t> Bytes;
};

/// The nine files of the demo game, the same bytes at every call.
std::vector<GameFile> MakeDemoGame();

} // namespace morvane::demo
