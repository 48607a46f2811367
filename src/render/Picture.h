#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace morvane {

/// A pixel in the screen's own format: 0xFFRRGGBB.
using Pixel = std::uint32_t;

/// The pixel of a colour given by its intensities, 0 to 255 each.
constexpr Pixel PixelOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return 0xFF000000U | red << 16 | green << 8 | blue;
}

/// A grid of pixels in memory, top row first, rows without gaps.
class Picture {
  public:
    Picture() = default;
    /// Whoever makes a picture sets all its pixels: they hold nothing yet. Width and height are 0 or more.
    Picture(int width, int height)
        : Columns(width), Rows(height), Grid(std::make_unique_for_overwrite<Pixel[]>(Count())) {}

    [[nodiscard]] int Width() const { return Columns; }
    [[nodiscard]] int Height() const { return Rows; }
    [[nodiscard]] bool Empty() const { return Count() == 0; }

    std::span<Pixel> Pixels() { return {Grid.get(), Count()}; }
    [[nodiscard]] std::span<const Pixel> Pixels() const { return {Grid.get(), Count()}; }

    /// The pixels from (x, y) to the end of the picture.
    Pixel* At(int x, int y) { return Grid.get() + Index(x, y); }
    [[nodiscard]] const Pixel* At(int x, int y) const { return Grid.get() + Index(x, y); }

  private:
    [[nodiscard]] std::size_t Count() const { return Index(0, Rows); }
    [[nodiscard]] std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(Columns) + static_cast<std::size_t>(x);
    }

    int Columns = 0;
    int Rows = 0;
    std::unique_ptr<Pixel[]> Grid;
};

} // namespace morvane
