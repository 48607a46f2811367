#include "TransparentPicture.h"

namespace morvane {

void AddTransparentPicture(Picture& destination, int x, int y, int width, int height, const Picture& source,
                           int sourceX, int sourceY, Pixel transparent) {
    for (int j = 0; j < height; ++j) {
        const Pixel* from = source.At(sourceX, sourceY + j);
        Pixel* to = destination.At(x, y + j);
        for (int i = 0; i < width; ++i) to[i] = from[i] == transparent ? to[i] : from[i];
    }
}

} // namespace morvane
