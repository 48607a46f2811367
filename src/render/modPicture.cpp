#include "modPicture.h"

#include "Failure.h"
#include "LittleEndian.h"
#include "modAddBMPHeader.h"

namespace morvane {

namespace {

constexpr std::int32_t LargestSide = 32767; ///< keeps every product below in range

bool Holds(ConstBytes bytes, std::int32_t width, std::int32_t height) {
    return width >= 0 && height >= 0 && width <= LargestSide && height <= LargestSide &&
           BMPPixelStart + std::int64_t{BMPStride(width)} * height <= std::ssize(bytes);
}

Failure Incomplete() { return {OutOfRangeError, "modPicture", "The image is incomplete."}; }

} // namespace

Picture PictureFromBMP(ConstBytes bytes) {
    if (bytes.size() < BMPPixelStart) throw Incomplete();
    const auto width = static_cast<std::int32_t>(LongAt(bytes, 18));
    const auto height = static_cast<std::int32_t>(LongAt(bytes, 22));
    const std::uint16_t bitsPerPixel = WordAt(bytes, 28);
    if (!Holds(bytes, width, height)) throw Incomplete();
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
