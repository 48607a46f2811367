#pragma once

#include "GameFolder.h"
#include "ImageArchive.h"
#include "InterfaceFile.h"
#include "MapArchive.h"
#include "SoundArchive.h"

#include <vector>

namespace morvane {

/// What a game folder and an episode of it give, the palette aside. All zero and empty at first.
struct LoadedGame {
    GameFolder Folder; ///< GamePath and CurrentEpisode
    InterfaceTable InterfaceEntries;
    SoundTable SoundEntries;
    ImageGroups Groups;                 ///< of the current episode
    std::vector<MapEntry> MapDirectory; ///< of the current episode
    MapCellTable MapCells{};            ///< of the map drawn last
};

} // namespace morvane
