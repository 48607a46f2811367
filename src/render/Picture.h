#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvane {

/// A pixel in the screen's own format: 0xFFRRGGBB.
using Pixel = std::uint32_t;

/// The pixel of a colour given by its intensities, 0 to 255 each.
constexpr Pixel PixelOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return 0xFF000000U | red << 16 | green << 8 | blue;
}

/// A grid of pixels in memory, top row first, rows without gaps. Black at first.
class Picture {
  public:
    Picture() = default;
    /// Width and height are 0 or more.
    Picture(int width, int height)
        : Columns(width), Rows(height),
          Grid(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), PixelOf(0, 0, 0)) {}

    [[nodiscard]] int Width() const { return Columns; }
    [[nodiscard]] int Height() const { return Rows; }
    [[nodiscard]] const std::vector<Pixel>& Pixels() const { return Grid; }

    /// The pixel in a column and row, which must lie within the picture.
    Pixel& At(int x, int y) { return Grid[Index(x, y)]; }
    [[nodiscard]] Pixel At(int x, int y) const { return Grid[Index(x, y)]; }

  private:
    [[nodiscard]] std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(Columns) + static_cast<std::size_t>(x);
    }

    int Columns = 0;
    int Rows = 0;
    std::vector<Pixel> Grid;
};

} // namespace morvane
