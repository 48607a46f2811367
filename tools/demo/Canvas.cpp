#include "Canvas.h"

#include "Archives.h"
#include "DemoPalette.h"
#include "Random.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace morvane::demo {

namespace {

constexpr int One = 256; // length of a unit vector

int SquareRoot(int value) {
    int root = 0;
    for (int bit = 1 << 14; bit > 0; bit >>= 1) {
        if ((root + bit) * (root + bit) <= value) root += bit;
    }
    return root;
}

// Light on a surface whose normal leans by x and y.
int Lit(int x, int y, int bright) {
    const int z = SquareRoot(std::max(0, One * One - x * x - y * y));
    const int facing = (-110 * x - 150 * y + 175 * z) / One; // about -256 to 256
    return std::clamp(84 + facing * 150 / One + bright, 10, 250);
}

} // namespace

int Shade(Ramp ramp, int light, int x, int y) {
    static constexpr std::array<int, 16> Pattern{0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
    const int dither = Pattern.at(static_cast<unsigned>((y & 3) * 4 + (x & 3)));
    const int step = (std::clamp(light, 0, 255) * 240 / 255 + dither) / 16;
    return Index(ramp, std::clamp(step, 0, 15));
}

Canvas::Canvas(int width, int height, int designWidth, int designHeight, int background)
    : PixelWidth(width), PixelHeight(height), DesignWidth(designWidth), DesignHeight(designHeight),
      BackgroundIndex(background), Pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                          static_cast<std::uint8_t>(background)) {}

int Canvas::Get(int x, int y) const {
    if (x < 0 || y < 0 || x >= PixelWidth || y >= PixelHeight) return BackgroundIndex;
    return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(PixelWidth) +
                  static_cast<std::size_t>(x)];
}

void Canvas::Set(int x, int y, int index) {
    if (x < 0 || y < 0 || x >= PixelWidth || y >= PixelHeight) return;
    Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(PixelWidth) + static_cast<std::size_t>(x)] =
        static_cast<std::uint8_t>(index);
}

// Visits the pixels whose centres may lie within bounds of design units, with the centre in 16ths of a unit.
template <typename Visit>
void Canvas::ForEach(int left, int top, int right, int bottom, Visit visit) {
    const int firstX = std::max(0, left * PixelWidth / DesignWidth - 1);
    const int lastX = std::min(PixelWidth - 1, right * PixelWidth / DesignWidth + 1);
    const int firstY = std::max(0, top * PixelHeight / DesignHeight - 1);
    const int lastY = std::min(PixelHeight - 1, bottom * PixelHeight / DesignHeight + 1);
    for (int y = firstY; y <= lastY; ++y) {
        for (int x = firstX; x <= lastX; ++x) visit(x, y, UnitX(x), UnitY(y));
    }
}

void Canvas::Ball(Point centre, int radiusX, int radiusY, Ramp ramp, int bright) {
    ForEach(centre.X - radiusX, centre.Y - radiusY, centre.X + radiusX, centre.Y + radiusY,
            [&](int x, int y, int ux, int uy) {
                const int nx = (ux - centre.X * 16) * One / (radiusX * 16);
                const int ny = (uy - centre.Y * 16) * One / (radiusY * 16);
                if (nx * nx + ny * ny > One * One) return;
                Set(x, y, Shade(ramp, Lit(nx, ny, bright), x, y));
            });
}

void Canvas::Limb(Point from, int fromRadius, Point to, int toRadius, Ramp ramp, int bright) {
    const int dx = to.X - from.X;
    const int dy = to.Y - from.Y;
    const int length = std::max(1, dx * dx + dy * dy);
    const int most = std::max(fromRadius, toRadius);
    ForEach(std::min(from.X, to.X) - most, std::min(from.Y, to.Y) - most, std::max(from.X, to.X) + most,
            std::max(from.Y, to.Y) + most, [&](int x, int y, int ux, int uy) {
                const int px = ux - from.X * 16;
                const int py = uy - from.Y * 16;
                const int along = std::clamp((px * dx + py * dy) * 16 / length, 0, One); // share of the way
                const int radius = std::max(8, fromRadius * 16 + (toRadius - fromRadius) * 16 * along / One);
                const int nx = (px - dx * along / 16) * One / radius;
                const int ny = (py - dy * along / 16) * One / radius;
                if (std::max(nx, -nx) > One || std::max(ny, -ny) > One || nx * nx + ny * ny > One * One)
                    return;
                Set(x, y, Shade(ramp, Lit(nx, ny, bright), x, y));
            });
}

void Canvas::Column(int left, int top, int right, int bottom, Ramp ramp, int bright) {
    ForEach(left, top, right, bottom, [&](int x, int y, int ux, int uy) {
        if (ux < left * 16 || ux >= right * 16 || uy < top * 16 || uy >= bottom * 16) return;
        const int nx = (2 * ux - (left + right) * 16) * One / ((right - left) * 16);
        Set(x, y, Shade(ramp, Lit(nx, 0, bright), x, y));
    });
}

void Canvas::Panel(int left, int top, int right, int bottom, Ramp ramp, int light, int depth) {
    const auto pixelX = [&](int unit) { return unit * PixelWidth / DesignWidth; };
    const auto pixelY = [&](int unit) { return unit * PixelHeight / DesignHeight; };
    const int x0 = pixelX(left);
    const int x1 = pixelX(right) - 1;
    const int y0 = pixelY(top);
    const int y1 = pixelY(bottom) - 1;
    for (int y = y0; y <= y1; ++y) {
        for (int x = x0; x <= x1; ++x) {
            const int grain = static_cast<int>(Hash(x, y, 77) & 15U) - 8;
            int here = light + grain;
            if (x == x1 || y == y1) here -= depth;
            if ((x == x0 && y < y1) || (y == y0 && x < x1)) here += depth;
            Set(x, y, Shade(ramp, here, x, y));
        }
    }
}

