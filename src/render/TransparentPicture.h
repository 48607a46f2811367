#pragma once

#include "Picture.h"

namespace morvane {

/// Copies width x height pixels of source from (sourceX, sourceY) to destination at (x, y), leaving the
/// destination as it is wherever the source has the colour transparent. Both rectangles lie within their
/// pictures.
void AddTransparentPicture(Picture& destination, int x, int y, int width, int height, const Picture& source,
                           int sourceX, int sourceY, Pixel transparent);

} // namespace morvane
