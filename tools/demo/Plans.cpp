#include "Plans.h"

#include "Codes.h"
#include "Level.h"
#include "Random.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace morvane::demo {

namespace {

constexpr std::array<Code, 6> RoomFloors{StoneFloor, FlagFloor, WoodFloor, TileFloor, Earth, FlagFloor};

// A region for a room: its floor and material follow from a number.
int RoomRegion(Level& level, int number) {
    const Code floor = RoomFloors.at(static_cast<std::size_t>(number) % RoomFloors.size());
    return level.AddRegion({.Floor = floor, .Material = number * 3 % MaterialCount});
}

bool IsApart(const Level& level, const Room& room, int gap) {
    return std::ranges::none_of(level.Rooms, [&](const Room& other) {
        return room.Left < other.Right + gap && other.Left < room.Right + gap &&
               room.Top < other.Bottom + gap && other.Top < room.Bottom + gap;
    });
}

// Scatters rooms that do not touch.
void ScatterRooms(Level& level, int count, int smallest, int largest) {
    for (int attempt = 0; attempt < 900 && static_cast<int>(level.Rooms.size()) < count; ++attempt) {
        const int width = level.Numbers.Between(smallest, largest) | 1;
        const int height = level.Numbers.Between(smallest, largest) | 1;
        const int left = level.Numbers.Between(4, MapSide - 5 - width) | 1;
        const int top = level.Numbers.Between(4, MapSide - 5 - height) | 1;
        const Room room{left, top, left + width, top + height};
        if (IsApart(level, room, 4))
            level.CarveRoom(room, RoomRegion(level, static_cast<int>(level.Rooms.size())));
    }
}

void CarveKeep(Level& level) {
    ScatterRooms(level, 17, 5, 11);
    level.ConnectRooms(3);
}

// Rock eaten out by water: noise that is smoothed, with a few built rooms in it.
void CarveCavern(Level& level) {
    Grid<bool> open;
    for (int y = 4; y < MapSide - 4; ++y) {
        for (int x = 4; x < MapSide - 4; ++x) open(x, y) = level.Numbers.Below(100) < 54;
    }
    for (int round = 0; round < 5; ++round) {
        const Grid<bool> before = open;
        for (int y = 4; y < MapSide - 4; ++y) {
            for (int x = 4; x < MapSide - 4; ++x) {
                int count = 0;
                for (int i = 0; i < 9; ++i) count += before(x - 1 + i % 3, y - 1 + i / 3) ? 1 : 0;
                open(x, y) = count >= 5;
            }
        }
    }
    const int cave = level.AddRegion({.Floor = Earth, .Material = 3});
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide; ++x) {
            if (open(x, y)) level.Carve(x, y, cave);
        }
    }
    level.KeepLargest();
    const auto seed = static_cast<std::uint32_t>(level.Numbers.Below(1000));
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide; ++x) {
            const int damp = Noise(x, y, 8, 16, seed);
            if (damp > 172)
                level.SetFloor(x, y, Water);
            else if (damp > 150)
                level.SetFloor(x, y, Grass);
            else if (damp < 66)
                level.SetFloor(x, y, Rubble);
        }
    }
    ScatterRooms(level, 8, 5, 7);
    level.ConnectRooms(4);
    level.KeepLargest();
}

