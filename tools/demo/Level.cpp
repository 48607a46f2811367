#include "Level.h"

#include "Archives.h"
#include "Codes.h"
#include "Random.h"

#include <queue>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <tuple>
#include <vector>

namespace morvane::demo {

namespace {

// North, east, south, west.
constexpr std::array<Cell, 4> Ways{{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};

int Distance(Cell a, Cell b) { return std::max(a.X - b.X, b.X - a.X) + std::max(a.Y - b.Y, b.Y - a.Y); }

constexpr int Margin = 2; // cells along the map's edge that stay rock

bool IsInside(int x, int y) {
    return x >= Margin && y >= Margin && x < MapSide - Margin && y < MapSide - Margin;
}

} // namespace

Level::Level(std::uint32_t seed, int passageMaterial, Code passageFloor) : Numbers(seed) {
    AddRegion({.Floor = passageFloor, .Material = passageMaterial});
}

int Level::AddRegion(Region region) {
    Kinds.push_back(region);
    return static_cast<int>(Kinds.size());
}

void Level::CarveRoom(const Room& room, int region) {
    for (int y = room.Top - 1; y <= room.Bottom; ++y) {
        for (int x = room.Left - 1; x <= room.Right; ++x) {
            const bool sideX = x < room.Left || x == room.Right;
            const bool sideY = y < room.Top || y == room.Bottom;
            Regions(x, y) = sideX || sideY ? 0 : region;
            Ring(x, y) = sideX || sideY;
            Corner(x, y) = sideX && sideY;
            Floors(x, y) = Void;
        }
    }
    Rooms.push_back(room);
}

void Level::Connect(Cell from, Cell to) {
    // Cheapest way over cells and the direction in which they are entered, so that passages run straight.
    using State = std::tuple<int, int, int>; // cost, cell, direction
    constexpr int unknown = 1 << 28;
    const auto cellOf = [](Cell c) { return c.Y * MapSide + c.X; };
    std::vector<int> best(static_cast<std::size_t>(MapSide) * MapSide * 4, unknown);
    std::vector<int> before(best.size(), -1);
    std::priority_queue<State, std::vector<State>, std::greater<>> open;
    const auto visit = [&](int cost, int cell, int way, int previous) {
        const auto at = static_cast<unsigned>(cell * 4 + way);
        if (cost >= best[at]) return;
        best[at] = cost;
        before[at] = previous;
        open.emplace(cost, cell, way);
    };
    for (int way = 0; way < 4; ++way) visit(0, cellOf(from), way, -1);
    int end = -1;
    while (!open.empty() && end < 0) {
        const auto [cost, cell, way] = open.top();
        open.pop();
        if (cost > best[static_cast<unsigned>(cell * 4 + way)]) continue;
        if (cell == cellOf(to)) end = cell * 4 + way;
        for (int next = 0; next < 4; ++next) {
            const Cell step = Ways.at(static_cast<std::size_t>(next));
            const int x = cell % MapSide + step.X;
            const int y = cell / MapSide + step.Y;
            if (!IsInside(x, y)) continue;
            int price = IsOpen(x, y) ? 2 : 5;
            if (!IsOpen(x, y) && Ring(x, y)) price = 40;
            if (!IsOpen(x, y) && Corner(x, y)) price = 2000;
            visit(cost + price + (next == way ? 0 : 4), y * MapSide + x, next, cell * 4 + way);
        }
    }
    for (int at = end; at >= 0; at = before[static_cast<std::size_t>(at)]) {
        const Cell cell{at / 4 % MapSide, at / 4 / MapSide};
        if (IsOpen(cell.X, cell.Y)) continue;
        if (Ring(cell.X, cell.Y)) Mouths.push_back({.At = cell, .Door = Void});
        Regions(cell.X, cell.Y) = 1;
    }
}

void Level::ConnectRooms(int extraOneIn) {
    for (std::size_t i = 1; i < Rooms.size(); ++i) {
        std::vector<std::size_t> order(i);
        for (std::size_t j = 0; j < i; ++j) order[j] = j;
        const Cell here = Rooms[i].Middle();
        std::ranges::stable_sort(order, {}, [&](std::size_t j) { return Distance(Rooms[j].Middle(), here); });
        Connect(here, Rooms[order[0]].Middle());
        if (i > 2 && Numbers.OneIn(extraOneIn)) Connect(here, Rooms[order[1]].Middle());
    }
}

void Level::MirrorLeft() {
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide / 2; ++x) {
            const int other = MapSide - 1 - x;
            Regions(other, y) = Regions(x, y);
            Ring(other, y) = Ring(x, y);
            Corner(other, y) = Corner(x, y);
            Floors(other, y) = Floors(x, y);
            Solids(other, y) = Solids(x, y);
        }
    }
    const std::vector<Room> rooms = Rooms;
    for (const Room& room : rooms) {
        if (room.Right <= MapSide / 2)
            Rooms.push_back({MapSide - room.Right, room.Top, MapSide - room.Left, room.Bottom});
    }
    const std::vector<Mouth> mouths = Mouths;
    for (const Mouth& mouth : mouths)
        Mouths.push_back({.At = {MapSide - 1 - mouth.At.X, mouth.At.Y}, .Door = Void});
}

