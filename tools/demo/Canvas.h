#pragma once

#include "Archives.h"
#include "DemoPalette.h"

#include <cstdint>
#include <span>
#include <vector>

namespace morvane::demo {

/// A position in design units.
struct Point {
    int X, Y;
};

/// Light is 0 (dark) to 255 (bright).
int Shade(Ramp ramp, int light, int x, int y);

/// An image that is drawn with shaded shapes. Shapes are given in design units, a grid laid over the whole
/// canvas, so that one drawing serves any size. Integers only: the same pixels on every machine.
class Canvas {
  public:
    Canvas(int width, int height, int designWidth, int designHeight, int background);

    [[nodiscard]] int Width() const { return PixelWidth; }
    [[nodiscard]] int Height() const { return PixelHeight; }
    [[nodiscard]] int Background() const { return BackgroundIndex; }
    /// Palette index of a pixel; the background outside.
    [[nodiscard]] int Get(int x, int y) const;
    /// Sets a pixel; nothing outside.
    void Set(int x, int y, int index);

    /// An ellipsoid lit from above left.
    void Ball(Point centre, int radiusX, int radiusY, Ramp ramp, int bright = 0);
    /// A rounded bar from one point to another that may grow thicker or thinner.
    void Limb(Point from, int fromRadius, Point to, int toRadius, Ramp ramp, int bright = 0);
    /// An upright cylinder.
    void Column(int left, int top, int right, int bottom, Ramp ramp, int bright = 0);
    /// A rectangle with a raised edge; a depth below 0 sinks it.
    void Panel(int left, int top, int right, int bottom, Ramp ramp, int light, int depth);
    /// A polygon that goes from one light at its top to another at its bottom.
    void Shape(std::span<const Point> points, Ramp ramp, int topLight, int bottomLight);
    /// An ellipse of one colour.
    void Disc(Point centre, int radiusX, int radiusY, int index);
    /// A rectangle of one colour.
    void Fill(int left, int top, int right, int bottom, int index);
    /// A bar of one colour.
    void Stroke(Point from, Point to, int radius, int index);
    /// An ellipse that fades from white hot in the middle to dark at its ragged edge.
    void Glow(Point centre, int radiusX, int radiusY, Ramp ramp, std::uint32_t seed);

    /// Draws a line of one pixel around all that is not background.
    void Outline(int index);
    /// Makes everything darker (below 0) or brighter by steps of the ramps.
    void Brighten(int steps);
    /// Turns everything but the background into another ramp, steps kept.
    void Tint(Ramp ramp);
    /// The same drawing pressed down to a share of its height, in percent, and spread to the sides.
    [[nodiscard]] Canvas Pressed(int percent, int width) const;
    /// The drawing turned about left and right.
    [[nodiscard]] Canvas Mirrored() const;
    /// Lays another drawing over this one, its background left out.
    void Lay(const Canvas& other, int left, int top);

    /// The image to be written.
    [[nodiscard]] encode::Image ToImage() const;

  private:
    // Centre of a pixel in 16ths of a design unit.
    [[nodiscard]] int UnitX(int x) const { return (2 * x + 1) * DesignWidth * 8 / PixelWidth; }
    [[nodiscard]] int UnitY(int y) const { return (2 * y + 1) * DesignHeight * 8 / PixelHeight; }

    template <typename Visit>
    void ForEach(int left, int top, int right, int bottom, Visit visit);

    int PixelWidth, PixelHeight, DesignWidth, DesignHeight, BackgroundIndex;
    std::vector<std::uint8_t> Pixels;
};

} // namespace morvane::demo
