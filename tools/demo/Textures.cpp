#include "Textures.h"

#include "Canvas.h"
#include "DemoPalette.h"
#include "Random.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace morvane::demo {

namespace {

// One place of a wall before it is lit.
struct Spot {
    int Height = 0; // above the joints
    int Light = 0;  // added to the material's light
    bool Joint = false;
};

using Surface = std::array<Spot, static_cast<std::size_t>(WallSize) * WallSize>;

constexpr int Wrap(int v) { return (v + WallSize) % WallSize; }

Spot& At(Surface& surface, int x, int y) {
    return surface.at(static_cast<unsigned>(Wrap(y) * WallSize + Wrap(x)));
}

// Height of a stone with rounded edges, from the distances to its sides.
int Rounded(int x, int y, int width, int height, int rim) {
    const int side = std::min({x, width - 1 - x, y, height - 1 - y});
    return std::min(side, rim) * 5 - (side == 0 ? 3 : 0);
}

void Lay(Surface& surface, int courseHeight, int stoneWidth, int rim, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        const int course = y / courseHeight;
        const int shift = course % 2 * stoneWidth / 2;
        for (int x = 0; x < WallSize; ++x) {
            const int along = Wrap(x + shift);
            const int stone = along / stoneWidth;
            Spot& spot = At(surface, x, y);
            const int inX = along % stoneWidth;
            const int inY = y % courseHeight;
            spot.Joint = inX == 0 || inY == 0;
            spot.Height = spot.Joint ? -4 : Rounded(inX - 1, inY - 1, stoneWidth - 1, courseHeight - 1, rim);
            spot.Light = static_cast<int>(Hash(stone, course, seed) % 44U) - 22;
        }
    }
}

void Roughen(Surface& surface, int cell, int depth, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            At(surface, x, y).Height += Noise(x, y, cell, WallSize / cell, seed) * depth / 255;
            At(surface, x, y).Light += static_cast<int>(Hash(x, y, seed) % 13U) - 6;
        }
    }
}

void Boards(Surface& surface, int boardWidth, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            const int board = x / boardWidth;
            Spot& spot = At(surface, x, y);
            spot.Joint = x % boardWidth == 0 || (y + board * 23) % WallSize == 0;
            spot.Height = spot.Joint ? -8 : 2;
            // Grain: noise that is stretched along the board.
            const int grain = Noise(x * 4 % 256, (y + board * 17) % WallSize, 8, 32,
                                    seed + static_cast<std::uint32_t>(board));
            spot.Light = static_cast<int>(Hash(board, 0, seed) % 34U) - 17 + (grain - 128) / 5;
            const int nailX = x % boardWidth - boardWidth / 2;
            const int nailY = (y + board * 23) % WallSize - 4;
            if (nailX * nailX + nailY * nailY <= 1) spot.Height = 9;
        }
    }
}

void Logs(Surface& surface, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            const int log = x / 16;
            const int across = x % 16 - 8;
            Spot& spot = At(surface, x, y);
            spot.Joint = x % 16 == 0;
            spot.Height = spot.Joint ? -10 : (64 - across * across) / 3;
            spot.Light = (Noise(x * 4 % 256, y, 16, 16, seed + static_cast<std::uint32_t>(log)) - 128) / 3;
        }
    }
}

void Plates(Surface& surface, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            const int inX = x % 32;
            const int inY = y % 32;
            Spot& spot = At(surface, x, y);
            spot.Joint = inX == 0 || inY == 0;
            spot.Height = spot.Joint ? -8 : std::min({inX, inY, 31 - inX, 31 - inY, 2}) * 4;
            spot.Light = static_cast<int>(Hash(x / 32, y / 32, seed) % 30U) - 15 +
                         (Noise(x, y * 4 % 256, 16, 4, seed) - 128) / 8;
            const int rivetX = std::min(inX, 32 - inX) - 5;
            const int rivetY = std::min(inY, 32 - inY) - 5;
            if (rivetX * rivetX + rivetY * rivetY <= 3)
                spot.Height += 9 - 2 * (rivetX * rivetX + rivetY * rivetY);
        }
    }
}

