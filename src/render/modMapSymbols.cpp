#include "modMapSymbols.h"

#include "Paths.h"
#include "clsINI.h"

namespace morvane {

std::array<std::uint32_t, 16> SymbolColors;
std::uint32_t TransparentColor;
std::array<std::array<MapSymbol, 256>, 2> MapSymbols;

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEFabcdef";
constexpr std::size_t PatternLength = static_cast<std::size_t>(TileSide) * TileSide;

/// Takes a definition "extra,pattern,name" over into the symbol. Returns false when it is malformed.
bool Define(MapSymbol& symbol, const std::string& definition) {
    const std::size_t first = definition.find(',');
    const std::size_t second = definition.find(',', first + 1);
    if (first == std::string::npos || second == std::string::npos) return false;
    symbol.Extra = definition.substr(0, first);
    symbol.Pattern = definition.substr(first + 1, second - first - 1);
    symbol.Name = definition.substr(second + 1);
    const std::string_view digits = std::string_view(symbol.Pattern).substr(0, PatternLength);
    return digits.size() == PatternLength && digits.find_first_not_of(HexDigits) == std::string_view::npos;
}

void Undefine(MapSymbol& symbol, bool isNothing) {
    symbol.Extra.clear();
    symbol.Name = isNothing ? "Nothing" : "Unknown";
    symbol.Pattern.assign(PatternLength, isNothing ? '0' : 'F');
}

} // namespace

Pixel PixelOfSymbolColor(std::uint32_t color) {
    return PixelOf(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

void InitSymbolColors() {
    SymbolColors = {0x000000, 0xA80000, 0x00A800, 0xA8A800, 0x0000A8, 0xA800A8, 0x0056A8, 0xA8A8A8,
                    0x565656, 0xFC5656, 0x56FC56, 0xFCFC56, 0x5656FC, 0xFC56FC, 0x56FCFC, 0xFCFCFC};
    TransparentColor = SymbolColors[0];
}

bool LoadMapSymbols(const std::string& programFolder, std::int32_t episode) {
    clsINI file;
    file.LoadINI(JoinPath(programFolder, "Episode" + std::to_string(episode) + ".tsd"));
    for (std::size_t plane = 0; plane < MapSymbols.size(); ++plane) {
        const std::string section = "Plane " + std::to_string(plane);
        for (std::size_t code = 0; code < MapSymbols[plane].size(); ++code) {
            MapSymbol& symbol = MapSymbols[plane][code];
            symbol.Defined = Define(symbol, file.ReadString(section, std::to_string(code)));
            if (!symbol.Defined) Undefine(symbol, code == 0);
            symbol.Tile = MakeSymbolTile(symbol.Pattern);
        }
    }
    return true;
}

Picture MakeSymbolTile(std::string_view pattern) {
    Picture tile(TileSide, TileSide);
    for (int y = 0; y < TileSide; ++y)
        for (int x = 0; x < TileSide; ++x) {
            const auto place = static_cast<std::size_t>(y) * TileSide + static_cast<std::size_t>(x);
            const std::size_t digit = HexDigits.find(pattern[place]);
            tile.At(x, y) = PixelOfSymbolColor(SymbolColors[digit < 16 ? digit : digit - 6]);
        }
    return tile;
}

} // namespace morvane
