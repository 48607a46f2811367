#pragma once

#include <cstdint>

/// The codes of the demo game's maps; the symbol files show these and no others.
namespace morvane::demo {

using Code = std::uint8_t;

// Plane 0: floors, walls and doors.
inline constexpr Code Void = 0;
inline constexpr Code StoneFloor = 1;
inline constexpr Code FlagFloor = 2;
inline constexpr Code WoodFloor = 3;
inline constexpr Code Carpet = 4;
inline constexpr Code Grass = 5;
inline constexpr Code Water = 6;
inline constexpr Code Lava = 7;
inline constexpr Code TileFloor = 8;
inline constexpr Code Earth = 9;
inline constexpr Code Bridge = 10;
inline constexpr Code Rubble = 11;
inline constexpr Code CarpetEdge = 12;

inline constexpr int MaterialCount = 8;
/// Looks of a wall material.
enum class WallLook : std::uint8_t { Plain, Decorated, Cracked };
Code WallCode(int material, WallLook look);

/// Doors; a door across a passage that runs north and south has an even code, east and west the odd one above
/// it.
inline constexpr Code Door = 48;
inline constexpr Code IronDoor = 50;
inline constexpr Code GoldDoor = 52;
inline constexpr Code SilverDoor = 54;
inline constexpr Code RedDoor = 56;
inline constexpr Code Gate = 58;
inline constexpr Code SecretDoor = 60;
inline constexpr Code ExitDoor = 62;
inline constexpr Code SolidPillar = 63;
/// A window in a wall that runs east and west; one in a wall that runs north and south is the code above it.
inline constexpr Code Window = 64;

// Plane 1: what stands and lies on a cell.
inline constexpr Code Nothing = 0;
/// Four directions from north clockwise.
inline constexpr Code Start = 1;
inline constexpr Code Patrol = 5;
inline constexpr Code FirstCreature = 10;
inline constexpr int CreatureCount = 10;
inline constexpr Code Key = 30; ///< gold, silver, red
inline constexpr Code FirstPickUp = 33;
inline constexpr int PickUpCount = 11;
inline constexpr Code Coins = 37;
inline constexpr Code Chest = 38;
inline constexpr Code Crown = 39;
inline constexpr Code Torch = 50;
inline constexpr Code Barrel = 51;
inline constexpr Code Table = 52;
inline constexpr Code Pillar = 53;
inline constexpr Code Tree = 54;
inline constexpr Code Statue = 55;
inline constexpr Code Candle = 56;
inline constexpr Code Crate = 57;
inline constexpr Code Bones = 58;
inline constexpr Code Fountain = 59;
inline constexpr Code Lever = 60;
inline constexpr Code Plate = 61;
inline constexpr Code Teleporter = 62;
inline constexpr Code StairsUp = 63;
inline constexpr Code StairsDown = 64;
inline constexpr Code Spikes = 65;
inline constexpr Code SecretMark = 66;
inline constexpr Code ExitMark = 67;

} // namespace morvane::demo
