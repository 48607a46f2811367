#pragma once

#include "MapArchive.h"
#include "MapSymbols.h"
#include "Picture.h"

namespace morvane {

/// Width and height of a drawn map, in pixels: 448.
inline constexpr int MapPictureSide = static_cast<int>(MapSide) * TileSide;

/// Draws a map into a picture of MapPictureSide x MapPictureSide with the tiles of MapSymbols: plane 0
/// opaque, then plane 1 over it without code 0 and without pixels of TransparentColor. Sets every pixel.
void DrawMapCells(const MapCellTable& cells, Picture& picture);

} // namespace morvane
