#include "modAddBMPHeader.h"

#include "LittleEndian.h"

#include <algorithm>
#include <cstring>

namespace morvane {

std::array<PaletteEntry, 256> Palette;

void AddBMPHeader(std::int32_t width, std::int32_t height, std::vector<std::uint8_t>& pixels) {
    const std::int32_t stride = BMPStride(width);
    const std::int32_t fileSize = stride * height + BMPPixelStart;
    std::vector<std::uint8_t> file(static_cast<std::size_t>(fileSize));
    file[0] = 'B';
    file[1] = 'M';
    PutLong(file, 2, static_cast<std::uint32_t>(fileSize));
    PutLong(file, 10, BMPPixelStart);
    PutLong(file, 14, 40); // size of the info header
    PutLong(file, 18, static_cast<std::uint32_t>(width));
    PutLong(file, 22, static_cast<std::uint32_t>(height)); // positive: rows are stored bottom-up
    PutWord(file, 26, 1);                                  // planes
    PutWord(file, 28, 8);                                  // bits per pixel
    // Compression, image size, both resolutions, colours used and important colours stay 0.
    static_assert(sizeof Palette == 1024);
    std::memcpy(&file[54], Palette.data(), sizeof Palette); // its entries have the layout of a colour table's
    auto from = pixels.begin();
    auto to = file.end();
    for (std::int32_t y = 0; y < height; ++y, from += width) {
        to -= stride;
        std::copy_n(from, width, to);
    }
    pixels = std::move(file);
}

} // namespace morvane
