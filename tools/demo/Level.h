#pragma once

#include "Archives.h"
#include "Codes.h"
#include "Random.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvane::demo {

inline constexpr int MapSide = 64;

/// A cell of a map.
struct Cell {
    int X, Y;

    friend bool operator==(const Cell&, const Cell&) = default;
};

/// Cells from left to right - 1 and from top to bottom - 1.
struct Room {
    int Left, Top, Right, Bottom;

    [[nodiscard]] Cell Middle() const { return {(Left + Right) / 2, (Top + Bottom) / 2}; }
    [[nodiscard]] int Width() const { return Right - Left; }
    [[nodiscard]] int Height() const { return Bottom - Top; }
};

/// Something for every cell of a map.
template <typename Value>
class Grid {
  public:
    /// The value of a cell; of the nearest cell on the edge for one outside.
    Value& operator()(int x, int y) { return Values.at(Place(x, y)); }
    const Value& operator()(int x, int y) const { return Values.at(Place(x, y)); }

  private:
    static std::size_t Place(int x, int y) {
        const auto inside = [](int v) { return v < 0 ? 0 : (v >= MapSide ? MapSide - 1 : v); };
        return static_cast<unsigned>(inside(y) * MapSide + inside(x));
    }
    std::array<Value, static_cast<std::size_t>(MapSide) * MapSide> Values{};
};

/// What a part of a level is made of.
struct Region {
    Code Floor = StoneFloor;
    int Material = 0;
};

/// A level under construction: solid rock in which a plan carves rooms and passages, and which is then
/// furnished.
class Level {
  public:
    Level(std::uint32_t seed, int passageMaterial, Code passageFloor);

    Random Numbers;
    std::vector<Room> Rooms;

    /// Adds a region and gives its number.
    int AddRegion(Region region);
    /// Makes a cell open as part of a region (0 fills it with rock again).
    void Carve(int x, int y, int region) { Regions(x, y) = region; }
    /// Makes a room with a wall around it that passages do not cut without need.
    void CarveRoom(const Room& room, int region);
    [[nodiscard]] bool IsOpen(int x, int y) const { return Regions(x, y) != 0; }
    /// Digs a passage by the cheapest way from one cell to another; where it cuts a room's wall, a door may
    /// come.
    void Connect(Cell from, Cell to);
    /// Connects every room with its nearest among the rooms before it, and some of them with one more.
    void ConnectRooms(int extraOneIn);
    /// Makes the right half the mirror image of the left half.
    void MirrorLeft();
    /// Keeps only the largest open part.
    void KeepLargest();
    /// Puts a floor of its own on an open cell.
    void SetFloor(int x, int y, Code floor) { Floors(x, y) = floor; }
    /// Puts something solid of plane 0 on an open cell.
    void SetSolid(int x, int y, Code code);
    /// Puts something on a free open cell; false when it is not free.
    bool Put(int x, int y, Code thing);

    /// Doors, locks, walls, creatures and all that lies about; to be called once, after the plan is carved.
    void Furnish(int levelNumber);

    [[nodiscard]] encode::Map ToMap() const;

  private:
    struct Mouth {
        Cell At;
        Code Door; ///< Void where there is no door
    };

    [[nodiscard]] bool IsFree(int x, int y) const;
    [[nodiscard]] bool PassesNorthSouth(Cell at) const;
    [[nodiscard]] bool PassesEastWest(Cell at) const;
    [[nodiscard]] Grid<bool> ReachedFrom(Cell start, const std::vector<Cell>& closed) const;
    [[nodiscard]] Cell RandomFree(const Room& room);
    void MakeDoors(int levelNumber);
    void LockDoors(int levelNumber);
    void AddSecretRooms();
    void AddPools(int levelNumber);
    void BuildWalls();
    void PlaceStartAndExit(int levelNumber);
    void FurnishRoom(const Room& room, int number, int levelNumber);
    void DressRoom(const Room& room, int theme);
    void AddPatrol(const Room& room);
    void AddSights(int levelNumber);

    std::vector<Region> Kinds; // of region n at n - 1; region 1 is that of passages
    Grid<int> Regions;         // 0 is rock
    Grid<bool> Ring;           // walls of rooms
    Grid<bool> Corner;         // their corners
    Grid<Code> Floors;         // where another than the region's
    Grid<Code> Solids;         // doors, walls and pillars
    Grid<Code> Things;
    std::vector<Mouth> Mouths;
    Cell StartCell{0, 0};
};

} // namespace morvane::demo
