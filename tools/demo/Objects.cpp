#include "Objects.h"

#include "Canvas.h"
#include "DemoPalette.h"
#include "Random.h"

#include <array>
#include <cstdint>

// Two design units are one pixel unless a drawing says otherwise.
namespace morvane::demo {

namespace {

Canvas Sprite(int width, int height) { return {width, height, 2 * width, 2 * height, SpriteBackground}; }

void Keep(Images& images, Canvas canvas) {
    canvas.Outline(Black);
    images.push_back(canvas.ToImage());
}

void DrawFlame(Canvas& c, Point foot, int size, Ramp flame, int frame) {
    const int sway = (frame % 3 - 1) * size / 6;
    const auto seed = static_cast<std::uint32_t>(frame + 40);
    c.Glow({foot.X + sway / 2, foot.Y - size / 2}, size * 2 / 5, size * 3 / 4, flame, seed);
    c.Glow({foot.X + sway, foot.Y - size}, size / 4, size / 2, flame, seed + 1);
}

void DrawChestBox(Canvas& c, Ramp body, Ramp bands, bool open) {
    c.Panel(6, 44, 82, 76, body, 110, 60);
    if (open) {
        c.Panel(6, 8, 82, 34, body, 60, 50);
        c.Panel(12, 14, 76, 32, body, 30, -30);
        c.Fill(8, 34, 80, 46, Index(Ramp::Grey, 1));
    } else {
        c.Limb({20, 36}, 16, {68, 36}, 16, body, 10);
        c.Fill(4, 44, 84, 46, Black);
    }
    for (const int x : {10, 68}) c.Panel(x, open ? 44 : 22, x + 9, 76, bands, 130, 50);
    c.Panel(36, 42, 52, 58, bands, 170, 60);
    c.Disc({44, 49}, 2, 4, Black);
}

} // namespace

Images MakeBarrels(Ramp body, Ramp hoops) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(35, 45);
        c.Limb({35, 26}, 25, {35, 66}, 25, body);
        c.Column(10, 34, 60, 60, body, 4);
        for (int x = 16; x < 60; x += 9) c.Stroke({x, 16}, {x, 84}, 0, Index(body, 4));
        for (const int y : {18, 64}) c.Column(9, y, 62, y + 7, hoops, 10);
        c.Ball({35, 12}, 22, 8, body, kind == 1 ? -60 : 20);
        if (kind == 1) c.Ball({35, 13}, 18, 5, Ramp::Blue, 40);
        if (kind == 2) {
            for (int i = 0; i < 7; ++i)
                c.Ball({18 + i * 6, 10 - i % 2 * 5}, 8, 7, i % 3 == 0 ? Ramp::Leaf : Ramp::Brick, 30);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeChests(Ramp body, Ramp bands) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(45, 39);
        DrawChestBox(c, body, bands, kind > 0);
        if (kind == 1) {
            for (int i = 0; i < 14; ++i)
                c.Ball({14 + i * 37 % 62, 40 - i % 3 * 5}, 6, 5, i % 5 == 4 ? Ramp::Brick : Ramp::Gold, 40);
            c.Panel(36, 46, 52, 60, bands, 170, 60);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeTorches(Ramp flame) {
    Images images;
    for (int frame = 0; frame < 4; ++frame) {
        Canvas c = Sprite(27, 63);
        c.Limb({26, 118}, 3, {14, 124}, 3, Ramp::Steel);
        c.Limb({26, 118}, 3, {40, 124}, 3, Ramp::Steel);
        c.Limb({27, 120}, 3, {27, 56}, 3, Ramp::Steel, 10);
        c.Ball({27, 52}, 17, 9, Ramp::Steel, 10);
        DrawFlame(c, {27, 48}, 32, flame, frame);
        Keep(images, c);
    }
    return images;
}

Images MakeTables(Ramp wood) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(61, 38);
        for (const int x : {18, 96}) c.Column(x, 40, x + 9, 74, wood, -30);
        c.Ball({61, 38}, 58, 14, wood, -40);
        c.Ball({61, 33}, 58, 13, wood, 20);
        if (kind == 1) {
            c.Ball({44, 28}, 14, 5, Ramp::Steel, 40);
            c.Ball({44, 22}, 9, 8, Ramp::Brick, 10);
            c.Column(70, 12, 78, 30, Ramp::Gold);
            c.Ball({74, 12}, 7, 4, Ramp::Gold, 30);
        }
        if (kind == 2) {
            const std::array<Point, 4> chart{{{30, 30}, {78, 26}, {92, 36}, {36, 40}}};
            c.Shape(chart, Ramp::Sand, 240, 190);
            c.Stroke({44, 33}, {70, 31}, 0, DarkRed);
            c.Column(88, 10, 93, 30, Ramp::Sand, 60);
            DrawFlame(c, {90, 12}, 9, Ramp::Fire, 1);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeKeys() {
    Images images;
    for (const Ramp ramp : {Ramp::Gold, Ramp::Steel, Ramp::Brick, Ramp::Teal}) {
        Canvas c = Sprite(30, 17);
        c.Ball({14, 16}, 13, 13, ramp, 30);
        c.Disc({14, 16}, 6, 6, SpriteBackground);
        c.Limb({26, 16}, 3, {56, 16}, 3, ramp, 30);
        for (const int x : {44, 53}) c.Limb({x, 18}, 2, {x, 28}, 2, ramp, 20);
        Keep(images, c);
    }
    return images;
}

Images MakePotions() {
    Images images;
    for (const Ramp ramp : {Ramp::Fire, Ramp::Blue, Ramp::Leaf, Ramp::Purple, Ramp::Gold}) {
        Canvas c = Sprite(19, 29);
        c.Ball({19, 38}, 17, 17, Ramp::Ice, 10);
        c.Column(13, 10, 26, 26, Ramp::Ice);
        c.Ball({19, 40}, 14, 13, ramp, 20);
        c.Ball({19, 30}, 10, 3, ramp, 70);
        c.Column(13, 3, 26, 11, Ramp::Wood, 20);
        c.Disc({13, 32}, 3, 4, White);
        Keep(images, c);
    }
    return images;
}

Images MakeGems() {
    Images images;
    for (const Ramp ramp : {Ramp::Brick, Ramp::Leaf, Ramp::Blue, Ramp::Purple, Ramp::Ice, Ramp::Gold}) {
        Canvas c = Sprite(21, 18);
        const std::array<Point, 4> table{{{10, 4}, {32, 4}, {40, 13}, {2, 13}}};
        const std::array<Point, 3> left{{{2, 13}, {15, 13}, {21, 34}}};
        const std::array<Point, 3> front{{{14, 13}, {29, 13}, {21, 34}}};
        const std::array<Point, 3> right{{{28, 13}, {40, 13}, {21, 34}}};
        c.Shape(table, ramp, 250, 200);
        c.Shape(left, ramp, 170, 120);
        c.Shape(front, ramp, 220, 150);
        c.Shape(right, ramp, 110, 60);
        c.Stroke({12, 6}, {18, 6}, 1, White);
        Keep(images, c);
    }
    return images;
}

Images MakeBlades() {
    Images images;
    for (int kind = 0; kind < 4; ++kind) {
        Canvas c = Sprite(53, 21);
        if (kind == 0) { // sword
            c.Limb({30, 21}, 4, {102, 21}, 1, Ramp::Steel, 60);
            c.Limb({28, 8}, 3, {28, 34}, 3, Ramp::Gold, 20);
            c.Limb({8, 21}, 3, {26, 21}, 3, Ramp::Wood);
            c.Ball({7, 21}, 5, 5, Ramp::Gold, 30);
        } else if (kind == 1) { // axe
            c.Limb({6, 30}, 3, {92, 20}, 3, Ramp::Wood, 20);
            const std::array<Point, 5> blade{{{70, 22}, {64, 2}, {86, 6}, {98, 2}, {90, 22}}};
            c.Shape(blade, Ramp::Steel, 240, 110);
        } else if (kind == 2) { // crossbow
            c.Limb({8, 24}, 5, {92, 20}, 3, Ramp::Wood, 10);
            c.Limb({74, 22}, 3, {64, 4}, 2, Ramp::Steel, 20);
            c.Limb({74, 22}, 3, {66, 38}, 2, Ramp::Steel);
            c.Stroke({64, 4}, {44, 21}, 0, White);
            c.Stroke({66, 38}, {44, 21}, 0, White);
        } else { // staff
            c.Limb({6, 26}, 3, {84, 18}, 4, Ramp::Wood, 20);
            c.Ball({91, 17}, 10, 10, Ramp::Purple, 50);
            c.Disc({88, 13}, 2, 2, White);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeCrates(Ramp wood) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(43, 43);
        c.Panel(3, 3, 84, 84, wood, 60, 40);
        for (int y = 12; y < 74; y += 13) c.Panel(10, y, 78, y + 12, wood, 96, 30);
        if (kind == 0) c.Limb({14, 14}, 5, {72, 72}, 5, wood, 20);
        if (kind == 1) c.Panel(26, 30, 60, 56, Ramp::Sand, 180, 40);
        if (kind == 1) c.Disc({43, 43}, 9, 9, DarkRed);
        if (kind == 2) c.Disc({48, 40}, 17, 14, Black);
        for (const int at : {3, 72}) {
            c.Panel(at, 3, at + 12, 84, wood, 130, 50);
            c.Panel(3, at, 84, at + 12, wood, 120, 50);
        }
        Keep(images, c);
    }
    return images;
}

Images MakePillars(Ramp stone) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(37, kind == 2 ? 49 : 107);
        const int bottom = kind == 2 ? 94 : 210;
        c.Column(15, kind == 2 ? 24 : 20, 59, bottom, stone);
        for (int x = 20; x < 58; x += 8)
            c.Stroke({x, 30}, {x, bottom - 12}, 0, Index(stone, 4 + (60 - x) / 10));
        c.Panel(4, bottom - 14, 70, bottom, stone, 110, 60);
        c.Panel(10, bottom - 22, 64, bottom - 12, stone, 130, 50);
        if (kind != 2) {
            c.Panel(4, 4, 70, 16, stone, 150, 60);
            c.Panel(10, 14, 64, 24, stone, 110, 50);
        } else {
            for (int y = 0; y < 22; ++y) {
                for (int x = 5; x < 32; ++x) {
                    if (y < 8 + static_cast<int>(Hash(x / 3, 0, 8) % 12U)) c.Set(x, y, SpriteBackground);
                }
            }
        }
        if (kind == 1) {
            for (int i = 0; i < 26; ++i)
                c.Ball({37 + (i * 13 % 40 - 20), 26 + i * 7}, 5, 4, Ramp::Leaf, i % 4 * 14);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeTrees(Ramp leaves, Ramp trunk) {
    Images images;
    Random random(static_cast<std::uint32_t>(leaves) + 3);
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(75, 105);
        c.Limb({75, 206}, 15, {73, 110}, 8, trunk);
        for (const int way : {-1, 1}) {
            c.Limb({75 + 8 * way, 200}, 8, {75 + 26 * way, 206}, 3, trunk, -10);
            c.Limb({74, 130}, 7, {74 + 38 * way, 80}, 3, trunk, way * -10);
        }
        if (kind == 0) { // round crown
            for (int i = 0; i < 60; ++i) {
                const Point at{75 + random.Between(-52, 52), 68 + random.Between(-52, 36)};
                c.Ball(at, random.Between(10, 20), random.Between(9, 17), leaves,
                       (75 - at.X + 68 - at.Y) / 2 + random.Between(-16, 10));
            }
        } else if (kind == 1) { // fir
            for (int tier = 4; tier >= 0; --tier) {
                const int wide = 20 + tier * 12;
                for (int x = -wide; x <= wide; x += 6)
                    c.Limb({75 + x / 4, 10 + tier * 30}, 7, {75 + x, 52 + tier * 30 - x * x / 160}, 3, leaves,
                           -x / 2 + random.Between(-10, 10));
            }
        } else { // bare
            for (int i = 0; i < 9; ++i) {
                const Point from{75 + random.Between(-26, 26), 96 + random.Between(-20, 12)};
                c.Limb(from, 4, {from.X + random.Between(-36, 36), from.Y - random.Between(30, 80)}, 1, trunk,
                       random.Between(-10, 30));
            }
            c.Disc({70, 150}, 6, 10, Black);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeBooks() {
    Images images;
    for (const Ramp ramp : {Ramp::Brick, Ramp::Blue, Ramp::Leaf}) {
        Canvas c = Sprite(26, 22);
        c.Panel(6, 6, 46, 40, ramp, 130, 60);
        c.Panel(42, 8, 48, 40, Ramp::Sand, 220, 20);
        c.Panel(6, 6, 12, 40, ramp, 80, 30);
        c.Panel(18, 12, 38, 20, Ramp::Gold, 190, 40);
        Keep(images, c);
    }
    Canvas scroll = Sprite(29, 19);
    scroll.Panel(12, 8, 48, 32, Ramp::Sand, 210, 30);
    for (int y = 12; y < 30; y += 5) scroll.Fill(17, y, 40 - y % 7, y + 2, Index(Ramp::Wood, 5));
    for (const int x : {10, 48}) scroll.Limb({x, 7}, 6, {x, 32}, 6, Ramp::Sand);
    Keep(images, scroll);
    return images;
}

Images MakeCandles() {
    Images images;
    for (int frame = 0; frame < 3; ++frame) {
        Canvas c = Sprite(33, 46);
        c.Ball({33, 86}, 18, 6, Ramp::Gold);
        c.Limb({33, 84}, 3, {33, 48}, 3, Ramp::Gold, 10);
        for (const int way : {-1, 1}) {
            c.Limb({33, 64}, 3, {33 + 22 * way, 54}, 2, Ramp::Gold, 10);
            c.Column(33 + 22 * way - 3, 36, 33 + 22 * way + 4, 54, Ramp::Sand, 60);
            DrawFlame(c, {33 + 22 * way, 36}, 14, Ramp::Fire, frame + way + 1);
        }
        c.Column(29, 28, 38, 48, Ramp::Sand, 60);
        DrawFlame(c, {33, 28}, 16, Ramp::Fire, frame);
        Keep(images, c);
    }
    return images;
}

Images MakeTreasures() {
    Images images;
    Canvas crown = Sprite(33, 25);
    const std::array<Point, 8> points{
        {{6, 44}, {3, 10}, {18, 26}, {33, 4}, {48, 26}, {63, 10}, {60, 44}, {33, 48}}};
    crown.Shape(points, Ramp::Gold, 240, 110);
    for (const int x : {16, 33, 50}) crown.Ball({x, 36}, 5, 5, x == 33 ? Ramp::Brick : Ramp::Blue, 50);
    for (const Point tip : {Point{4, 10}, Point{33, 5}, Point{62, 10}}) crown.Ball(tip, 4, 4, Ramp::Gold, 60);
    Keep(images, crown);
    Canvas cup = Sprite(22, 31);
    cup.Ball({22, 16}, 17, 18, Ramp::Gold, 20);
    cup.Column(18, 30, 26, 52, Ramp::Gold);
    cup.Ball({22, 54}, 14, 5, Ramp::Gold, 20);
    cup.Disc({22, 6}, 15, 4, Index(Ramp::Brick, 5));
    Keep(images, cup);
    for (const int count : {5, 14}) {
        Canvas coins = Sprite(34, 22);
        for (int i = 0; i < count; ++i)
            coins.Ball({34 + (i * 23 % 44 - 22), 36 - i * 2}, 9, 5, Ramp::Gold, 30 + i % 3 * 20);
        Keep(images, coins);
    }
    return images;
}

Images MakeBones() {
    Images images;
    Canvas skull = Sprite(23, 21);
    skull.Ball({22, 18}, 17, 15, Ramp::Sand, 40);
    skull.Ball({22, 32}, 10, 7, Ramp::Sand, 10);
    for (const int x : {15, 29}) skull.Disc({x, 21}, 5, 5, Black);
    Keep(images, skull);
    Canvas heap = Sprite(47, 25);
    for (int i = 0; i < 9; ++i) {
        const Point from{10 + i * 31 % 74, 44 - i * 7 % 24};
        const Point to{from.X + (i % 2 == 0 ? 20 : -18), from.Y - 8 + i * 5 % 14};
        heap.Limb(from, 2, to, 2, Ramp::Sand, 10 + i * 4);
        heap.Ball(from, 4, 4, Ramp::Sand, 40);
        heap.Ball(to, 4, 4, Ramp::Sand, 30);
    }
    heap.Lay(skull, 13, 1);
    Keep(images, heap);
    Canvas pool = Sprite(49, 13);
    pool.Ball({46, 14}, 44, 10, Ramp::Brick, -70);
    pool.Ball({60, 16}, 34, 8, Ramp::Brick, -30);
    Keep(images, pool);
    return images;
}

Images MakeStatues(Ramp stone) {
    Images images;
    for (int kind = 0; kind < 2; ++kind) {
        Canvas c = Sprite(47, 109);
        c.Panel(8, 180, 86, 216, stone, 110, 60);
        c.Panel(14, 168, 80, 182, stone, 140, 50);
        const std::array<Point, 4> robe{{{32, 84}, {62, 84}, {72, 170}, {22, 170}}};
        c.Shape(robe, stone, 190, 90);
        for (int i = -2; i <= 2; ++i) c.Limb({47 + i * 5, 90}, 1, {47 + i * 10, 166}, 3, stone, -20 - i * 8);
        c.Limb({47, 76}, 20, {47, 96}, 16, stone, 10);
        c.Ball({47, 44}, 15, 18, stone, 20);
        for (const int way : {-1, 1}) {
            c.Limb({47 + 18 * way, 70}, 7, {47 + 27 * way, 98}, 6, stone, -10);
            c.Limb({47 + 27 * way, 98}, 6, {47 + (kind == 0 ? 4 : 32) * way, kind == 0 ? 104 : 62}, 5, stone,
                   14);
            c.Disc({47 + 6 * way, 44}, 3, 2, Index(stone, 2));
        }
        if (kind == 0) c.Limb({47, 166}, 3, {47, 84}, 4, stone, 50);
        if (kind == 1) c.Ball({47, 22}, 18, 6, Ramp::Gold, 40);
        Keep(images, c);
    }
    return images;
}

Images MakeMushrooms(Ramp cap) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(39, 35);
        for (int i = 0; i <= kind; ++i) {
            const Point at{kind == 0 ? 39 : 20 + i * 20, 26 + i % 2 * 16};
            c.Limb({at.X, 64}, 6, {at.X, at.Y}, 5, Ramp::Sand, 10);
            c.Ball({at.X, at.Y}, 22 - kind * 3, 14 - kind, cap, 20);
            c.Fill(at.X - 24, at.Y + 5, at.X - 5, at.Y + 20, SpriteBackground);
            c.Fill(at.X + 6, at.Y + 5, at.X + 24, at.Y + 20, SpriteBackground);
            for (const Point dot : {Point{-10, -2}, Point{2, -8}, Point{11, 0}})
                c.Disc({at.X + dot.X, at.Y + dot.Y}, 3, 2, White);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeCrystals(Ramp ramp) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(41, 59);
        for (int i = 0; i < 3 + kind; ++i) {
            const int lean = (i * 29 % 60) - 30;
            const int tall = 50 + i * 37 % 54;
            const Point foot{41 + lean / 2, 112};
            const Point tip{41 + lean, 112 - tall};
            const std::array<Point, 4> left{{{foot.X - 11, 112}, {tip.X - 9, tip.Y + 16}, tip, foot}};
            const std::array<Point, 4> right{{foot, tip, {tip.X + 10, tip.Y + 18}, {foot.X + 11, 112}}};
            c.Shape(left, ramp, 250, 140);
            c.Shape(right, ramp, 160, 60);
        }
        c.Ball({41, 112}, 30, 6, Ramp::Stone);
        Keep(images, c);
    }
    return images;
}

Images MakeMachines(Ramp body, Ramp lamp) {
    Images images;
    for (int frame = 0; frame < 4; ++frame) {
        Canvas c = Sprite(51, 71);
        c.Panel(8, 96, 94, 138, body, 90, 60);
        c.Column(22, 30, 80, 98, Ramp::Ice, -70);
        for (int i = 0; i < 5; ++i)
            c.Ball({51 + (i * 17 % 30 - 15), 88 - (i * 14 + frame * 9) % 54}, 6, 6, lamp, 60);
        c.Column(32, 34, 36, 94, Ramp::Ice, 90);
        c.Panel(14, 16, 88, 34, body, 120, 60);
        c.Limb({51, 16}, 4, {51, 6}, 4, Ramp::Steel, 30);
        for (int i = 0; i < 4; ++i)
            c.Disc({24 + i * 18, 116}, 6, 6, (i + frame) % 4 == 0 ? BrightYellow : Index(Ramp::Fire, 3));
        Keep(images, c);
    }
    return images;
}

Images MakeUrns(Ramp clay) {
    Images images;
    for (int kind = 0; kind < 3; ++kind) {
        Canvas c = Sprite(29, 37);
        c.Ball({29, 40}, 23, 24, clay);
        c.Limb({29, 56}, 14, {29, 66}, 10, clay, -10);
        c.Column(19, 8, 40, 22, clay, 10);
        c.Ball({29, 8}, 15, 4, clay, 40);
        if (kind == 0) c.Column(8, 36, 51, 42, Ramp::Gold, 10);
        if (kind == 1) {
            for (int x = 12; x < 46; x += 8) c.Stroke({x, 44}, {x + 4, 34}, 1, Index(Ramp::Sand, 12));
        }
        if (kind == 2) {
            c.Stroke({26, 20}, {34, 36}, 1, Black);
            c.Stroke({34, 36}, {24, 52}, 1, Black);
        }
        Keep(images, c);
    }
    return images;
}

Images MakeMissiles(Ramp ramp) {
    Images images;
    for (int frame = 0; frame < 4; ++frame) {
        Canvas c = Sprite(23, 23);
        c.Glow({23, 23}, 21 - frame % 2 * 3, 21 - frame % 2 * 3, ramp,
               static_cast<std::uint32_t>(frame + 70));
        c.Ball({23, 23}, 9, 9, ramp, 110);
        images.push_back(c.ToImage());
    }
    return images;
}

Images MakeBursts(Ramp ramp) {
    Images images;
    for (int frame = 0; frame < 6; ++frame) {
        const int side = 15 + frame * 10;
        Canvas c = Sprite(side, side);
        c.Glow({side, side}, side - 1, side - 1, ramp, static_cast<std::uint32_t>(frame + 80));
        c.Brighten(frame > 3 ? (3 - frame) * 2 : 0);
        if (frame > 2)
            c.Disc({side, side + 4}, side * (frame - 2) / 6, side * (frame - 2) / 7, SpriteBackground);
        images.push_back(c.ToImage());
    }
    return images;
}

Images MakeHands(Ramp sleeve, Ramp blade) {
    Images images;
    static constexpr std::array<std::array<Point, 2>, 3> poses{
        {{{{70, 104}, {40, 6}}}, {{{80, 92}, {116, 6}}}, {{{70, 112}, {8, 66}}}}};
    for (const auto& [hand, tip] : poses) {
        Canvas c = Sprite(67, 79);
        c.Limb(hand, 6, tip, 2, blade, 50);
        const Point guard{hand.X + (tip.X - hand.X) / 6, hand.Y + (tip.Y - hand.Y) / 6};
        c.Limb({guard.X - 16, guard.Y}, 4, {guard.X + 16, guard.Y - 2}, 4, Ramp::Gold, 20);
        c.Limb({118, 176}, 26, {hand.X + 16, hand.Y + 28}, 17, sleeve);
        c.Limb({hand.X + 16, hand.Y + 26}, 14, hand, 14, Ramp::Skin);
        for (int i = 0; i < 4; ++i) c.Ball({hand.X - 10, hand.Y - 8 + i * 7}, 7, 5, Ramp::Skin, 20);
        Keep(images, c);
    }
    return images;
}

} // namespace morvane::demo
