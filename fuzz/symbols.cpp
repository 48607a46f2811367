#include "Fuzz.h"
#include "MapSymbols.h"
#include "clsINI.h"

#include <algorithm>

namespace morvane::fuzz {

namespace {

constexpr std::size_t PatternLength = 49;

void CheckTile(const MapSymbol& symbol) {
    Check(symbol.Tile.Width() == 7 && symbol.Tile.Height() == 7, "a tile has 7 rows of 7 pixels");
    Check(symbol.Pattern.size() >= PatternLength, "a pattern is long enough");
    for (std::size_t i = 0; i < PatternLength; ++i) {
        const char digit[] = {symbol.Pattern[i], '\0'};
        char* end = nullptr;
        const auto index = std::strtoul(digit, &end, 16);
        Check(end == digit + 1, "a pattern begins with digits");
        Check(symbol.Tile.Pixels()[i] == PixelOfSymbolColor(SymbolColors[index]),
              "a pixel has its digit's colour");
    }
}

/// Whether a definition is well formed: two commas, and between the first two at least 49 characters of which
/// as many are hexadecimal digits.
bool IsDefinition(const std::string& value) {
    const std::size_t first = value.find(',');
    const std::size_t second = first == std::string::npos ? first : value.find(',', first + 1);
    return second != std::string::npos && second - first > PatternLength &&
           value.find_first_not_of("0123456789abcdefABCDEF", first + 1) > first + PatternLength;
}

void CheckSymbol(const MapSymbol& symbol, std::size_t code, const std::string* value) {
    CheckTile(symbol);
    Check(symbol.Defined == (value != nullptr && IsDefinition(*value)),
          "a symbol is defined when its line is right");
    if (symbol.Defined)
        Check(symbol.Extra + ',' + symbol.Pattern + ',' + symbol.Name == *value,
              "a symbol holds its whole line");
    else
        Check(symbol.Pattern == std::string(PatternLength, code == 0 ? '0' : 'F') &&
                  symbol.Name == (code == 0 ? "Nothing" : "Unknown"),
              "a symbol without a line is black or white");
}

} // namespace

} // namespace morvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    static const fuzz::Scratch scratch;
    InitSymbolColors();
    clsINI file;
    file.LoadINI(scratch.Write("Episode1.tsd", {data, size}));
    fuzz::Check(LoadMapSymbols(scratch.Path, 1), "a symbol file is read");
    for (std::size_t plane = 0; plane < MapSymbols.size(); ++plane)
        for (std::size_t code = 0; code < MapSymbols[plane].size(); ++code)
            fuzz::CheckSymbol(MapSymbols[plane][code], code,
                              file.FindValue("Plane " + std::to_string(plane), std::to_string(code)));
    return 0;
}
