#include "MapSymbols.h"

#include "Paths.h"
#include "clsINI.h"

namespace morvane {

std::array<std::uint32_t, 16> SymbolColors;
std::uint32_t TransparentColor;
std::array<std::array<MapSymbol, 256>, 2> MapSymbols;

namespace {

constexpr std::size_t PatternLength = static_cast<std::size_t>(TileSide) * TileSide;

// The index of a digit in SymbolColors; -1 for any other character.
int DigitValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return -1;
}

// Takes a definition "extra,pattern,name" over into the symbol; false when it is malformed.
bool Define(MapSymbol& symbol, std::string_view definition) {
    const std::size_t first = definition.find(',');
    if (first == std::string_view::npos) return false;
    const std::size_t second = definition.find(',', first + 1);
    if (second == std::string_view::npos) return false;
    const std::string_view pattern = definition.substr(first + 1, second - first - 1);
    std::optional<Picture> tile = MakeSymbolTile(pattern);
    if (!tile) return false;
    symbol.Extra = definition.substr(0, first);
    symbol.Pattern = pattern;
    symbol.Name = definition.substr(second + 1);
    symbol.Tile = std::move(*tile);
    return true;
}

void Undefine(MapSymbol& symbol, bool isNothing) {
    symbol.Name = isNothing ? "Nothing" : "Unknown";
    symbol.Pattern.assign(PatternLength, isNothing ? '0' : 'F');
    symbol.Tile = MakeSymbolTile(symbol.Pattern).value();
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
            const std::string* value = file.FindValue(section, std::to_string(code));
            symbol.Defined = value != nullptr && Define(symbol, *value);
            if (!symbol.Defined) Undefine(symbol, code == 0);
        }
    }
    return true;
}

std::optional<Picture> MakeSymbolTile(std::string_view pattern) {
    if (pattern.size() < PatternLength) return std::nullopt;
    Picture tile(TileSide, TileSide);
    for (std::size_t i = 0; i < PatternLength; ++i) {
        const int digit = DigitValue(pattern[i]);
        if (digit < 0) return std::nullopt;
        tile.Pixels()[i] = PixelOfSymbolColor(SymbolColors[static_cast<std::size_t>(digit)]);
    }
    return tile;
}

} // namespace morvane
