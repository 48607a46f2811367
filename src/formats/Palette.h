#pragma once

#include "GameFolder.h"

#include <array>
#include <cstdint>

namespace morvane {

/// One colour in the byte order of a BMP file's colour table; intensities 0 to 255.
struct PaletteEntry {
    std::uint8_t Blue = 0;
    std::uint8_t Green = 0;
    std::uint8_t Red = 0;
    std::uint8_t Reserved = 0; ///< always 0
};

/// The game's palette for the whole program, indexed by pixel value; black until a palette has been loaded.
extern std::array<PaletteEntry, 256> Palette;

/// Reads GAME.PAL into Palette: 256 triples red, green, blue from byte 1156, taken unchanged. True when done;
/// a failure leaves Palette as it was.
bool LoadPalette(const GameFolder& game);

} // namespace morvane