void Level::KeepLargest() {
    Grid<bool> seen;
    Grid<bool> kept;
    int most = 0;
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide; ++x) {
            if (!IsOpen(x, y) || seen(x, y)) continue;
            const Grid<bool> part = ReachedFrom({x, y}, {});
            int count = 0;
            for (int i = 0; i < MapSide * MapSide; ++i) {
                if (!part(i % MapSide, i / MapSide)) continue;
                seen(i % MapSide, i / MapSide) = true;
                ++count;
            }
            if (count > most) {
                most = count;
                kept = part;
            }
        }
    }
    for (int i = 0; i < MapSide * MapSide; ++i) {
        if (!kept(i % MapSide, i / MapSide)) Regions(i % MapSide, i / MapSide) = 0;
    }
}

void Level::SetSolid(int x, int y, Code code) {
    if (IsOpen(x, y)) Solids(x, y) = code;
}

bool Level::IsFree(int x, int y) const {
    return IsOpen(x, y) && Solids(x, y) == Void && Things(x, y) == Nothing && Floors(x, y) != Water &&
           Floors(x, y) != Lava;
}

bool Level::Put(int x, int y, Code thing) {
    if (!IsFree(x, y)) return false;
    Things(x, y) = thing;
    return true;
}

bool Level::PassesNorthSouth(Cell at) const {
    return IsOpen(at.X, at.Y - 1) && IsOpen(at.X, at.Y + 1) && !IsOpen(at.X - 1, at.Y) &&
           !IsOpen(at.X + 1, at.Y);
}

bool Level::PassesEastWest(Cell at) const {
    return IsOpen(at.X - 1, at.Y) && IsOpen(at.X + 1, at.Y) && !IsOpen(at.X, at.Y - 1) &&
           !IsOpen(at.X, at.Y + 1);
}

Grid<bool> Level::ReachedFrom(Cell start, const std::vector<Cell>& closed) const {
    Grid<bool> reached;
    for (const Cell& cell : closed) reached(cell.X, cell.Y) = true;
    std::vector<Cell> open{start};
    reached(start.X, start.Y) = true;
    while (!open.empty()) {
        const Cell cell = open.back();
        open.pop_back();
        for (const Cell& way : Ways) {
            const Cell next{cell.X + way.X, cell.Y + way.Y};
            if (!IsOpen(next.X, next.Y) || Solids(next.X, next.Y) == SolidPillar || reached(next.X, next.Y))
                continue;
            reached(next.X, next.Y) = true;
            open.push_back(next);
        }
    }
    for (const Cell& cell : closed) reached(cell.X, cell.Y) = false;
    return reached;
}

Cell Level::RandomFree(const Room& room) {
    Cell at = room.Middle();
    for (int attempt = 0; attempt < 40; ++attempt) {
        at = {Numbers.Between(room.Left, room.Right - 1), Numbers.Between(room.Top, room.Bottom - 1)};
        if (IsFree(at.X, at.Y)) break;
    }
    return at;
}

