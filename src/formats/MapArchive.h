#pragma once

#include "GameFolder.h"

#include <array>
#include <cstdint>
#include <vector>

namespace morvane {

/// Where a map lies in its archive.
struct MapEntry {
    std::int32_t Offset = 0; ///< byte position
    std::int32_t Size = 0;   ///< in bytes; the same for every map
};

/// One cell of a map: a code 0 to 255 on each of two planes.
struct MapCell {
    std::uint8_t Plane0 = 0;
    std::uint8_t Plane1 = 0; ///< 0: nothing on this plane
};

inline constexpr std::size_t MapSide = 64; ///< cells in a row and rows in a map

/// All cells of a map: 64 rows of 64 cells, top row first; the bytes of a map record.
using MapCellTable = std::array<MapCell, MapSide * MapSide>;
static_assert(sizeof(MapCellTable) == 8192);

/// Lists the maps of the current episode's archive, "MAP.%EP%": a signed 16-bit count, 512 bytes of no known
/// meaning, then the maps of 8192 bytes each. A count of 0 or less gives no maps.
void ReadMapArchive(const GameFolder& game, std::vector<MapEntry>& directory);

/// Reads the cells of one map of the current episode's archive; a failure leaves them as they were.
void ReadMapCells(const GameFolder& game, const MapEntry& map, MapCellTable& cells);

} // namespace morvane
