#include "Creatures.h"

#include "Archives.h"
#include "Canvas.h"
#include "DemoPalette.h"

#include <array>
#include <cstdint>
#include <vector>

// Creatures stand on a grid 200 units high; the ground is at 194.
namespace morvane::demo {

namespace {

constexpr int DesignHeight = 200;
constexpr int Ground = 194;

struct Pose {
    int Step = 0;   // -2 to 2: how far the legs are apart
    int Strike = 0; // 0 at rest, 1 raised, 2 struck
    bool Hurt = false;
};

struct Figure {
    Canvas* On;
    const Creature* Of;
    Pose As;
    int Middle; // x of its axis

    [[nodiscard]] int Wide(int units) const { return units * Of->Bulk / 100; }
};

void DrawEyes(Canvas& c, Point at, int apart, int size, int index) {
    for (const int way : {-1, 1}) {
        c.Disc({at.X + way * apart, at.Y}, size + 2, size + 1, Black);
        c.Disc({at.X + way * apart, at.Y}, size, size, index);
    }
}

void DrawSkull(Canvas& c, Point at, Ramp bone) {
    c.Ball({at.X, at.Y + 16}, 14, 13, bone, -20);
    c.Ball(at, 22, 22, bone, 20);
    for (const int way : {-1, 1}) c.Disc({at.X + 9 * way, at.Y + 3}, 6, 7, Black);
    DrawEyes(c, {at.X, at.Y + 4}, 9, 2, BrightRed);
    c.Disc({at.X, at.Y + 13}, 2, 4, Black);
    for (int x = -8; x <= 8; x += 5) c.Fill(at.X + x, at.Y + 20, at.X + x + 2, at.Y + 27, Black);
}

void DrawGoblinHead(Canvas& c, Point at, Ramp skin) {
    for (const int way : {-1, 1})
        c.Limb({at.X + 16 * way, at.Y}, 9, {at.X + 44 * way, at.Y - 14}, 1, skin, -12);
    c.Ball(at, 24, 22, skin);
    c.Limb({at.X, at.Y + 2}, 4, {at.X, at.Y + 12}, 6, skin, 30);
    DrawEyes(c, {at.X, at.Y - 3}, 10, 4, BrightYellow);
    c.Disc({at.X, at.Y + 17}, 11, 3, Black);
    for (const int x : {-7, 5}) c.Fill(at.X + x, at.Y + 11, at.X + x + 3, at.Y + 17, White);
}

void DrawHelmet(Canvas& c, Point at, Ramp metal) {
    c.Ball({at.X, at.Y + 2}, 21, 24, metal, 10);
    c.Fill(at.X - 15, at.Y - 2, at.X + 16, at.Y + 5, Black);
    c.Disc({at.X - 7, at.Y + 2}, 2, 2, BrightOrange);
    c.Disc({at.X + 8, at.Y + 2}, 2, 2, BrightOrange);
    c.Column(at.X - 2, at.Y - 20, at.X + 3, at.Y + 24, metal, 40);
    for (int y = 10; y <= 18; y += 4) c.Fill(at.X + 6, at.Y + y, at.X + 14, at.Y + y + 2, Black);
    c.Limb({at.X, at.Y - 22}, 5, {at.X + 16, at.Y - 34}, 9, Ramp::Brick, 30);
}

void DrawHood(Canvas& c, Point at, Ramp cloth) {
    const std::array<Point, 5> cowl{{{at.X - 2, at.Y - 38},
                                     {at.X + 24, at.Y - 8},
                                     {at.X + 26, at.Y + 28},
                                     {at.X - 26, at.Y + 28},
                                     {at.X - 24, at.Y - 8}}};
    c.Shape(cowl, cloth, 190, 80);
    c.Disc({at.X, at.Y + 4}, 15, 19, Black);
    DrawEyes(c, {at.X, at.Y + 2}, 7, 3, BrightCyan);
}

void DrawPointedHat(Canvas& c, Point at, Ramp skin, Ramp cloth) {
    c.Ball({at.X, at.Y + 4}, 18, 20, skin);
    DrawEyes(c, {at.X, at.Y + 2}, 8, 2, White);
    const std::array<Point, 3> beard{{{at.X - 16, at.Y + 10}, {at.X + 16, at.Y + 10}, {at.X + 2, at.Y + 50}}};
    c.Shape(beard, Ramp::Grey, 240, 150);
    c.Ball({at.X, at.Y + 8}, 4, 6, skin, 30);
    const std::array<Point, 3> hat{{{at.X + 6, at.Y - 62}, {at.X + 20, at.Y - 8}, {at.X - 20, at.Y - 8}}};
    c.Shape(hat, cloth, 200, 110);
    c.Ball({at.X, at.Y - 8}, 32, 6, cloth, 10);
    c.Disc({at.X, at.Y - 24}, 4, 4, BrightYellow);
}

void DrawHorned(Canvas& c, Point at, Ramp skin) {
    for (const int way : {-1, 1}) {
        c.Limb({at.X + 14 * way, at.Y - 12}, 9, {at.X + 36 * way, at.Y - 22}, 6, Ramp::Sand);
        c.Limb({at.X + 36 * way, at.Y - 22}, 6, {at.X + 40 * way, at.Y - 44}, 1, Ramp::Sand, 30);
    }
    c.Ball(at, 23, 25, skin);
    c.Ball({at.X, at.Y + 14}, 14, 10, skin, 20);
    for (const int way : {-1, 1})
        c.Limb({at.X + 4 * way, at.Y - 6}, 3, {at.X + 18 * way, at.Y - 13}, 4, skin, 40);
    DrawEyes(c, {at.X, at.Y - 2}, 10, 4, BrightYellow);
    c.Disc({at.X, at.Y + 17}, 10, 4, Black);
    for (const int x : {-9, -3, 4}) c.Fill(at.X + x, at.Y + 14, at.X + x + 3, at.Y + 19, White);
}

void DrawLizardHead(Canvas& c, Point at, Ramp skin) {
    for (int i = 0; i < 4; ++i)
        c.Limb({at.X + 3, at.Y - 18 + i * 9}, 5, {at.X + 24, at.Y - 28 + i * 10}, 1, Ramp::Brick, 20);
    c.Ball(at, 20, 20, skin);
    c.Limb({at.X - 2, at.Y + 8}, 15, {at.X - 16, at.Y + 16}, 10, skin, 16);
    DrawEyes(c, {at.X - 2, at.Y - 6}, 10, 4, BrightOrange);
    c.Stroke({at.X - 24, at.Y + 18}, {at.X + 6, at.Y + 20}, 1, Black);
    c.Stroke({at.X - 25, at.Y + 22}, {at.X - 30, at.Y + 32}, 1, BrightRed);
}

void DrawIdolHead(Canvas& c, Point at, Ramp stone) {
    c.Panel(at.X - 26, at.Y - 28, at.X + 26, at.Y + 26, stone, 130, 60);
    c.Panel(at.X - 30, at.Y - 34, at.X + 30, at.Y - 20, Ramp::Gold, 130, 60);
    c.Panel(at.X - 20, at.Y - 12, at.X - 5, at.Y + 2, Ramp::Grey, 10, -40);
    c.Panel(at.X + 5, at.Y - 12, at.X + 20, at.Y + 2, Ramp::Grey, 10, -40);
    DrawEyes(c, {at.X, at.Y - 5}, 12, 4, BrightGreen);
    c.Panel(at.X - 5, at.Y - 10, at.X + 5, at.Y + 10, stone, 160, 50);
    c.Panel(at.X - 16, at.Y + 13, at.X + 16, at.Y + 21, Ramp::Grey, 20, -30);
    for (int x = -14; x < 14; x += 7) c.Fill(at.X + x, at.Y + 14, at.X + x + 5, at.Y + 18, White);
}

void DrawFurryHead(Canvas& c, Point at, Ramp fur, Ramp face) {
    for (int i = -4; i <= 4; ++i)
        c.Limb({at.X + i * 4, at.Y}, 12, {at.X + i * 8, at.Y - 26 + i * i}, 1, fur, i % 2 * 20);
    c.Ball(at, 26, 25, fur);
    c.Ball({at.X, at.Y + 6}, 17, 16, face);
    DrawEyes(c, {at.X, at.Y}, 8, 3, BrightRed);
    c.Disc({at.X, at.Y + 15}, 9, 5, DarkRed);
    for (const int x : {-7, 4}) c.Fill(at.X + x, at.Y + 10, at.X + x + 4, at.Y + 16, White);
}

void DrawHead(const Figure& f, Point at) {
    Canvas& c = *f.On;
    const Ramp skin = f.Of->Skin;
    switch (f.Of->Top) {
    case Head::Goblin:
        DrawGoblinHead(c, at, skin);
        break;
    case Head::Helmet:
        DrawHelmet(c, at, f.Of->Cloth);
        break;
    case Head::Skull:
        DrawSkull(c, at, skin);
        break;
    case Head::Hood:
        DrawHood(c, at, f.Of->Cloth);
        break;
    case Head::Horned:
        DrawHorned(c, at, skin);
        break;
    case Head::Lizard:
        DrawLizardHead(c, at, skin);
        break;
    case Head::Idol:
        DrawIdolHead(c, at, skin);
        break;
    case Head::Pointed:
        DrawPointedHat(c, at, skin, f.Of->Cloth);
        break;
    case Head::Furry:
        DrawFurryHead(c, at, f.Of->Cloth, skin);
        break;
    case Head::Bare:
        c.Ball(at, 20, 23, skin);
        c.Ball({at.X, at.Y - 13}, 21, 12, Ramp::Wood);
        DrawEyes(c, {at.X, at.Y + 1}, 8, 2, White);
        c.Disc({at.X, at.Y + 14}, 7, 2, DarkRed);
        break;
    }
}

void DrawWeapon(Canvas& c, Weapon weapon, Point hand, Point tip) {
    const int dx = tip.X - hand.X;
    const int dy = tip.Y - hand.Y;
    const auto along = [&](int percent) {
        return Point{hand.X + dx * percent / 100, hand.Y + dy * percent / 100};
    };
    switch (weapon) {
    case Weapon::None:
        break;
    case Weapon::Sword:
        c.Limb(along(10), 5, along(110), 1, Ramp::Steel, 50);
        c.Limb({along(12).X - dy / 6, along(12).Y + dx / 6}, 3, {along(12).X + dy / 6, along(12).Y - dx / 6},
               3, Ramp::Gold);
        break;
    case Weapon::Axe: {
        c.Limb(along(-30), 3, along(100), 3, Ramp::Wood);
        const std::array<Point, 4> blade{{along(60),
                                          {along(55).X - dy / 3, along(55).Y + dx / 3},
                                          {along(110).X - dy / 3, along(110).Y + dx / 3},
                                          along(95)}};
        c.Shape(blade, Ramp::Steel, 230, 110);
        break;
    }
    case Weapon::Staff:
        c.Limb(along(-90), 3, along(100), 4, Ramp::Wood, 20);
        c.Ball(along(110), 10, 10, Ramp::Teal, 60);
        break;
    case Weapon::Club:
        c.Limb(along(-10), 4, along(100), 12, Ramp::Wood);
        for (const int at : {70, 90}) c.Ball(along(at), 3, 3, Ramp::Steel, 60);
        break;
    case Weapon::Gun:
        c.Limb(along(-30), 7, along(50), 7, Ramp::Steel);
        c.Limb(along(40), 4, along(90), 4, Ramp::Steel, 30);
        c.Ball(along(92), 4, 4, Ramp::Fire, 20);
        break;
    }
}

// Where the right hand is and where the weapon points.
struct Reach {
    Point Hand, Tip;
};

Reach ReachOf(const Figure& f) {
    const int x = f.Middle;
    if (f.As.Strike == 1) return {.Hand = {x + f.Wide(44), 52}, .Tip = {x + f.Wide(58), 4}};
    if (f.As.Strike == 2) return {.Hand = {x + f.Wide(30), 100}, .Tip = {x - f.Wide(24), 132}};
    return {.Hand = {x + f.Wide(44), 112 + f.As.Step * 3}, .Tip = {x + f.Wide(60), 52 + f.As.Step * 3}};
}

void DrawArms(const Figure& f, int shoulder) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const Ramp sleeve = f.Of->Top == Head::Skull ? f.Of->Skin : f.Of->Cloth;
    const int thick = f.Of->Top == Head::Skull ? 5 : f.Wide(10);
    const Point leftHand{x - f.Wide(42), 114 - f.As.Step * 4 - (f.As.Hurt ? 50 : 0)};
    c.Limb({x - f.Wide(27), shoulder}, thick, {x - f.Wide(42), 90}, thick - 1, sleeve);
    c.Limb({x - f.Wide(42), 90}, thick - 1, leftHand, thick - 2, f.Of->Skin, -8);
    c.Ball(leftHand, thick, thick, f.Of->Skin);
    const Reach reach = ReachOf(f);
    const Point elbow{(x + f.Wide(36) + reach.Hand.X) / 2, (shoulder + 14 + reach.Hand.Y) / 2};
    DrawWeapon(c, f.Of->Arm, reach.Hand, reach.Tip);
    c.Limb({x + f.Wide(27), shoulder}, thick, elbow, thick - 1, sleeve);
    c.Limb(elbow, thick - 1, reach.Hand, thick - 2, f.Of->Skin, -8);
    c.Ball(reach.Hand, thick, thick, f.Of->Skin);
}

void DrawLegs(const Figure& f) {
    Canvas& c = *f.On;
    const bool bones = f.Of->Top == Head::Skull;
    const int thick = bones ? 5 : f.Wide(12);
    for (const int way : {-1, 1}) {
        const int swing = f.As.Step * way;
        const int lift = swing > 0 ? swing * 5 : 0;
        const Point hip{f.Middle + way * f.Wide(13), 118};
        const Point knee{hip.X + way * 4, 150 - lift};
        const Point foot{hip.X + way * 5 + swing * 2, Ground - 8 - lift};
        c.Limb(hip, thick, knee, thick - 1, bones ? f.Of->Skin : f.Of->Cloth, -24);
        c.Limb(knee, thick - 1, foot, thick - 3, f.Of->Skin, -20);
        c.Ball({foot.X + way * 3, foot.Y + 3}, thick + 4, 8, bones ? f.Of->Skin : Ramp::Wood, -8);
    }
}

void DrawTorso(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    if (f.Of->Top == Head::Skull) {
        c.Limb({x, 68}, 4, {x, 118}, 4, f.Of->Skin);
        for (int i = 0; i < 4; ++i)
            c.Limb({x - 22 + i * 2, 74 + i * 10}, 3, {x + 22 - i * 2, 74 + i * 10}, 3, f.Of->Skin, 10);
        c.Ball({x, 118}, 20, 9, f.Of->Skin);
        return;
    }
    c.Limb({x, 84}, f.Wide(29), {x, 110}, f.Wide(23), f.Of->Cloth);
    if (f.Of->Top == Head::Horned || f.Of->Top == Head::Lizard)
        c.Ball({x, 98}, f.Wide(18), 26, Ramp::Sand, -30);
    if (f.Of->Top == Head::Furry) {
        for (int i = 0; i < 12; ++i)
            c.Limb({x - 20 + i * 7 % 40, 70 + i * 4}, 6, {x - 24 + i * 9 % 48, 84 + i * 4}, 1, f.Of->Cloth,
                   i % 3 * 20 - 10);
        return;
    }
    c.Column(x - f.Wide(24), 114, x + f.Wide(24), 123, Ramp::Wood, -20);
    c.Panel(x - 6, 113, x + 6, 124, Ramp::Gold, 170, 50);
    for (const int way : {-1, 1}) c.Ball({x + way * f.Wide(29), 70}, f.Wide(13), f.Wide(12), f.Of->Cloth, 24);
}

void DrawWalker(const Figure& f) {
    DrawLegs(f);
    DrawTorso(f);
    DrawArms(f, 70);
    DrawHead(f, {f.Middle + (f.As.Hurt ? -8 : 0),
                 f.Of->Top == Head::Pointed ? 60 : 42 + (f.As.Step % 2 != 0 ? 2 : 0)});
}

void DrawRobed(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int sway = f.As.Step * 3;
    const std::array<Point, 6> robe{{{x - 24, 70},
                                     {x + 24, 70},
                                     {x + f.Wide(30), 130},
                                     {x + f.Wide(44) + sway, Ground},
                                     {x - f.Wide(44) + sway, Ground},
                                     {x - f.Wide(30), 130}}};
    c.Shape(robe, f.Of->Cloth, 190, 60);
    for (int i = -2; i <= 2; ++i)
        c.Limb({x + i * 8, 84}, 1, {x + i * 17 + sway, Ground - 3}, 4, f.Of->Cloth, i * -14 - 10);
    c.Ball({x, 84}, f.Wide(29), 24, f.Of->Cloth, 10);
    c.Column(x - f.Wide(26), 114, x + f.Wide(26), 122, Ramp::Gold, -10);
    DrawArms(f, 78);
    DrawHead(f, {x, f.Of->Top == Head::Pointed ? 64 : 50});
}

void DrawSpider(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int rise = f.As.Strike * 12;
    for (const int way : {-1, 1}) {
        for (int leg = 0; leg < 4; ++leg) {
            const int lift = (leg + f.As.Step) % 2 * 10 + (leg == 0 ? rise * 2 : 0);
            const Point knee{x + way * (52 + leg * 9), 70 + leg * 12 - lift};
            c.Limb({x + way * 24, 120}, 6, knee, 4, f.Of->Cloth);
            c.Limb(knee, 4, {x + way * (62 + leg * 15), Ground - 26 + leg * 8 - lift}, 2, f.Of->Cloth, -20);
        }
    }
    c.Ball({x, 108 - rise}, 46, 42, f.Of->Cloth);
    for (const int y : {84, 98}) c.Disc({x, y - rise}, 8 - (y - 84) / 4, 6, Index(f.Of->Skin, 11));
    c.Ball({x, 142 - rise}, 28, 24, f.Of->Cloth, 20);
    for (const int way : {-1, 1}) {
        c.Disc({x + 10 * way, 138 - rise}, 6, 6, BrightRed);
        c.Disc({x + 21 * way, 132 - rise}, 4, 4, BrightRed);
        c.Limb({x + 9 * way, 158 - rise}, 5, {x + 6 * way, 178 - rise}, 1, Ramp::Sand, 20);
    }
}

void DrawGhost(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int float_ = f.As.Step * 3;
    for (int i = -2; i <= 2; ++i)
        c.Limb({x + i * 16, 120}, 18,
               {x + i * 19 + f.As.Step * 4 * (i % 2 == 0 ? 1 : -1), 176 + (i % 2 == 0 ? 12 : 0)}, 3,
               f.Of->Cloth, -20 + i * 6);
    c.Limb({x, 62 + float_}, 42, {x, 120}, 48, f.Of->Cloth, 20);
    for (const int way : {-1, 1}) {
        const int hand = f.As.Strike > 0 ? 50 : 112 + float_;
        c.Limb({x + way * 40, 92}, 13, {x + way * 68, hand}, 7, f.Of->Cloth, 14);
    }
    for (const int way : {-1, 1}) c.Disc({x + way * 16, 56 + float_}, 10, 14, Black);
    DrawEyes(c, {x, 58 + float_}, 16, 4, BrightCyan);
    c.Disc({x, 92 + float_}, 11, f.As.Strike > 0 ? 20 : 11, Black);
}

void DrawBat(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int flap = f.As.Step * 22;
    for (const int way : {-1, 1}) {
        const std::array<Point, 7> wing{{{x + way * 12, 84},
                                         {x + way * 50, 52 - flap},
                                         {x + way * 96, 66 - flap},
                                         {x + way * 84, 104 - flap / 2},
                                         {x + way * 62, 94},
                                         {x + way * 48, 122},
                                         {x + way * 30, 108}}};
        c.Shape(wing, f.Of->Cloth, 170, 50);
        c.Limb({x + way * 12, 86}, 4, {x + way * 50, 54 - flap}, 3, f.Of->Skin);
        c.Limb({x + way * 50, 54 - flap}, 3, {x + way * 94, 67 - flap}, 1, f.Of->Skin);
        c.Limb({x + way * 50, 54 - flap}, 2, {x + way * 62, 94}, 1, f.Of->Skin);
        c.Limb({x + way * 12, 70}, 9, {x + way * 20, 42}, 1, f.Of->Skin);
    }
    c.Limb({x, 92}, 25, {x, 124}, 13, f.Of->Skin);
    c.Ball({x, 82}, 25, 23, f.Of->Skin, 14);
    DrawEyes(c, {x, 78}, 10, 5, f.As.Strike > 0 ? BrightRed : BrightYellow);
    c.Disc({x, 95}, 11, f.As.Strike > 0 ? 9 : 4, DarkRed);
    for (const int tooth : {-8, 5}) c.Fill(x + tooth, 92, x + tooth + 3, 101, White);
}

void DrawSlime(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int high = 54 + f.As.Step * 6 + f.As.Strike * 14;
    c.Ball({x, Ground - 10}, 76, 16, f.Of->Cloth, -26);
    c.Limb({x, Ground - 26}, 62, {x, Ground - high - 24}, 34, f.Of->Cloth, 6);
    c.Fill(0, Ground + 2, 4 * x, DesignHeight + 40, c.Background());
    for (const int way : {-1, 1})
        c.Limb({x + way * 50, Ground - 20}, 20, {x + way * 72, Ground - 9}, 8, f.Of->Cloth, -10);
    c.Ball({x - 22, Ground - high - 34}, 9, 7, f.Of->Cloth, 110);
    c.Ball({x + 40, Ground - 44}, 7, 7, f.Of->Cloth, 60);
    c.Ball({x - 44, Ground - 34}, 5, 5, f.Of->Cloth, 60);
    for (const int way : {-1, 1}) {
        c.Ball({x + way * 20, Ground - high - 14}, 14, 15, Ramp::Grey, 100);
        c.Disc({x + way * 20 - 2, Ground - high - 12}, 6, 7, Black);
    }
    c.Disc({x, Ground - 46}, 30, 6 + f.As.Strike * 8, Index(f.Of->Cloth, 2));
    for (int tooth = -20; tooth <= 16 && f.As.Strike > 0; tooth += 12)
        c.Fill(x + tooth, Ground - 58, x + tooth + 5, Ground - 48, White);
}

void DrawEye(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int drift = f.As.Step * 4;
    for (int i = -2; i <= 2; ++i) {
        c.Limb({x + i * 16, 60 + drift}, 8, {x + i * 32 + drift, 20 + i * i * 6 + drift}, 4, f.Of->Cloth,
               -10);
        c.Ball({x + i * 32 + drift, 20 + i * i * 6 + drift}, 9, 9, Ramp::Grey, 90);
        c.Disc({x + i * 32 + drift, 22 + i * i * 6 + drift}, 4, 4, BrightRed);
    }
    c.Ball({x, 106 + drift}, 64, 60, f.Of->Cloth);
    c.Ball({x, 92 + drift}, 36, 32, Ramp::Grey, 110);
    c.Ball({x - f.As.Step * 5, 94 + drift}, 19, 19, f.Of->Skin, 20);
    c.Disc({x - f.As.Step * 5, 94 + drift}, 8, f.As.Strike > 0 ? 14 : 9, Black);
    c.Disc({x - f.As.Step * 5 - 5, 88 + drift}, 3, 3, White);
    c.Disc({x, 143 + drift}, 40, 6 + f.As.Strike * 6, DarkRed);
    for (int tooth = -32; tooth < 32; tooth += 12)
        c.Limb({x + tooth + 4, 139 + drift}, 4, {x + tooth + 4, 150 + drift}, 1, Ramp::Sand, 60);
}

void DrawBeast(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int crouch = f.As.Strike == 1 ? 16 : 0;
    c.Limb({x + 62, 100 + crouch}, 7, {x + 92, 62 + f.As.Step * 6}, 3, f.Of->Cloth, -10);
    for (const int leg : {0, 1, 2, 3}) {
        const int base = x - 42 + leg / 2 * 88 + leg % 2 * 20;
        const int swing = f.As.Step * (leg % 2 == 0 ? 7 : -7) * (leg / 2 == 0 ? 1 : -1);
        c.Limb({base, 128 + crouch}, 13, {base + swing / 2 + 3, 160}, 9, f.Of->Cloth,
               leg % 2 == 0 ? -50 : -8);
        c.Limb({base + swing / 2 + 3, 160}, 9, {base + swing, Ground - 6}, 7, f.Of->Cloth,
               leg % 2 == 0 ? -50 : -8);
        c.Ball({base + swing - 5, Ground - 5}, 12, 6, f.Of->Cloth, -10);
    }
    c.Limb({x - 36, 112 + crouch}, 32, {x + 50, 114 + crouch}, 27, f.Of->Cloth);
    c.Limb({x - 20, 84 + crouch}, 7, {x + 54, 90 + crouch}, 5, f.Of->Skin, 10);
    const int headX = x - 66 - f.As.Strike * 5;
    const int headY = 88 + crouch - f.As.Strike * 4;
    c.Limb({x - 44, 104 + crouch}, 26, {headX, headY}, 22, f.Of->Cloth, 6);
    for (const int ear : {-2, 16})
        c.Limb({headX + ear, headY - 14}, 8, {headX + ear + 3, headY - 38}, 1, f.Of->Cloth);
    c.Limb({headX - 4, headY + 6}, 16, {headX - 30, headY + 12}, 9, f.Of->Cloth, 18);
    if (f.As.Strike > 0) {
        c.Limb({headX - 4, headY + 20}, 8, {headX - 28, headY + 32}, 5, f.Of->Cloth, -20);
        c.Disc({headX - 17, headY + 22}, 12, 5, DarkRed);
        for (const int tooth : {-26, -17, -9})
            c.Fill(headX + tooth, headY + 17, headX + tooth + 4, headY + 25, White);
    }
    c.Disc({headX - 37, headY + 8}, 5, 4, Black);
    c.Disc({headX - 8, headY - 2}, 6, 5, Black);
    c.Disc({headX - 9, headY - 2}, 4, 3, BrightYellow);
}

void DrawSerpent(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int sway = f.As.Step * 6;
    c.Ball({x, Ground - 18}, 66, 17, f.Of->Cloth, -30);
    c.Ball({x + 4, Ground - 34}, 54, 17, f.Of->Cloth, -14);
    c.Ball({x, Ground - 50}, 42, 16, f.Of->Cloth);
    c.Limb({x + 50, Ground - 20}, 9, {x + 84, Ground - 44 - sway}, 1, f.Of->Cloth);
    const Point neck{x + 14 - sway, 104};
    const Point head{x - f.As.Strike * 16 + sway, 56 + f.As.Strike * 12};
    c.Limb({x + 10, Ground - 52}, 21, neck, 18, f.Of->Cloth, 6);
    c.Ball({head.X, head.Y + 16}, 38, 42, f.Of->Cloth, -14);
    c.Limb(neck, 18, head, 17, f.Of->Cloth, 10);
    for (int i = 0; i < 6; ++i)
        c.Limb({neck.X - 9 + (head.X - neck.X) * i / 8, neck.Y + 26 - i * 12}, 4,
               {neck.X + 9 + (head.X - neck.X) * i / 8, neck.Y + 26 - i * 12}, 4, f.Of->Skin, 10);
    c.Ball(head, 24, 20, f.Of->Cloth, 26);
    DrawEyes(c, {head.X, head.Y - 4}, 13, 5, BrightYellow);
    c.Disc({head.X, head.Y + 12}, 12, 2 + f.As.Strike * 4, DarkRed);
    c.Stroke({head.X, head.Y + 14}, {head.X - 4, head.Y + 34}, 1, BrightRed);
}

void DrawPlant(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    const int lean = f.As.Step * 6;
    for (const int way : {-1, 1}) {
        for (int i = 0; i < 3; ++i)
            c.Limb({x + way * 8, Ground - 12}, 10,
                   {x + way * (44 + i * 16), Ground - 10 - i * 26 - way * lean}, 2, Ramp::Leaf, i * 14 - 24);
    }
    c.Limb({x, Ground - 4}, 14, {x - lean / 2, 130}, 10, Ramp::Leaf);
    c.Limb({x - lean / 2, 130}, 10, {x + lean, 96}, 12, Ramp::Leaf, 8);
    const Point at{x + lean, 72};
    const int gape = 10 + f.As.Strike * 10;
    static constexpr std::array<Point, 8> petals{
        {{0, -48}, {34, -34}, {50, 0}, {36, 32}, {0, 46}, {-36, 32}, {-50, 0}, {-34, -34}}};
    for (const Point& petal : petals)
        c.Limb({at.X + petal.X / 3, at.Y + petal.Y / 3}, 17, {at.X + petal.X, at.Y + petal.Y}, 9, f.Of->Cloth,
               petal.X / 3 - petal.Y / 3);
    c.Ball(at, 34, 32, f.Of->Skin);
    c.Disc({at.X, at.Y + 8}, 22, gape, Black);
    for (int tooth = -16; tooth <= 16; tooth += 8) {
        c.Limb({at.X + tooth, at.Y + 8 - gape * 3 / 4}, 3, {at.X + tooth, at.Y + 12 - gape / 2}, 1,
               Ramp::Sand, 90);
        c.Limb({at.X + tooth, at.Y + 8 + gape * 3 / 4}, 3, {at.X + tooth, at.Y + 4 + gape / 2}, 1, Ramp::Sand,
               90);
    }
    DrawEyes(c, {at.X, at.Y - 17}, 12, 4, BrightYellow);
}

void DrawRobot(const Figure& f) {
    Canvas& c = *f.On;
    const int x = f.Middle;
    for (const int way : {-1, 1}) {
        const int lift = f.As.Step * way > 0 ? 10 : 0;
        c.Column(x + way * 20 - 7, 126, x + way * 20 + 7, 170 - lift, Ramp::Steel, -20);
        c.Panel(x + way * 22 - 17, 168 - lift, x + way * 22 + 17, Ground - lift, f.Of->Cloth, 90, 60);
        const int fore = f.As.Strike > 0 ? 74 : 124;
        c.Ball({x + way * 50, 74}, 16, 16, f.Of->Cloth);
        c.Limb({x + way * 52, 78}, 8, {x + way * 58, 104}, 8, Ramp::Steel, -10);
        c.Limb({x + way * 58, 104}, 10, {x + way * (f.As.Strike > 0 ? 40 : 58), fore}, 11, f.Of->Cloth, 10);
        c.Ball({x + way * (f.As.Strike > 0 ? 40 : 58), fore + 4}, 8, 8,
               f.As.Strike == 2 ? Ramp::Fire : Ramp::Steel, 30);
    }
    c.Panel(x - 40, 62, x + 40, 130, f.Of->Cloth, 118, 70);
    c.Panel(x - 28, 72, x + 28, 98, Ramp::Grey, 30, -40);
    for (int i = 0; i < 4; ++i)
        c.Disc({x - 19 + i * 13, 85}, 4, 4, (i + f.As.Step) % 2 == 0 ? BrightGreen : BrightOrange);
    for (int y = 106; y < 124; y += 7) c.Fill(x - 26, y, x + 26, y + 3, Index(f.Of->Cloth, 4));
    c.Column(x - 10, 52, x + 10, 63, Ramp::Steel);
    c.Panel(x - 26, 18, x + 26, 54, f.Of->Skin, 130, 70);
    c.Panel(x - 20, 28, x + 20, 40, Ramp::Grey, 10, -30);
    c.Disc({x + f.As.Step * 6, 34}, 5, 5, f.As.Strike > 0 ? BrightYellow : BrightRed);
    c.Limb({x + 16, 18}, 2, {x + 22, 4}, 1, Ramp::Steel, 40);
    c.Disc({x + 22, 4}, 4, 4, BrightRed);
}

int DesignWidthOf(Body body) {
    switch (body) {
    case Body::Walker:
    case Body::Robed:
        return 150;
    case Body::Ghost:
        return 160;
    case Body::Robot:
        return 148;
    case Body::Plant:
    case Body::Serpent:
        return 184;
    default:
        return 216;
    }
}

// A frame is an odd number of pixels wide, so that the body has a middle column.
Canvas DrawFrame(const Creature& creature, const Pose& pose) {
    const bool wide = creature.Bulk > 120;
    const int designWidth = DesignWidthOf(creature.Kind) + (wide ? 50 : 0) + (pose.Strike == 2 ? 12 : 0);
    Canvas canvas(creature.Height * designWidth / DesignHeight | 1, creature.Height, designWidth,
                  DesignHeight, SpriteBackground);
    const Figure figure{.On = &canvas, .Of = &creature, .As = pose, .Middle = designWidth / 2};
    switch (creature.Kind) {
    case Body::Walker:
        DrawWalker(figure);
        break;
    case Body::Robed:
        DrawRobed(figure);
        break;
    case Body::Spider:
        DrawSpider(figure);
        break;
    case Body::Ghost:
        DrawGhost(figure);
        break;
    case Body::Bat:
        DrawBat(figure);
        break;
    case Body::Slime:
        DrawSlime(figure);
        break;
    case Body::Eye:
        DrawEye(figure);
        break;
    case Body::Beast:
        DrawBeast(figure);
        break;
    case Body::Serpent:
        DrawSerpent(figure);
        break;
    case Body::Plant:
        DrawPlant(figure);
        break;
    case Body::Robot:
        DrawRobot(figure);
        break;
    }
    canvas.Outline(Black);
    return canvas;
}

} // namespace

std::vector<encode::Image> MakeCreature(const Creature& creature) {
    std::vector<encode::Image> images;
    for (const int step : {0, 1, 0, -1}) {
        Canvas frame = DrawFrame(creature, {.Step = step});
        if (images.size() == 2) frame = frame.Mirrored();
        images.push_back(frame.ToImage());
    }
    images.push_back(DrawFrame(creature, {.Step = 1, .Strike = 1}).ToImage());
    images.push_back(DrawFrame(creature, {.Step = -1, .Strike = 2}).ToImage());
    Canvas hurt = DrawFrame(creature, {.Hurt = true});
    hurt.Brighten(3);
    images.push_back(hurt.ToImage());
    const int width = hurt.Width();
    for (const int percent : {75, 45, 22}) {
        hurt.Brighten(-2);
        Canvas fallen = hurt.Pressed(percent, width + (100 - percent) / 5 * 2 / 4 * 2 + 2);
        fallen.Outline(DarkRed);
        images.push_back(fallen.ToImage());
    }
    return images;
}

} // namespace morvane::demo
