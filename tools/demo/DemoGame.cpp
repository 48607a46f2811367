#include "DemoGame.h"

#include "DemoImages.h"
#include "DemoMaps.h"
#include "DemoPalette.h"
#include "DemoSounds.h"

#include <string>
#include <vector>

namespace morvane::demo {

std::vector<GameFile> MakeDemoGame() {
    std::vector<GameFile> files;
    files.push_back({.Name = "GAME.PAL", .Bytes = MakePaletteFile()});
    for (int episode = 1; episode <= 3; ++episode) {
        const std::string extension = std::to_string(episode);
        files.push_back({.Name = "IMG." + extension, .Bytes = MakeImageArchive(episode)});
        files.push_back({.Name = "MAP." + extension, .Bytes = MakeMapArchive(episode)});
    }
    files.push_back({.Name = "SND.DAT", .Bytes = MakeSoundArchive()});
    files.push_back({.Name = "UIF.DAT", .Bytes = MakeInterfaceFile()});
    return files;
}

} // namespace morvane::demo
