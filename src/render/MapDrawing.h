#pragma once

#include "MapArchive.h"
#include "Picture.h"
#include "modMapSymbols.h"

namespace morvane {

/// Width and height of a drawn map, in pixels: 448.
inline constexpr int MapPictureSide = static_cast<int>(MapSide) * TileSide;

/// Draws a map of MapPictureSide x MapPictureSide pixels with the tiles of MapSymbols, which must have been
/// loaded: plane 0 opaque, then plane 1 over it without code 0 and without pixels of TransparentColor.
Picture DrawMapCells(const MapCellTable& cells);

} // namespace morvane
