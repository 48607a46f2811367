#include "PaletteFile.h"

#include "GameFile.h"
#include "modAddBMPHeader.h"

namespace morvane {

bool LoadPalette(const GameFolder& game) {
    std::array<std::uint8_t, 768> triples{}; // 256 of them
    GameFile(game, "GAME.PAL").Read(1156, triples);
    for (std::size_t i = 0; i < Palette.size(); ++i) {
        Palette[i].Red = triples[3 * i];
        Palette[i].Green = triples[3 * i + 1];
        Palette[i].Blue = triples[3 * i + 2];
    }
    return true;
}

} // namespace morvane
