#pragma once

#include "Picture.h"

namespace morvane {

/// Copies width x height pixels of source from (sourceX, sourceY) to destination at (x, y), leaving the
/// destination as it is wherever the source has the colour transparent. Both rectangles lie within their
/// pictures.
inline void AddTransparentPicture(Picture& destination, int x, int y, int width, int height,
                                  const Picture& source, int sourceX, int sourceY, Pixel transparent) {
    for (int j = 0; j < height; ++j)
        for (int i = 0; i < width; ++i) {
            const Pixel pixel = source.At(sourceX + i, sourceY + j);
            if (pixel != transparent) destination.At(x + i, y + j) = pixel;
        }
}

} // namespace morvane
