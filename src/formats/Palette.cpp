#include "Palette.h"

#include "GameFile.h"

namespace morvane {

std::array<PaletteEntry, 256> Palette;

bool LoadPalette(const GameFolder& game) {
    constexpr std::int64_t FirstTriple = 1156;
    std::array<std::uint8_t, 3 * std::tuple_size_v<decltype(Palette)>> triples{};
    GameFile(game, "GAME.PAL").Read(FirstTriple, triples);
    for (std::size_t i = 0; i < Palette.size(); ++i) {
        Palette[i].Red = triples[3 * i];
        Palette[i].Green = triples[3 * i + 1];
        Palette[i].Blue = triples[3 * i + 2];
    }
    return true;
}

} // namespace morvane
