#include "modPicture.h"

#include "LittleEndian.h"
#include "modAddBMPHeader.h"

namespace morvane {

Picture PictureFromBMP(ConstBytes bytes) {
    const auto width = static_cast<std::int32_t>(LongAt(bytes, 18));
    const auto height = static_cast<std::int32_t>(LongAt(bytes, 22));
    const std::uint16_t bitsPerPixel = WordAt(bytes, 28);
    Picture picture(width, height);
    if (bitsPerPixel != 8) return picture;
    for (std::int32_t y = 0; y < height; ++y)
        for (std::int32_t x = 0; x < width; ++x) {
            const std::int32_t position = BMPPixelStart + (height - 1 - y) * BMPStride(width) + x;
            const PaletteEntry& color = Palette[bytes[static_cast<std::size_t>(position)]];
            picture.At(x, y) = PixelOf(color.Red, color.Green, color.Blue);
        }
    return picture;
}

} // namespace morvane
