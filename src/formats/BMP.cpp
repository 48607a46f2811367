#include "BMP.h"

#include "Palette.h"

#include <algorithm>

namespace morvane {

namespace {

// Writes little-endian numbers one after the other.
class HeaderWriter {
  public:
    explicit HeaderWriter(std::uint8_t* start) : Next(start) {}
    void Put(std::int32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) *Next++ = static_cast<std::uint8_t>(value >> 8 * i);
    }

  private:
    std::uint8_t* Next;
};

void WriteHeaders(std::uint8_t* start, std::int32_t fileSize, std::int32_t width, std::int32_t height) {
    HeaderWriter header(start);
    header.Put('B' | 'M' << 8, 2);
    header.Put(fileSize, 4);
    header.Put(0, 4); // reserved
    header.Put(BMPPixelStart, 4);
    header.Put(40, 4); // size of the info header
    header.Put(width, 4);
    header.Put(height, 4); // positive: rows are stored bottom-up
    header.Put(1, 2);      // planes
    header.Put(8, 2);      // bits per pixel
    // Compression, image size, both resolutions, colours used and important colours stay 0.
}

} // namespace

void AddBMPHeader(std::int32_t width, std::int32_t height, std::vector<std::uint8_t>& pixels) {
    constexpr std::size_t ColorTable = 54;
    const std::int32_t stride = BMPStride(width);
    const std::int32_t fileSize = stride * height + BMPPixelStart;
    std::vector<std::uint8_t> file(static_cast<std::size_t>(fileSize));
    WriteHeaders(file.data(), fileSize, width, height);
    std::uint8_t* color = file.data() + ColorTable;
    for (const PaletteEntry& entry : Palette)
        for (const std::uint8_t value : {entry.Blue, entry.Green, entry.Red, entry.Reserved})
            *color++ = value;
    const std::uint8_t* from = pixels.data();
    std::uint8_t* to = file.data() + fileSize;
    for (std::int32_t y = 0; y < height; ++y, from += width) {
        to -= stride;
        std::copy_n(from, width, to);
    }
    pixels = std::move(file);
}

} // namespace morvane