void Canvas::Shape(std::span<const Point> points, Ramp ramp, int topLight, int bottomLight) {
    const auto [low, high] = std::ranges::minmax(points, {}, &Point::Y);
    const auto [west, east] = std::ranges::minmax(points, {}, &Point::X);
    const int top = low.Y;
    const int bottom = std::max(top + 1, high.Y);
    ForEach(west.X, top, east.X, bottom, [&](int x, int y, int ux, int uy) {
        bool inside = false;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const Point& a = points[i];
            const Point& b = points[(i + 1) % points.size()];
            if ((a.Y * 16 > uy) == (b.Y * 16 > uy)) continue;
            if (ux < a.X * 16 + (b.X - a.X) * (uy - a.Y * 16) / (b.Y - a.Y)) inside = !inside;
        }
        if (!inside) return;
        const int light = topLight + (bottomLight - topLight) * (uy - top * 16) / ((bottom - top) * 16);
        Set(x, y, Shade(ramp, light, x, y));
    });
}

void Canvas::Disc(Point centre, int radiusX, int radiusY, int index) {
    ForEach(centre.X - radiusX, centre.Y - radiusY, centre.X + radiusX, centre.Y + radiusY,
            [&](int x, int y, int ux, int uy) {
                const int nx = (ux - centre.X * 16) * One / std::max(8, radiusX * 16);
                const int ny = (uy - centre.Y * 16) * One / std::max(8, radiusY * 16);
                if (nx * nx + ny * ny <= One * One) Set(x, y, index);
            });
}

void Canvas::Fill(int left, int top, int right, int bottom, int index) {
    ForEach(left, top, right, bottom, [&](int x, int y, int ux, int uy) {
        if (ux >= left * 16 && ux < right * 16 && uy >= top * 16 && uy < bottom * 16) Set(x, y, index);
    });
}

void Canvas::Stroke(Point from, Point to, int radius, int index) {
    const int steps = std::max({1, to.X - from.X, from.X - to.X, to.Y - from.Y, from.Y - to.Y});
    for (int i = 0; i <= steps; ++i)
        Disc({from.X + (to.X - from.X) * i / steps, from.Y + (to.Y - from.Y) * i / steps}, radius, radius,
             index);
}

void Canvas::Glow(Point centre, int radiusX, int radiusY, Ramp ramp, std::uint32_t seed) {
    ForEach(centre.X - radiusX, centre.Y - radiusY, centre.X + radiusX, centre.Y + radiusY,
            [&](int x, int y, int ux, int uy) {
                const int nx = (ux - centre.X * 16) * One / (radiusX * 16);
                const int ny = (uy - centre.Y * 16) * One / (radiusY * 16);
                const int ragged = Noise(x, y, 5, 64, seed) - 128;
                const int distance = SquareRoot(nx * nx + ny * ny) + ragged / 3;
                if (distance > 216 || nx * nx + ny * ny > One * One) return;
                Set(x, y, Shade(ramp, 262 - std::max(0, distance) * 200 / 216, x, y));
            });
}

void Canvas::Outline(int index) {
    const Canvas before = *this;
    const auto drawn = [&](int x, int y) { return before.Get(x, y) != BackgroundIndex; };
    for (int y = 0; y < PixelHeight; ++y) {
        for (int x = 0; x < PixelWidth; ++x) {
            if (drawn(x, y)) continue;
            if (drawn(x - 1, y) || drawn(x + 1, y) || drawn(x, y - 1) || drawn(x, y + 1)) Set(x, y, index);
        }
    }
}

void Canvas::Brighten(int steps) {
    for (std::uint8_t& pixel : Pixels) {
        if (pixel == BackgroundIndex || pixel >= Index(Ramp::Accent, 0)) continue;
        pixel = static_cast<std::uint8_t>(pixel / 16 * 16 + std::clamp(pixel % 16 + steps, 0, 15));
    }
}

void Canvas::Tint(Ramp ramp) {
    for (std::uint8_t& pixel : Pixels) {
        if (pixel != BackgroundIndex) pixel = static_cast<std::uint8_t>(Index(ramp, pixel % 16));
    }
}

Canvas Canvas::Pressed(int percent, int width) const {
    Canvas result(width, std::max(3, PixelHeight * percent / 100), DesignWidth, DesignHeight,
                  BackgroundIndex);
    for (int y = 0; y < result.PixelHeight; ++y) {
        for (int x = 0; x < width; ++x)
            result.Set(x, y, Get(x * PixelWidth / width, y * PixelHeight / result.PixelHeight));
    }
    return result;
}

Canvas Canvas::Mirrored() const {
    Canvas result = *this;
    for (int y = 0; y < PixelHeight; ++y) {
        for (int x = 0; x < PixelWidth; ++x) result.Set(x, y, Get(PixelWidth - 1 - x, y));
    }
    return result;
}

void Canvas::Lay(const Canvas& other, int left, int top) {
    for (int y = 0; y < other.PixelHeight; ++y) {
        for (int x = 0; x < other.PixelWidth; ++x) {
            if (other.Get(x, y) != other.BackgroundIndex) Set(left + x, top + y, other.Get(x, y));
        }
    }
}

encode::Image Canvas::ToImage() const {
    encode::Image image;
    image.Width = static_cast<std::uint8_t>(PixelWidth);
    image.Height = static_cast<std::uint8_t>(PixelHeight);
    image.Pixels = Pixels;
    return image;
}

} // namespace morvane::demo