// Half a fortress and its mirror image: towers, walks, a great hall in the middle.
void CarveFortress(Level& level) {
    const int court = level.AddRegion({.Floor = Grass, .Material = 5});
    const int hall = level.AddRegion({.Floor = FlagFloor, .Material = 0});
    const int tower = level.AddRegion({.Floor = StoneFloor, .Material = 5});
    const int side = level.AddRegion({.Floor = WoodFloor, .Material = 2});
    level.CarveRoom({28, 52, 36, 60}, hall);
    level.CarveRoom({26, 20, 38, 44}, hall);
    level.CarveRoom({27, 5, 37, 15}, level.AddRegion({.Floor = TileFloor, .Material = 6}));
    level.CarveRoom({4, 4, 11, 11}, tower);
    level.CarveRoom({4, 53, 11, 60}, tower);
    level.CarveRoom({15, 5, 23, 13}, side);
    level.CarveRoom({14, 53, 23, 60}, side);
    level.CarveRoom({13, 17, 22, 29}, court);
    level.CarveRoom({13, 35, 22, 48}, court);
    level.CarveRoom({4, 15, 9, 22}, side);
    level.CarveRoom({4, 28, 9, 37}, tower);
    level.CarveRoom({4, 42, 9, 49}, side);
    const std::vector<Room> rooms = level.Rooms;
    constexpr std::array<std::array<std::size_t, 2>, 13> joined{{{0, 1},
                                                                 {1, 2},
                                                                 {3, 5},
                                                                 {5, 2},
                                                                 {4, 6},
                                                                 {6, 0},
                                                                 {3, 9},
                                                                 {10, 11},
                                                                 {7, 1},
                                                                 {8, 1},
                                                                 {7, 9},
                                                                 {8, 11},
                                                                 {7, 8}}};
    // Passages are dug in the left half alone.
    const auto middle = [&](std::size_t room) {
        return Cell{std::min(rooms[room].Middle().X, MapSide / 2 - 1), rooms[room].Middle().Y};
    };
    for (const auto& [from, to] : joined) level.Connect(middle(from), middle(to));
    for (int y = 22; y < 43; y += 4) level.SetSolid(28, y, SolidPillar);
    for (int y = 7; y < 14; y += 3) level.SetSolid(29, y, SolidPillar);
    level.MirrorLeft();
}

// Passages one cell wide over the whole map, with chambers in them.
void CarveMaze(Level& level) {
    ScatterRooms(level, 9, 5, 9);
    const int maze = level.AddRegion({.Floor = StoneFloor, .Material = 1});
    constexpr std::array<Cell, 4> ways{{{0, -2}, {2, 0}, {0, 2}, {-2, 0}}};
    for (int start = 0; start < MapSide * MapSide; ++start) {
        const Cell first{start % MapSide | 1, start / MapSide | 1};
        const auto isNew = [&](int x, int y) {
            return x >= 3 && y >= 3 && x < MapSide - 3 && y < MapSide - 3 && !level.IsOpen(x, y);
        };
        if (!isNew(first.X, first.Y)) continue;
        level.Carve(first.X, first.Y, maze);
        std::vector<Cell> path{first};
        while (!path.empty()) {
            const Cell here = path.back();
            std::vector<Cell> next;
            for (const Cell& way : ways) {
                if (isNew(here.X + way.X, here.Y + way.Y)) next.push_back(way);
            }
            if (next.empty()) {
                path.pop_back();
                continue;
            }
            const Cell way =
                next[static_cast<std::size_t>(level.Numbers.Below(static_cast<int>(next.size())))];
            level.Carve(here.X + way.X / 2, here.Y + way.Y / 2, maze);
            level.Carve(here.X + way.X, here.Y + way.Y, maze);
            path.push_back({here.X + way.X, here.Y + way.Y});
        }
    }
    // Every other chamber has one way in, so that a lock there means something.
    const std::vector<Room> rooms = level.Rooms;
    for (std::size_t i = 0; i < rooms.size(); ++i) {
        level.Connect(rooms[i].Middle(), {rooms[i].Left - 2, rooms[i].Top});
        if (i % 2 == 0) level.Connect(rooms[i].Middle(), {rooms[i].Right + 1, rooms[i].Bottom - 1});
    }
}