void Level::MakeDoors(int levelNumber) {
    for (std::size_t i = 0; i < Mouths.size(); ++i) {
        Mouth& mouth = Mouths[i];
        const Cell at = mouth.At;
        const bool northSouth = PassesNorthSouth(at);
        if (!IsOpen(at.X, at.Y) || Solids(at.X, at.Y) != Void || (!northSouth && !PassesEastWest(at)))
            continue;
        bool beside = false;
        for (const Cell& way : Ways) beside = beside || Solids(at.X + way.X, at.Y + way.Y) != Void;
        if (beside) continue;
        constexpr std::array<Code, 6> kinds{Door, Door, IronDoor, Door, Gate, IronDoor};
        const Code kind = kinds.at((i + static_cast<std::size_t>(levelNumber)) % kinds.size());
        mouth.Door = static_cast<Code>(kind + (northSouth ? 0 : 1));
        Solids(at.X, at.Y) = mouth.Door;
    }
}

// Locks up to three doors behind which there are rooms, and puts each key where no locked door bars the way.
void Level::LockDoors(int levelNumber) {
    std::vector<Cell> locked;
    constexpr std::array<Code, 3> kinds{GoldDoor, SilverDoor, RedDoor};
    const auto kindOf = [&](std::size_t lock) {
        return (lock + static_cast<std::size_t>(levelNumber)) % kinds.size();
    };
    for (std::size_t i = Mouths.size(); i-- > 0 && locked.size() < kinds.size();) {
        Mouth& mouth = Mouths[i];
        if (mouth.Door == Void || Distance(mouth.At, StartCell) < 10) continue;
        std::vector<Cell> closed = locked;
        closed.push_back(mouth.At);
        const Grid<bool> reached = ReachedFrom(StartCell, closed);
        const auto isCut = [&](const Room& room) { return !reached(room.Middle().X, room.Middle().Y); };
        const auto cut = std::ranges::count_if(Rooms, isCut);
        if (cut <= static_cast<std::ptrdiff_t>(locked.size()) ||
            cut > static_cast<std::ptrdiff_t>(Rooms.size() / 2 + 1))
            continue;
        mouth.Door = static_cast<Code>(kinds.at(kindOf(locked.size())) + (mouth.Door & 1));
        Solids(mouth.At.X, mouth.At.Y) = mouth.Door;
        locked.push_back(mouth.At);
    }
    const Grid<bool> reached = ReachedFrom(StartCell, locked);
    for (std::size_t k = 0; k < locked.size(); ++k) {
        for (int attempt = 0; attempt < 200; ++attempt) {
            const Room& room = Rooms[static_cast<std::size_t>(Numbers.Below(static_cast<int>(Rooms.size())))];
            const Cell at = RandomFree(room);
            const bool near = Distance(at, StartCell) < 8 && attempt < 100;
            if (near || !reached(at.X, at.Y) || !Put(at.X, at.Y, static_cast<Code>(Key + kindOf(k))))
                continue;
            break;
        }
    }
}

// Small rooms in the rock beside others, behind doors that look like walls.
void Level::AddSecretRooms() {
    int made = 0;
    for (int attempt = 0; attempt < 4000 && made < 2; ++attempt) {
        const Cell door{Numbers.Between(6, MapSide - 7), Numbers.Between(6, MapSide - 7)};
        const auto way = static_cast<std::size_t>(Numbers.Below(4));
        const Cell to = Ways.at(way);
        if (IsOpen(door.X, door.Y) || Corner(door.X, door.Y) || !IsFree(door.X - to.X, door.Y - to.Y))
            continue;
        const Cell middle{door.X + 2 * to.X, door.Y + 2 * to.Y};
        bool rock = IsInside(middle.X - 2, middle.Y - 2) && IsInside(middle.X + 2, middle.Y + 2);
        for (int y = middle.Y - 2; y <= middle.Y + 2; ++y) {
            for (int x = middle.X - 2; x <= middle.X + 2; ++x) rock = rock && !IsOpen(x, y);
        }
        const bool northSouth = to.X == 0;
        const int sideX = northSouth ? 1 : 0;
        if (!rock || IsOpen(door.X - sideX, door.Y - 1 + sideX) || IsOpen(door.X + sideX, door.Y + 1 - sideX))
            continue;
        const int region = Regions(door.X - to.X, door.Y - to.Y);
        for (int y = middle.Y - 1; y <= middle.Y + 1; ++y) {
            for (int x = middle.X - 1; x <= middle.X + 1; ++x) Carve(x, y, region);
        }
        Carve(door.X, door.Y, region);
        Solids(door.X, door.Y) = static_cast<Code>(SecretDoor + (northSouth ? 0 : 1));
        Put(door.X + to.X, door.Y + to.Y, SecretMark);
        Put(middle.X, middle.Y, made == 0 ? Chest : Crown);
        Put(middle.X - 1 + to.X, middle.Y - 1 + to.Y, Coins);
        Put(middle.X + 1, middle.Y + 1, static_cast<Code>(FirstPickUp + 3));
        ++made;
    }
}

