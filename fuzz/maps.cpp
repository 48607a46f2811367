#include "Fuzz.h"
#include "MapArchive.h"
#include "MapDrawing.h"
#include "MapSymbols.h"

#include <algorithm>
#include <array>

namespace morvane::fuzz {

namespace {

constexpr std::size_t CountSize = 2;
constexpr std::size_t UnusedSize = 512;
constexpr std::int32_t FirstMap = CountSize + UnusedSize;
constexpr std::int32_t MapSize = 8192;

/// The input is an archive without the 512 bytes that nothing looks at, so that it begins to tell apart cells
/// early; they are put in as copies of the count's first byte.
std::vector<std::uint8_t> Archive(ConstBytes input) {
    std::vector<std::uint8_t> archive(input.begin(), input.end());
    if (input.size() > CountSize) archive.insert(archive.begin() + CountSize, UnusedSize, input[0]);
    return archive;
}

/// The digit of a symbol's pixel, known from plane, code and place alone. Some symbols have the transparent
/// colour, some are not defined and thus white.
char Digit(std::size_t plane, std::size_t code, std::size_t pixel) {
    if (code % 8 == 3) return 'F';
    return "0123456789ABCDEF"[(plane + code + pixel * (1 + code % 3)) % 16];
}

using Tile = std::array<Pixel, static_cast<std::size_t>(TileSide) * TileSide>;
std::array<std::array<Tile, 256>, 2> Tiles; // what each symbol must look like

/// Fills Tiles, and MapSymbols from a file.
void LoadSymbols(const Scratch& scratch) {
    InitSymbolColors();
    std::string text;
    for (std::size_t plane = 0; plane < Tiles.size(); ++plane) {
        text += "[Plane " + std::to_string(plane) + "]\r\n";
        for (std::size_t code = 0; code < Tiles[plane].size(); ++code) {
            std::string pattern;
            for (Pixel& pixel : Tiles[plane][code]) {
                pattern += Digit(plane, code, pattern.size());
                pixel = PixelOfSymbolColor(
                    SymbolColors[std::stoul(pattern.substr(pattern.size() - 1), nullptr, 16)]);
            }
            if (code % 8 != 3) text += std::to_string(code) + "=," + pattern + ",\r\n";
        }
    }
    (void)scratch.Write("Episode1.tsd", {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    LoadMapSymbols(scratch.Path, 1);
}

bool LooksRight(const Pixel* pixel, const Tile& below, const Tile* above) {
    const Pixel transparent = PixelOf(0, 0, 0);
    for (std::size_t i = 0; i < below.size(); ++i) {
        const Pixel expected = above == nullptr || (*above)[i] == transparent ? below[i] : (*above)[i];
        if (pixel[i / TileSide * MapPictureSide + i % TileSide] != expected) return false;
    }
    return true;
}

void CheckPicture(const Picture& picture, std::int64_t position, const ZeroExtended& file) {
    for (int cell = 0; cell < 64 * 64; ++cell) {
        const Tile& below = Tiles[0][file.At(position++)];
        const std::uint8_t above = file.At(position++);
        Check(LooksRight(picture.At(cell % 64 * TileSide, cell / 64 * TileSide), below,
                         above == 0 ? nullptr : &Tiles[1][above]),
              "a cell shows its upper symbol over the lower one");
    }
}

} // namespace

} // namespace morvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    static const fuzz::Scratch scratch;
    static const bool loaded = (fuzz::LoadSymbols(scratch), true);
    (void)loaded;
    const std::vector<std::uint8_t> archive = fuzz::Archive({data, size});
    const fuzz::ZeroExtended file(archive);
    (void)scratch.Write("MAP.1", archive);
    std::vector<MapEntry> directory;
    ReadMapArchive(scratch.Game(), directory);
    const auto count = static_cast<std::int16_t>(file.Number(0, 2));
    fuzz::Check(std::ssize(directory) == std::max<std::ptrdiff_t>(count, 0),
                "there are as many maps as the count");
    Picture picture(MapPictureSide, MapPictureSide);
    for (std::int32_t i = 0; const MapEntry& map : directory) {
        const std::int32_t start = fuzz::FirstMap + fuzz::MapSize * i++;
        fuzz::Check(map.Offset == start && map.Size == fuzz::MapSize, "maps lie behind one another");
        // Up to 32,767 maps may be listed; of those past the end of the file, which are all alike, the last
        // is drawn.
        if (start >= std::ssize(archive) && i < count) continue;
        MapCellTable cells;
        ReadMapCells(scratch.Game(), map, cells);
        DrawMapCells(cells, picture);
        fuzz::CheckPicture(picture, start, file);
    }
    return 0;
}
