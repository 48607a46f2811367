// usage: bench_export GAME-FOLDER TARGET-FOLDER
// Exports all images of episode 1 and all sounds of a game folder, as the program does once it is open.
// Prints how many seconds that took.
#include "ExportAll.h"
#include "PaletteFile.h"

#include <chrono>
#include <iostream>
#include <memory>

int main(int /*argc*/, char** argv) {
    const auto game = std::make_unique<morvane::LoadedGame>();
    game->Folder = {argv[1], 1};
    LoadPalette(game->Folder);
    ReadSoundArchive(game->Folder, game->SoundEntries);
    ReadImageArchive(game->Folder, game->Groups);
    const auto start = std::chrono::steady_clock::now();
    ExportAllImages(*game, argv[2]);
    ExportAllSounds(*game, argv[2]);
    std::cout << std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() << '\n';
}