void Level::AddPools(int levelNumber) {
    for (std::size_t i = 0; i < Rooms.size(); ++i) {
        const Room& room = Rooms[i];
        const bool large = room.Width() >= 7 && room.Height() >= 7;
        if (!large) continue;
        const int kind = (static_cast<int>(i) + levelNumber) % 3;
        for (int y = room.Top + 2; y < room.Bottom - 2; ++y) {
            for (int x = room.Left + 2; x < room.Right - 2; ++x) {
                if (Solids(x, y) != Void) continue;
                const bool edge =
                    x == room.Left + 2 || y == room.Top + 2 || x == room.Right - 3 || y == room.Bottom - 3;
                if (kind == 0) SetFloor(x, y, edge ? CarpetEdge : Carpet);
                if (kind == 1 && !(edge && (x + y) % 5 == 0))
                    SetFloor(x, y, x == room.Middle().X ? Bridge : (levelNumber % 2 == 0 ? Water : Lava));
            }
        }
    }
}

void Level::BuildWalls() {
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide; ++x) {
            if (IsOpen(x, y)) continue;
            int region = 0;
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    const bool inside = x + dx >= 0 && y + dy >= 0 && x + dx < MapSide && y + dy < MapSide;
                    if (inside) region = std::max(region, Regions(x + dx, y + dy));
                }
            }
            if (region == 0) continue;
            const int material = Kinds[static_cast<std::size_t>(region) - 1].Material;
            WallLook look = WallLook::Plain;
            const std::uint32_t h = Hash(x, y, static_cast<std::uint32_t>(material));
            if (h % 23U == 0) look = WallLook::Cracked;
            if ((x + y) % 6 == 0 && h % 3U == 0) look = WallLook::Decorated;
            Solids(x, y) = WallCode(material, look);
            const bool eastWest = IsOpen(x, y - 1) && IsOpen(x, y + 1);
            const bool northSouth = IsOpen(x - 1, y) && IsOpen(x + 1, y);
            if (eastWest != northSouth && h % 11U == 0)
                Solids(x, y) = static_cast<Code>(Window + (eastWest ? 0 : 1));
        }
    }
}

void Level::PlaceStartAndExit(int levelNumber) {
    const Room& first = Rooms.front();
    StartCell = first.Middle();
    Solids(StartCell.X, StartCell.Y) = Void;
    Floors(StartCell.X, StartCell.Y) = Void;
    Put(StartCell.X, StartCell.Y, static_cast<Code>(Start + levelNumber % 4));
    Put(first.Left, first.Top, StairsUp);
    const auto last = std::ranges::max_element(
        Rooms, {}, [&](const Room& room) { return Distance(room.Middle(), StartCell); });
    const Cell way = last->Middle();
    Floors(way.X, way.Y) = Void;
    Put(way.X, way.Y, ExitMark);
    Put(last->Right - 1, last->Top, StairsDown);
    // The exit door stands in the wall of the last room, above it.
    for (int x = last->Left; x < last->Right; ++x) {
        if (IsOpen(x, last->Top - 1) || IsOpen(x, last->Top - 2) || Numbers.OneIn(3)) continue;
        Carve(x, last->Top - 1, Regions(x, last->Top));
        Solids(x, last->Top - 1) = ExitDoor;
        break;
    }
}

void Level::AddPatrol(const Room& room) {
    if (room.Width() < 6 || room.Height() < 5) return;
    Put(room.Left + 1, room.Top + 1, static_cast<Code>(Patrol + 1));
    Put(room.Right - 2, room.Top + 1, static_cast<Code>(Patrol + 2));
    Put(room.Right - 2, room.Bottom - 2, static_cast<Code>(Patrol + 3));
    Put(room.Left + 1, room.Bottom - 2, static_cast<Code>(Patrol + 0));
}

