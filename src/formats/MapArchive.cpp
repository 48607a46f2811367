#include "MapArchive.h"

#include "GameFile.h"
#include "LittleEndian.h"

namespace morvane {

namespace {
constexpr const char* ArchiveName = "MAP.%EP%";
}

void ReadMapArchive(const GameFolder& game, std::vector<MapEntry>& directory) {
    constexpr std::int32_t FirstMap = 514;
    constexpr std::int32_t MapSize = sizeof(MapCellTable);
    std::array<std::uint8_t, 2> header{};
    GameFile(game, ArchiveName).Read(0, header);
    const auto count = static_cast<std::int16_t>(WordAt(header, 0));
    directory.clear();
    for (std::int32_t i = 0; i < count; ++i) directory.push_back({FirstMap + MapSize * i, MapSize});
}

void ReadMapCells(const GameFolder& game, const MapEntry& map, MapCellTable& cells) {
    std::array<std::uint8_t, sizeof(MapCellTable)> record{};
    GameFile(game, ArchiveName).Read(map.Offset, record);
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = {record[2 * i], record[2 * i + 1]};
}

} // namespace morvane
