#pragma once

#include "Canvas.h"
#include "DemoPalette.h"

#include <cstdint>

namespace morvane::demo {

/// How a wall is built.
enum class Masonry { Blocks, Bricks, Planks, Plates, Rock, Hedge, Ice, Tiles, Logs, Pipes };

/// A wall material: how it is built, its colour and that of its joints, and its own seed.
struct Material {
    Masonry Kind;
    Ramp Main;
    Ramp Joint;
    int Light; ///< 0 to 255, of the flat parts
    std::uint32_t Seed;
};

/// A wall texture's side in pixels.
inline constexpr int WallSize = 64;

/// The plain wall, 64 x 64.
Canvas MakeWall(const Material& material);
/// The plain wall with cracks.
Canvas MakeCrackedWall(const Material& material);
/// The plain wall with something growing down from its top: moss, slime, frost.
Canvas MakeOvergrownWall(const Material& material, Ramp growth);

} // namespace morvane::demo