// Distances to the nearest and second nearest of scattered points, squared.
std::array<int, 2> Nearest(int x, int y, int cell, std::uint32_t seed, std::uint32_t& which) {
    std::array<int, 2> best{1 << 20, 1 << 20};
    for (int cy = y / cell - 1; cy <= y / cell + 1; ++cy) {
        for (int cx = x / cell - 1; cx <= x / cell + 1; ++cx) {
            const int count = WallSize / cell;
            const std::uint32_t h = Hash((cx + count) % count, (cy + count) % count, seed);
            const int dx = cx * cell + static_cast<int>(h % static_cast<std::uint32_t>(cell)) - x;
            const int dy = cy * cell + static_cast<int>((h >> 8U) % static_cast<std::uint32_t>(cell)) - y;
            const int distance = dx * dx + dy * dy;
            if (distance < best[0]) {
                best = {distance, best[0]};
                which = h;
            } else {
                best[1] = std::min(best[1], distance);
            }
        }
    }
    return best;
}

void Boulders(Surface& surface, int cell, int roundness, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            std::uint32_t which = 0;
            const auto near = Nearest(x, y, cell, seed, which);
            const int gap = near[1] - near[0];
            Spot& spot = At(surface, x, y);
            spot.Joint = gap < cell;
            spot.Height = std::min(gap / roundness, 26) - (spot.Joint ? 6 : 0);
            spot.Light = static_cast<int>((which >> 16U) % 40U) - 20;
        }
    }
}

void Leaves(Surface& surface, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            std::uint32_t which = 0;
            const auto near = Nearest(x, y, 8, seed, which);
            Spot& spot = At(surface, x, y);
            spot.Joint = near[1] - near[0] < 4;
            spot.Height = 20 - std::min(near[0], 40) / 2 + static_cast<int>(which % 9U);
            spot.Light = static_cast<int>((which >> 12U) % 80U) - 50;
        }
    }
}

void Facets(Surface& surface, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            std::uint32_t which = 0;
            const auto near = Nearest(x, y, 16, seed, which);
            Spot& spot = At(surface, x, y);
            spot.Joint = false;
            // Each facet leans its own way.
            const int leanX = static_cast<int>(which % 7U) - 3;
            const int leanY = static_cast<int>((which >> 4U) % 7U) - 3;
            spot.Height = near[1] - near[0] < 14 ? 5 : 0;
            spot.Light =
                static_cast<int>((which >> 16U) % 70U) - 35 + (leanX * (x % 16) + leanY * (y % 16)) / 3;
            if ((x + 2 * y + static_cast<int>(which % 40U)) % 41 == 0) spot.Light += 40;
        }
    }
}

void Ornaments(Surface& surface, std::uint32_t seed) {
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            const int inX = x % 32;
            const int inY = y % 32;
            const int fromX = std::max(inX - 16, 16 - inX);
            const int fromY = std::max(inY - 16, 16 - inY);
            const int ring = fromX + fromY;
            Spot& spot = At(surface, x, y);
            spot.Joint = inX == 0 || inY == 0;
            const bool raised = ring == 12 || ring == 11 || ring < 4 || std::max(fromX, fromY) == 14;
            spot.Height = spot.Joint ? -6 : (raised ? 7 : 0);
            spot.Light = static_cast<int>(Hash(x / 32, y / 32, seed) % 30U) - 15 + (raised ? 14 : 0);
        }
    }
}

void Pipes(Surface& surface, std::uint32_t seed) {
    Plates(surface, seed);
    for (int y = 0; y < WallSize; ++y) {
        for (const int centre : {10, 22, 46}) {
            const int radius = centre == 46 ? 8 : 4;
            for (int d = -radius; d <= radius; ++d) {
                Spot& spot = At(surface, centre + d, y);
                spot.Joint = false;
                const bool collar = (y + centre) % 32 < 5;
                spot.Height = (radius * radius - d * d) * (radius > 5 ? 3 : 5) / 4 + (collar ? 6 : 0);
                spot.Light = collar ? 12 : -8;
            }
        }
    }
}