// Furniture by the use of a room: guard room, store, library, hall, shrine, garden.
void Level::DressRoom(const Room& room, int theme) {
    const Cell middle = room.Middle();
    const auto along = [&](Code thing, int every) {
        for (int x = room.Left + 1; x < room.Right - 1; x += every) {
            if (!IsOpen(x, room.Top - 1)) Put(x, room.Top, thing);
        }
    };
    const auto corners = [&](Code thing) {
        for (const int x : {room.Left, room.Right - 1}) {
            for (const int y : {room.Top, room.Bottom - 1}) Put(x, y, thing);
        }
    };
    switch (theme % 6) {
    case 0:
        Put(middle.X, middle.Y, Table);
        corners(Torch);
        break;
    case 1:
        along(Crate, 2);
        Put(room.Left, room.Bottom - 1, Barrel);
        Put(room.Left + 1, room.Bottom - 1, Barrel);
        break;
    case 2:
        corners(Pillar);
        Put(middle.X, middle.Y, Statue);
        break;
    case 3:
        along(Candle, 3);
        Put(middle.X, middle.Y, Fountain);
        break;
    case 4:
        for (int i = 0; i < 4; ++i) {
            const Cell at = RandomFree(room);
            Put(at.X, at.Y, i < 2 ? Bones : Spikes);
        }
        break;
    default:
        corners(Tree);
        Put(middle.X, middle.Y, Plate);
        break;
    }
}

void Level::FurnishRoom(const Room& room, int number, int levelNumber) {
    DressRoom(room, number + levelNumber);
    if (number % 5 == 1) AddPatrol(room);
    if (number == 0) return; // the start is safe
    const int area = room.Width() * room.Height();
    const int creatures = std::clamp(area / 16, 1, 6);
    const int kind = number + 2 * levelNumber;
    for (int i = 0; i < creatures; ++i) {
        const Cell at = RandomFree(room);
        Put(at.X, at.Y, static_cast<Code>(FirstCreature + (kind + i / 2) % (CreatureCount - 1)));
    }
    for (int i = 0; i < std::clamp(area / 20, 1, 5); ++i) {
        const Cell at = RandomFree(room);
        Put(at.X, at.Y, static_cast<Code>(FirstPickUp + (number * 3 + levelNumber + i * 4) % PickUpCount));
    }
}

// What a level has once: the great enemy before the exit, a lever, a pair of teleporters.
void Level::AddSights(int levelNumber) {
    const auto last = std::ranges::max_element(
        Rooms, {}, [&](const Room& room) { return Distance(room.Middle(), StartCell); });
    const Cell great = RandomFree(*last);
    if (levelNumber % 2 == 1) Put(great.X, great.Y, static_cast<Code>(FirstCreature + CreatureCount - 1));
    for (const Code thing : {Lever, Teleporter, Teleporter}) {
        const Cell at = RandomFree(
            Rooms[static_cast<std::size_t>(Numbers.Between(1, static_cast<int>(Rooms.size()) - 1))]);
        Put(at.X, at.Y, thing);
    }
    for (int i = 0; i < 24; ++i) {
        const Cell at{Numbers.Between(3, MapSide - 4), Numbers.Between(3, MapSide - 4)};
        if (Regions(at.X, at.Y) == 1 && Solids(at.X, at.Y) == Void) Floors(at.X, at.Y) = Rubble;
    }
}

void Level::Furnish(int levelNumber) {
    AddPools(levelNumber);
    PlaceStartAndExit(levelNumber);
    MakeDoors(levelNumber);
    LockDoors(levelNumber);
    AddSecretRooms();
    for (std::size_t i = 0; i < Rooms.size(); ++i) FurnishRoom(Rooms[i], static_cast<int>(i), levelNumber);
    AddSights(levelNumber);
    BuildWalls();
}

encode::Map Level::ToMap() const {
    encode::Map map{};
    for (int y = 0; y < MapSide; ++y) {
        for (int x = 0; x < MapSide; ++x) {
            encode::MapCell& cell = map.at(static_cast<unsigned>(y * MapSide + x));
            cell.Plane0 = Solids(x, y);
            if (cell.Plane0 == Void && IsOpen(x, y))
                cell.Plane0 = Floors(x, y) != Void ? Floors(x, y)
                                                   : Kinds[static_cast<std::size_t>(Regions(x, y)) - 1].Floor;
            cell.Plane1 = Things(x, y);
        }
    }
    return map;
}

} // namespace morvane::demo
