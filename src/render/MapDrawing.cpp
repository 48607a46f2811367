#include "MapDrawing.h"

#include "TransparentPicture.h"

#include <cstring>

namespace morvane {

namespace {

void CopyTile(Picture& picture, int x, int y, const Picture& tile) {
    const Pixel* from = tile.At(0, 0);
    Pixel* to = picture.At(x, y);
    for (int j = 0; j < TileSide; ++j, from += TileSide, to += MapPictureSide)
        std::memcpy(to, from, TileSide * sizeof(Pixel));
}

} // namespace

void DrawMapCells(const MapCellTable& cells, Picture& picture) {
    constexpr int Side = static_cast<int>(MapSide);
    const Pixel transparent = PixelOfSymbolColor(TransparentColor);
    const MapCell* cell = cells.data();
    for (int r = 0; r < Side; ++r) {
        for (int c = 0; c < Side; ++c, ++cell) {
            const int x = TileSide * c;
            const int y = TileSide * r;
            CopyTile(picture, x, y, MapSymbols[0][cell->Plane0].Tile);
            if (cell->Plane1 != 0)
                AddTransparentPicture(picture, x, y, TileSide, TileSide, MapSymbols[1][cell->Plane1].Tile, 0,
                                      0, transparent);
        }
    }
}

} // namespace morvane