Surface Build(const Material& material) {
    Surface surface{};
    switch (material.Kind) {
    case Masonry::Blocks:
        Lay(surface, 16, 32, 3, material.Seed);
        Roughen(surface, 4, 9, material.Seed + 1);
        break;
    case Masonry::Bricks:
        Lay(surface, 8, 16, 1, material.Seed);
        Roughen(surface, 4, 6, material.Seed + 1);
        break;
    case Masonry::Planks:
        Boards(surface, 16, material.Seed);
        break;
    case Masonry::Plates:
        Plates(surface, material.Seed);
        break;
    case Masonry::Rock:
        Boulders(surface, 16, 4, material.Seed);
        Roughen(surface, 4, 12, material.Seed + 1);
        break;
    case Masonry::Hedge:
        Leaves(surface, material.Seed);
        Roughen(surface, 2, 6, material.Seed + 1);
        break;
    case Masonry::Ice:
        Facets(surface, material.Seed);
        Roughen(surface, 8, 8, material.Seed + 1);
        break;
    case Masonry::Tiles:
        Ornaments(surface, material.Seed);
        Roughen(surface, 4, 4, material.Seed + 1);
        break;
    case Masonry::Logs:
        Logs(surface, material.Seed);
        Roughen(surface, 2, 5, material.Seed + 1);
        break;
    case Masonry::Pipes:
        Pipes(surface, material.Seed);
        break;
    }
    return surface;
}

Canvas Light(Surface& surface, const Material& material) {
    Canvas canvas(WallSize, WallSize, 128, 128, Black);
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            const Spot& spot = At(surface, x, y);
            // What rises to the right or downwards faces the light.
            const int rise = 2 * spot.Height - At(surface, x - 1, y).Height - At(surface, x, y - 1).Height;
            const int light =
                material.Light + spot.Light + std::clamp(rise * 4, -80, 80) - (spot.Joint ? 46 : 0);
            canvas.Set(x, y,
                       Shade(spot.Joint ? material.Joint : material.Main, std::clamp(light, 8, 250), x, y));
        }
    }
    return canvas;
}

void Crack(Surface& surface, int x, int y, int length, Random& random) {
    int turn = random.Between(-1, 1);
    for (int i = 0; i < length; ++i) {
        At(surface, x, y).Height = -14;
        At(surface, x, y).Light -= 40;
        At(surface, x + 1, y).Height -= 6;
        if (random.OneIn(3)) turn = random.Between(-1, 1);
        x += turn;
        if (random.OneIn(9) && length > 14) Crack(surface, x, y, length / 3, random);
        y += random.OneIn(5) ? 0 : 1;
    }
}

} // namespace

Canvas MakeWall(const Material& material) {
    Surface surface = Build(material);
    return Light(surface, material);
}

Canvas MakeCrackedWall(const Material& material) {
    Surface surface = Build(material);
    Random random(material.Seed + 5);
    for (int i = 0; i < 3; ++i)
        Crack(surface, random.Between(8, 56), random.Between(0, 24), random.Between(26, 44), random);
    return Light(surface, material);
}

Canvas MakeOvergrownWall(const Material& material, Ramp growth) {
    Canvas canvas = MakeWall(material);
    for (int x = 0; x < WallSize; ++x) {
        const int reach = 6 + Noise(x, 0, 4, 16, material.Seed + 9) * 44 / 255;
        for (int y = 0; y < reach; ++y) {
            if (Noise(x, y, 4, 16, material.Seed + 11) < y * 200 / reach) continue;
            const int old = canvas.Get(x, y) % 16;
            canvas.Set(x, y, Shade(growth, old * 12 + static_cast<int>(Hash(x, y, 3) % 50U), x, y));
        }
    }
    return canvas;
}

} // namespace morvane::demo
