#pragma once

#include <cstdint>
#include <vector>

namespace morvane::demo {

/// SND.DAT of the demo game: 160 records of size and position, then the data of two instrument banks, songs,
/// sound effects and a few entries that no player knows. Some records are empty or point nowhere.
std::vector<std::uint8_t> MakeSoundArchive();

/// UIF.DAT of the demo game: 32 records of size and position, then the data they point to.
std::vector<std::uint8_t> MakeInterfaceFile();

} // namespace morvane::demo
