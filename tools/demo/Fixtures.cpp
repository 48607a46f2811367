#include "Fixtures.h"

#include "Canvas.h"
#include "DemoPalette.h"
#include "Random.h"
#include "Textures.h"

#include <array>
#include <cstdint>

// Walls are drawn on a grid of 128 x 128 design units.
namespace morvane::demo {

namespace {

constexpr int Side = 128;

void FillWithGlow(Canvas& wall, int left, int top, int right, int bottom, Ramp ramp, int topLight,
                  int bottomLight) {
    const std::array<Point, 4> corners{{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
    wall.Shape(corners, ramp, topLight, bottomLight);
}

void AddEmblem(Canvas& wall, int emblem, Point at, Ramp ramp) {
    if (emblem == 0) { // a tower
        FillWithGlow(wall, at.X - 10, at.Y - 6, at.X + 10, at.Y + 16, ramp, 230, 160);
        for (int x = -12; x <= 6; x += 9)
            FillWithGlow(wall, at.X + x, at.Y - 14, at.X + x + 6, at.Y - 4, ramp, 230, 200);
        wall.Fill(at.X - 3, at.Y + 6, at.X + 3, at.Y + 16, Black);
    } else if (emblem == 1) { // a sun
        for (const Point ray : {Point{0, -18}, Point{13, -13}, Point{18, 0}, Point{13, 13}})
            wall.Limb({at.X - ray.X, at.Y - ray.Y}, 2, {at.X + ray.X, at.Y + ray.Y}, 2, ramp, 40);
        wall.Ball(at, 10, 10, ramp, 50);
    } else { // a diamond
        const std::array<Point, 4> left{
            {{at.X, at.Y - 18}, {at.X - 13, at.Y}, {at.X, at.Y + 18}, {at.X, at.Y}}};
        const std::array<Point, 4> right{
            {{at.X, at.Y - 18}, {at.X + 13, at.Y}, {at.X, at.Y + 18}, {at.X, at.Y}}};
        wall.Shape(left, ramp, 250, 200);
        wall.Shape(right, ramp, 170, 110);
    }
}

} // namespace

void AddTorch(Canvas& wall, int frame, Ramp flame) {
    // The wall is brighter around the flame.
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x) {
            const int dx = x - 32;
            const int dy = y - 18;
            const int index = wall.Get(x, y);
            const int lift = 4 - (dx * dx + dy * dy) / (150 + 20 * (frame & 1));
            if (lift > 0 && index < Index(Ramp::Accent, 0))
                wall.Set(x, y, index / 16 * 16 + (index % 16 + lift > 14 ? 14 : index % 16 + lift));
        }
    }
    wall.Limb({64, 104}, 5, {64, 60}, 7, Ramp::Wood);
    wall.Panel(50, 82, 78, 92, Ramp::Steel, 110, 50);
    wall.Ball({64, 60}, 12, 7, Ramp::Steel);
    const int sway = (frame % 3 - 1) * 4;
    const auto seed = static_cast<std::uint32_t>(frame * 7 + 1);
    wall.Glow({64 + sway / 2, 38}, 17, 27, flame, seed);
    wall.Glow({64 + sway, 24}, 9, 19, flame, seed + 1);
}

void AddBanner(Canvas& wall, Ramp cloth, int emblem, int frame) {
    wall.Limb({26, 14}, 4, {102, 14}, 4, Ramp::Gold);
    wall.Ball({24, 14}, 6, 6, Ramp::Gold, 30);
    wall.Ball({104, 14}, 6, 6, Ramp::Gold, 30);
    for (int x = 34; x < 94; x += 2) {
        const int fold = (x + frame * 8) % 20;
        const int light = 110 + (fold < 10 ? fold : 20 - fold) * 8;
        const int tip = x < 64 ? x - 34 : 94 - x;
        FillWithGlow(wall, x, 18, x + 2, 86 + tip * 3 / 4, cloth, light + 10, light - 50);
    }
    wall.Stroke({35, 22}, {35, 84}, 1, Index(Ramp::Gold, 11));
    wall.Stroke({93, 22}, {93, 84}, 1, Index(Ramp::Gold, 9));
    AddEmblem(wall, emblem, {64, 54}, Ramp::Gold);
}

void AddWindow(Canvas& wall, Ramp sky) {
    wall.Panel(28, 12, 100, 100, Ramp::Stone, 120, 60);
    FillWithGlow(wall, 36, 20, 92, 92, sky, 130, 240);
    wall.Glow({74, 38}, 8, 8, Ramp::Gold, 5);
    const std::array<Point, 5> hills{{{36, 92}, {36, 76}, {54, 64}, {72, 78}, {92, 92}}};
    wall.Shape(hills, Ramp::Leaf, 130, 60);
    for (int x = 42; x <= 88; x += 14) wall.Column(x, 20, x + 4, 92, Ramp::Steel);
    wall.Panel(36, 54, 92, 59, Ramp::Steel, 90, 30);
    wall.Panel(24, 98, 104, 108, Ramp::Stone, 150, 50);
}

void AddShield(Canvas& wall, Ramp field) {
    for (const int way : {-1, 1}) {
        wall.Limb({64 - 40 * way, 104}, 3, {64 + 40 * way, 18}, 2, Ramp::Steel, 40);
        wall.Limb({64 - 40 * way - 4, 88}, 3, {64 - 40 * way + 16, 96}, 3, Ramp::Gold);
    }
    const std::array<Point, 5> rim{{{34, 30}, {94, 30}, {92, 68}, {64, 102}, {36, 68}}};
    wall.Shape(rim, Ramp::Gold, 220, 90);
    const std::array<Point, 5> face{{{39, 35}, {64, 35}, {64, 95}, {40, 66}, {39, 50}}};
    wall.Shape(face, field, 200, 90);
    const std::array<Point, 5> shade{{{64, 35}, {89, 35}, {88, 66}, {64, 95}, {64, 50}}};
    wall.Shape(shade, Ramp::Steel, 200, 90);
    wall.Ball({64, 58}, 9, 9, Ramp::Gold, 30);
}

void AddPainting(Canvas& wall, int picture) {
    wall.Panel(18, 20, 110, 100, Ramp::Gold, 140, 70);
    wall.Panel(24, 26, 104, 94, Ramp::Gold, 90, -50);
    const Ramp sky = picture == 2 ? Ramp::Purple : (picture == 1 ? Ramp::Brick : Ramp::Ice);
    FillWithGlow(wall, 28, 30, 100, 90, sky, picture == 0 ? 130 : 40, picture == 0 ? 230 : 110);
    if (picture == 0) {
        const std::array<Point, 3> far{{{30, 90}, {56, 40}, {84, 90}}};
        const std::array<Point, 3> near{{{60, 90}, {82, 54}, {100, 90}}};
        wall.Shape(far, Ramp::Steel, 240, 70);
        wall.Shape(near, Ramp::Leaf, 140, 60);
    } else if (picture == 1) {
        wall.Ball({64, 92}, 24, 26, Ramp::Blue);
        wall.Ball({64, 54}, 13, 16, Ramp::Skin);
        wall.Ball({64, 42}, 15, 9, Ramp::Wood);
        wall.Disc({59, 54}, 2, 2, Black);
        wall.Disc({69, 54}, 2, 2, Black);
        wall.Fill(28, 90, 100, 94, Index(Ramp::Gold, 5));
    } else {
        wall.Ball({84, 44}, 7, 7, Ramp::Gold, 90);
        FillWithGlow(wall, 28, 74, 100, 90, Ramp::Blue, 150, 60);
        const std::array<Point, 4> hull{{{40, 68}, {84, 68}, {76, 80}, {48, 80}}};
        wall.Shape(hull, Ramp::Wood, 150, 80);
        const std::array<Point, 3> sail{{{60, 36}, {60, 66}, {42, 64}}};
        wall.Shape(sail, Ramp::Sand, 240, 170);
        wall.Stroke({62, 34}, {62, 68}, 1, Index(Ramp::Wood, 5));
    }
}

void AddBookcase(Canvas& wall, Ramp wood) {
    wall.Panel(6, 4, 122, 126, wood, 110, 60);
    static constexpr std::array<Ramp, 6> covers{Ramp::Brick, Ramp::Blue,   Ramp::Leaf,
                                                Ramp::Gold,  Ramp::Purple, Ramp::Teal};
    for (int shelf = 0; shelf < 3; ++shelf) {
        const int top = 10 + shelf * 39;
        wall.Panel(12, top, 116, top + 33, wood, 24, -20);
        int x = 14;
        for (int book = 0; x < 108; ++book) {
            const std::uint32_t h = Hash(book, shelf, 21);
            const int thick = 6 + static_cast<int>(h % 3U) * 2;
            const int tall = 20 + static_cast<int>((h >> 4U) % 5U) * 2;
            if (h % 11U != 0)
                wall.Column(x, top + 33 - tall, x + thick, top + 33, covers.at((h >> 8U) % 6U), 6);
            if (h % 3U == 0) wall.Fill(x, top + 38 - tall, x + thick, top + 40 - tall, Index(Ramp::Gold, 11));
            x += thick;
        }
    }
}

void AddLever(Canvas& wall, bool down) {
    wall.Panel(44, 36, 84, 92, Ramp::Steel, 100, 60);
    wall.Panel(58, 44, 70, 84, Ramp::Steel, 20, -30);
    const int end = down ? 88 : 40;
    wall.Limb({64, 64}, 4, {64, end}, 4, Ramp::Wood, 20);
    wall.Ball({64, end}, 9, 9, down ? Ramp::Leaf : Ramp::Brick, 50);
}

void AddFountainFace(Canvas& wall, Ramp stone, Ramp water, int frame) {
    wall.Ball({64, 48}, 32, 34, stone, 10);
    for (const int way : {-1, 1}) {
        wall.Ball({64 + 14 * way, 38}, 8, 6, stone, -60);
        wall.Disc({64 + 14 * way, 38}, 3, 3, BrightYellow);
        wall.Limb({64 + 5 * way, 28}, 3, {64 + 24 * way, 24}, 4, stone, 30);
        wall.Limb({64 + 26 * way, 24}, 6, {64 + 36 * way, 6}, 2, stone);
    }
    wall.Ball({64, 50}, 6, 9, stone, 30);
    wall.Disc({64, 68}, 14, 8, Black);
    for (int y = 68; y < 118; y += 4) {
        const int wave = (y + frame * 9) % 12 < 6 ? 20 : -20;
        wall.Fill(56, y, 72, y + 4, Index(water, 9 + wave / 8));
        wall.Fill(60, y, 63, y + 4, Index(water, 13 + wave / 10));
    }
    wall.Panel(34, 110, 94, 124, stone, 110, 50);
    wall.Ball({64, 110}, 26, 6, water, 40);
}

void AddConsole(Canvas& wall, Ramp screen, int frame) {
    wall.Panel(14, 14, 114, 108, Ramp::Steel, 90, 60);
    wall.Panel(22, 22, 106, 66, Ramp::Grey, 16, -40);
    int y = 44;
    for (int x = 26; x < 102; ++x) {
        const int next = 44 + (Noise(x + frame * 16, 0, 8, 64, 4) - 128) / 8;
        wall.Stroke({x, y}, {x + 1, next}, 1, Index(screen, 13));
        y = next;
    }
    static constexpr std::array<int, 5> lamps{BrightRed, BrightGreen, BrightYellow, BrightCyan, BrightOrange};
    for (int i = 0; i < 10; ++i) {
        const bool lit = Hash(i, frame, 9) % 3U != 0;
        wall.Disc({30 + i % 5 * 17, 78 + i / 5 * 16}, 5, 5,
                  lit ? lamps.at((static_cast<unsigned>(i) * 3U) % 5U) : Index(Ramp::Grey, 3));
    }
}

void AddRunes(Canvas& wall, Ramp glow, int frame) {
    for (int i = 0; i < 6; ++i) {
        const int x = 28 + i % 3 * 36;
        const int y = 38 + i / 3 * 52;
        const int step = 7 + (i + frame * 2) % 4 * 2;
        const std::uint32_t h = Hash(i, 0, 31);
        const int index = Index(glow, step);
        wall.Stroke({x, y - 16}, {x, y + 16}, 2, index);
        wall.Stroke({x, y - 16}, {x + ((h & 1U) != 0 ? 12 : -12), y - 4}, 2, index);
        if ((h & 2U) != 0) wall.Stroke({x, y}, {x + 12, y + 10}, 2, index);
        if ((h & 4U) != 0) wall.Stroke({x, y + 2}, {x - 12, y + 12}, 2, index);
        if ((h & 8U) != 0) wall.Stroke({x - 10, y + 16}, {x + 10, y + 16}, 2, index);
    }
}

namespace {

void DrawBars(Canvas& door, Ramp fittings) {
    door.Fill(0, 0, Side, Side, Index(Ramp::Grey, 1));
    for (int y : {14, 60, 106}) door.Panel(0, y, Side, y + 10, fittings, 90, 50);
    for (int x = 6; x < Side; x += 20) door.Column(x, 0, x + 10, Side, fittings, -10);
    for (int x = 6; x < Side; x += 20) door.Ball({x + 5, 65}, 8, 8, fittings, 10);
}

void DrawSliding(Canvas& door, Ramp leaf, Ramp fittings) {
    door.Panel(0, 0, 64, Side, leaf, 120, 70);
    door.Panel(64, 0, Side, Side, leaf, 105, 70);
    for (int y = 24; y < 120; y += 26) {
        door.Panel(10, y, 54, y + 14, fittings, 90, -50);
        door.Panel(74, y, 118, y + 14, fittings, 80, -50);
    }
    for (int x = 0; x < Side; x += 16) {
        const std::array<Point, 4> stripe{{{x, 2}, {x + 8, 2}, {x + 16, 14}, {x + 8, 14}}};
        door.Shape(stripe, Ramp::Gold, 200, 160);
    }
}

void DrawArch(Canvas& door, Ramp leaf, Ramp fittings) {
    const Material stone{
        .Kind = Masonry::Blocks, .Main = fittings, .Joint = fittings, .Light = 110, .Seed = 90};
    door.Lay(MakeWall(stone), 0, 0);
    door.Disc({64, 54}, 46, 46, Index(fittings, 2));
    door.Fill(18, 54, 110, Side, Index(fittings, 2));
    for (int x = 22; x < 106; x += 12) {
        const int away = x < 58 ? 58 - x : x - 58;
        door.Column(x, 14 + away * away / 34, x + 11, Side, leaf, -4);
    }
    door.Panel(22, 62, 106, 70, Ramp::Steel, 90, 40);
    door.Panel(22, 102, 106, 110, Ramp::Steel, 90, 40);
}

void DrawBoards(Canvas& door, Ramp leaf, Ramp fittings) {
    const Material boards{.Kind = Masonry::Planks, .Main = leaf, .Joint = leaf, .Light = 116, .Seed = 91};
    door.Lay(MakeWall(boards), 0, 0);
    for (const int y : {16, 100}) {
        door.Panel(0, y, Side, y + 12, fittings, 90, 60);
        for (int x = 10; x < Side; x += 36) door.Ball({x, y + 6}, 4, 4, fittings, 60);
    }
    door.Panel(0, 0, 6, Side, fittings, 80, 40);
    door.Panel(122, 0, Side, Side, fittings, 80, 40);
}

} // namespace

Canvas MakeDoor(DoorKind kind, Ramp leaf, Ramp fittings, int lock) {
    Canvas door(WallSize, WallSize, Side, Side, Black);
    switch (kind) {
    case DoorKind::Boards:
        DrawBoards(door, leaf, fittings);
        break;
    case DoorKind::Bars:
        DrawBars(door, fittings);
        break;
    case DoorKind::Plates:
        door.Lay(MakeWall({.Kind = Masonry::Plates, .Main = leaf, .Joint = leaf, .Light = 110, .Seed = 92}),
                 0, 0);
        door.Panel(20, 20, 108, 50, fittings, 70, -50);
        break;
    case DoorKind::Arch:
        DrawArch(door, leaf, fittings);
        break;
    case DoorKind::Sliding:
        DrawSliding(door, leaf, fittings);
        break;
    }
    door.Ball({100, 78}, 9, 9, fittings, 10);
    door.Disc({100, 78}, 6, 6, lock);
    door.Disc({100, 76}, 2, 2, Black);
    door.Fill(99, 76, 102, 84, Black);
    return door;
}

Canvas OpenedDoor(const Canvas& door, int step) {
    Canvas result(door.Width(), door.Height(), Side, Side, Black);
    const int lift = step * WallSize / 4;
    for (int y = 0; y < WallSize; ++y) {
        for (int x = 0; x < WallSize; ++x)
            result.Set(x, y,
                       y + lift < WallSize ? door.Get(x, y + lift) : Index(Ramp::Grey, (WallSize - y) / 12));
    }
    return result;
}

} // namespace morvane::demo
