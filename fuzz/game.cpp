#include "LoadedGame.h"
#include "PaletteFile.h"
#include "modPicture.h"

using namespace morvane;

/// The input is a game folder, one file after the other: 0xFC begins the next one, and 0xFD stands for 1024
/// zeros. What must not be ends the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (std::size_t at = 0;
         const char* name : {"GAME.PAL", "UIF.DAT", "SND.DAT", "IMG.1", "MAP.1", "IMG.2", "MAP.2"}) {
        std::vector<std::uint8_t> file;
        for (std::uint8_t byte = 0; at < size && (byte = data[at++]) != 0xFC;)
            file.insert(file.end(), byte == 0xFD ? 1024 : 1, byte == 0xFD ? 0 : byte);
        WriteByteArray(name, file, true);
    }
    LoadedGame game{{".", 0}, {}, {}, {}, {}, {}};
    if (!LoadPalette(game.Folder) || !LoadInterfaceFile(game.Folder, game.InterfaceEntries)) std::abort();
    ReadSoundArchive(game.Folder, game.SoundEntries);
    for (const SoundEntry& entry : game.SoundEntries) (void)ReadSoundEntry(game.Folder, entry);
    while (++game.Folder.CurrentEpisode < 3) {
        ReadImageArchive(game.Folder, game.Groups);
        for (std::uint16_t g = 1; g < 512; ++g) {
            const ImageGroup& group = game.Groups[g];
            if (group.Offset <= 0) continue;
            if (group.Duplicate && group.Offset != (&group)[-1].Offset) std::abort();
            for (std::uint16_t k = 0; k < group.Codes[2] && k < 3; ++k) {
                const auto& [start, width, height, unknown1, unknown2] = group.Images.at(k);
                const std::vector<std::uint8_t> bmp = ReadImage(game.Folder, game.Groups, g, k);
                if (std::ssize(bmp) != 1078 + (width + 3) / 4 * 4 * height) std::abort();
                if (PictureFromBMP(bmp).Width() != width) std::abort();
            }
        }
        ReadMapArchive(game.Folder, game.MapDirectory);
        if (!game.MapDirectory.empty()) ReadMapCells(game.Folder, game.MapDirectory.back(), game.MapCells);
    }
    return 0;
}
