#pragma once

#include "Picture.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

inline constexpr int TileSide = 7; ///< width and height of a symbol tile, in pixels

/// The 16 colours of symbol files as 0x00BBGGRR, indexed by hexadecimal digit; black until InitSymbolColors.
extern std::array<std::uint32_t, 16> SymbolColors;
/// The colour (0x00BBGGRR) that plane 1 leaves out when a map is drawn.
extern std::uint32_t TransparentColor;

/// The pixel of a colour 0x00BBGGRR.
Pixel PixelOfSymbolColor(std::uint32_t color);

/// Fills SymbolColors, and TransparentColor with its first entry. Called once, before any symbol is made.
void InitSymbolColors();

/// How one code of a map plane looks.
struct MapSymbol {
    std::string Name;     ///< "Unknown" or, for code 0, "Nothing" when the file does not define the code
    std::string Extra;    ///< the definition's first field, as written; of defined codes only
    std::string Pattern;  ///< the tile's digits, row by row
    Picture Tile;         ///< TileSide x TileSide pixels
    bool Defined = false; ///< the file has a definition of this code
};

/// The symbols of the current episode, indexed by plane and code; empty until an episode has been chosen.
extern std::array<std::array<MapSymbol, 256>, 2> MapSymbols;

/// Rebuilds MapSymbols from "Episode" + number + ".tsd" in the program's folder. A missing file leaves every
/// code undefined (a black tile for code 0, white ones for the others), as does a malformed definition for
/// its code. A file that cannot be read raises the file system's failure and leaves the symbols as they were.
/// True when done.
bool LoadMapSymbols(const std::string& programFolder, std::int32_t episode);

/// The tile that a pattern describes: its first 49 characters, which must be hexadecimal digits of either
/// case, index SymbolColors row by row.
Picture MakeSymbolTile(std::string_view pattern);

} // namespace morvane
