#include "PictureFromBMP.h"

#include "BMP.h"
#include "Failure.h"
#include "GameFile.h"
#include "Palette.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

constexpr std::int32_t LargestSide = 32767; // keeps every product below in range

bool Holds(ConstBytes bytes, std::int32_t width, std::int32_t height) {
    return width >= 0 && height >= 0 && width <= LargestSide && height <= LargestSide &&
           BMPPixelStart + std::int64_t{BMPStride(width)} * height <= static_cast<std::int64_t>(bytes.size());
}

Failure Incomplete() { return {OutOfRangeError, "modPicture", "The image is incomplete."}; }

std::array<Pixel, 256> PalettePixels() {
    std::array<Pixel, 256> pixels{};
    std::transform(Palette.begin(), Palette.end(), pixels.begin(),
                   [](const PaletteEntry& entry) { return PixelOf(entry.Red, entry.Green, entry.Blue); });
    return pixels;
}

} // namespace

Picture PictureFromBMP(ConstBytes bytes) {
    if (bytes.size() < BMPPixelStart) throw Incomplete();
    const std::int32_t width = GameFile::LongAt(bytes.subspan(18));
    const std::int32_t height = GameFile::LongAt(bytes.subspan(22));
    const std::uint16_t bitsPerPixel = GameFile::WordAt(bytes.subspan(28));
    if (!Holds(bytes, width, height)) throw Incomplete();
    Picture picture(width, height);
    if (bitsPerPixel != 8) {
        std::ranges::fill(picture.Pixels(), PixelOf(0, 0, 0));
        return picture;
    }
    const std::array<Pixel, 256> colors = PalettePixels();
    const std::int32_t stride = BMPStride(width);
    const std::uint8_t* row = bytes.data() + BMPPixelStart;
    for (std::int32_t y = height - 1; y >= 0; --y, row += stride)
        std::transform(row, row + width, picture.At(0, y), [&](std::uint8_t index) { return colors[index]; });
    return picture;
}

} // namespace morvane