// A round ground with rings of pillars, a walk around it and cells on all sides.
void CarveArena(Level& level) {
    const int ground = level.AddRegion({.Floor = Earth, .Material = 6});
    const int walk = level.AddRegion({.Floor = FlagFloor, .Material = 0});
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide; ++x) {
            const int dx = 2 * x - 63;
            const int dy = 2 * y - 63;
            const int distance = dx * dx + dy * dy;
            if (distance < 30 * 30)
                level.Carve(x, y, ground);
            else if (distance > 34 * 34 && distance < 42 * 42)
                level.Carve(x, y, walk);
            const bool gate = (dx > -4 && dx < 4) || (dy > -4 && dy < 4);
            if (gate && distance >= 30 * 30 && distance < 42 * 42) level.Carve(x, y, ground);
            if (distance < 8 * 8)
                level.SetFloor(x, y, Lava);
            else if (distance < 12 * 12)
                level.SetFloor(x, y, TileFloor);
        }
    }
    constexpr std::array<Cell, 4> octant{{{11, 2}, {10, 5}, {8, 8}, {5, 10}}};
    for (const Cell& at : octant) {
        for (const int flipX : {-1, 1}) {
            for (const int flipY : {-1, 1})
                level.SetSolid((63 + flipX * (2 * at.X + 1)) / 2, (63 + flipY * (2 * at.Y + 1)) / 2,
                               SolidPillar);
        }
    }
    for (const int at : {4, 15, 28, 41, 53}) {
        const bool corner = at == 4 || at == 53;
        for (const int edge : {4, 55}) {
            const int deep = corner ? 7 : 5;
            const Room along{at, edge == 55 && corner ? 53 : edge, at + (corner ? 7 : 8),
                             (edge == 55 && corner ? 53 : edge) + deep};
            if (IsApart(level, along, 2)) level.CarveRoom(along, RoomRegion(level, at + edge));
            const Room across{edge, at, edge + 5, at + 8};
            if (!corner && IsApart(level, across, 2))
                level.CarveRoom(across, RoomRegion(level, at + edge + 1));
        }
    }
    for (const Room& room : std::vector<Room>(level.Rooms)) level.Connect(room.Middle(), {31, 31});
    for (std::size_t i = 1; i < level.Rooms.size(); i += 2)
        level.Connect(level.Rooms[i].Middle(), level.Rooms[i - 1].Middle());
}

// Houses on open ground with trees around them and paths between.
void CarveCourt(Level& level) {
    const int ground = level.AddRegion({.Floor = Grass, .Material = 7});
    for (int y = 3; y < MapSide - 3; ++y) {
        for (int x = 3; x < MapSide - 3; ++x) level.Carve(x, y, ground);
    }
    ScatterRooms(level, 11, 5, 11);
    const std::vector<Room> rooms = level.Rooms;
    level.ConnectRooms(2);
    for (std::size_t i = 1; i < rooms.size(); ++i) {
        // A path of stones in front of the houses, from one to the next.
        Cell at = rooms[i - 1].Middle();
        const Cell to = rooms[i].Middle();
        while (!(at == to)) {
            if (at.X != to.X)
                at.X += at.X < to.X ? 1 : -1;
            else
                at.Y += at.Y < to.Y ? 1 : -1;
            const bool indoors = std::ranges::any_of(rooms, [&](const Room& r) {
                return at.X >= r.Left && at.X < r.Right && at.Y >= r.Top && at.Y < r.Bottom;
            });
            if (!indoors) level.SetFloor(at.X, at.Y, Earth);
        }
    }
    for (int y = 3; y < MapSide - 3; ++y) {
        for (int x = 3; x < MapSide - 3; ++x) {
            const int edge = std::min({x, y, MapSide - 1 - x, MapSide - 1 - y});
            const bool wood = Noise(x, y, 8, 16, 77) > 150 || edge < 5;
            const bool outdoors = IsApart(level, {x, y, x + 1, y + 1}, 2);
            if (outdoors && wood && level.Numbers.OneIn(edge < 5 ? 2 : 4)) level.Put(x, y, Tree);
            if (outdoors && Noise(x, y, 8, 16, 99) > 190) level.SetFloor(x, y, Water);
        }
    }
}

} // namespace

void Carve(Level& level, Plan plan) {
    switch (plan) {
    case Plan::Keep:
        CarveKeep(level);
        break;
    case Plan::Cavern:
        CarveCavern(level);
        break;
    case Plan::Fortress:
        CarveFortress(level);
        break;
    case Plan::Maze:
        CarveMaze(level);
        break;
    case Plan::Arena:
        CarveArena(level);
        break;
    case Plan::Court:
        CarveCourt(level);
        break;
    }
}

} // namespace morvane::demo
