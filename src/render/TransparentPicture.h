#pragma once

#include "Picture.h"

namespace morvane {

/// Copies width x height pixels of source from (sourceX, sourceY) to destination at (x, y), leaving the
/// destination as it is wherever the source has the colour transparent. Both rectangles lie within their
/// pictures.
inline void AddTransparentPicture(Picture& destination, int x, int y, int width, int height,
                                  const Picture& source, int sourceX, int sourceY, Pixel transparent) {
    const Pixel* from = source.At(sourceX, sourceY);
    Pixel* to = destination.At(x, y);
    for (int j = 0; j < height; ++j, from += source.Width(), to += destination.Width())
        for (int i = 0; i < width; ++i) to[i] = from[i] == transparent ? to[i] : from[i];
}

} // namespace morvane
