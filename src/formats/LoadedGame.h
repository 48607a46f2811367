#pragma once

#include "GameFolder.h"
#include "ImageArchive.h"
#include "InterfaceFile.h"
#include "MapArchive.h"
#include "SoundArchive.h"

#include <string>
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

/// Write every image of the episode, or every recognised sound, into a folder, each read afresh and under its
/// export name; files of those names are replaced. The first failure ends the run and leaves what is written.
void ExportAllImages(const LoadedGame& game, const std::string& folder);
void ExportAllSounds(const LoadedGame& game, const std::string& folder);

} // namespace morvane
