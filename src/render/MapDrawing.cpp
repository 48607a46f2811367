#include "MapDrawing.h"

#include "modAddTransparentPicture.h"

namespace morvane {

namespace {

void CopyTile(Picture& picture, int x, int y, const Picture& tile) {
    for (int j = 0; j < TileSide; ++j)
        for (int i = 0; i < TileSide; ++i) picture.At(x + i, y + j) = tile.At(i, j);
}

} // namespace

Picture DrawMapCells(const MapCellTable& cells) {
    Picture picture(MapPictureSide, MapPictureSide);
    const Pixel transparent = PixelOfSymbolColor(TransparentColor);
    for (int i = 0; const MapCell& cell : cells) {
        const int x = TileSide * (i % static_cast<int>(MapSide));
        const int y = TileSide * (i / static_cast<int>(MapSide));
        ++i;
        CopyTile(picture, x, y, MapSymbols[0][cell.Plane0].Tile);
        if (cell.Plane1 != 0)
            AddTransparentPicture(picture, x, y, TileSide, TileSide, MapSymbols[1][cell.Plane1].Tile, 0, 0,
                                  transparent);
    }
    return picture;
}

} // namespace morvane
