#pragma once

#include "LoadedGame.h"

#include <string>

namespace morvane {

/// Writes every image of the episode into a folder, each read afresh and under its export name; files of
/// those names are replaced. The first failure ends the run and leaves what is written.
void ExportAllImages(const LoadedGame& game, const std::string& folder);

/// Writes every recognised sound in the same way.
void ExportAllSounds(const LoadedGame& game, const std::string& folder);

} // namespace morvane
