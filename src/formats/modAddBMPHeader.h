#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace morvane {

/// One colour in the byte order of a BMP file's colour table; intensities 0 to 255.
struct PaletteEntry {
    std::uint8_t Blue = 0;
    std::uint8_t Green = 0;
    std::uint8_t Red = 0;
    std::uint8_t Reserved = 0; ///< always 0
};

/// The game's palette for the whole program, indexed by pixel value; black until a palette has been loaded.
extern std::array<PaletteEntry, 256> Palette;

/// Where the pixel rows of every BMP file of ours begin: after the 14-byte file header, the 40-byte info
/// header and 256 colours of 4 bytes.
inline constexpr std::int32_t BMPPixelStart = 1078;

/// Length in bytes of one stored pixel row: the width rounded up to a multiple of 4.
constexpr std::int32_t BMPStride(std::int32_t width) { return (width + 3) / 4 * 4; }

/// Turns pixels (palette indexes, width x height of them, top row first, rows without gaps) into the bytes of
/// an uncompressed 8-bit BMP file with the colours of Palette, rows bottom-up and padded with zeros to the
/// stride.
void AddBMPHeader(std::int32_t width, std::int32_t height, std::vector<std::uint8_t>& pixels);

} // namespace morvane
