#include "DemoImages.h"

#include "Archives.h"
#include "Canvas.h"
#include "Creatures.h"
#include "DemoPalette.h"
#include "Fixtures.h"
#include "Objects.h"
#include "Random.h"
#include "Textures.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace morvane::demo {

namespace {

struct DoorLook {
    DoorKind Kind;
    Ramp Leaf, Fittings;
};

// What makes one episode look different from another.
struct Theme {
    std::array<Material, 8> Walls;
    std::array<DoorLook, 3> Doors;
    std::array<Creature, 10> Creatures;
    Ramp Growth, Cloth, Flame, Wood, Stone, Liquid, Leaves;
};

using enum Masonry;

constexpr Theme Keep{
    .Walls = {{{Blocks, Ramp::Stone, Ramp::Stone, 118, 11},
               {Bricks, Ramp::Brick, Ramp::Stone, 112, 12},
               {Planks, Ramp::Wood, Ramp::Wood, 118, 13},
               {Rock, Ramp::Stone, Ramp::Grey, 96, 14},
               {Blocks, Ramp::Blue, Ramp::Steel, 104, 15},
               {Plates, Ramp::Steel, Ramp::Grey, 108, 16},
               {Tiles, Ramp::Sand, Ramp::Wood, 124, 17},
               {Bricks, Ramp::Moss, Ramp::Grey, 104, 18}}},
    .Doors = {{{DoorKind::Boards, Ramp::Wood, Ramp::Steel},
               {DoorKind::Bars, Ramp::Steel, Ramp::Steel},
               {DoorKind::Arch, Ramp::Wood, Ramp::Stone}}},
    .Creatures = {{{Body::Walker, Head::Goblin, Weapon::Club, Ramp::Leaf, Ramp::Wood, 92, 57},
                   {Body::Walker, Head::Helmet, Weapon::Sword, Ramp::Steel, Ramp::Steel, 104, 75},
                   {Body::Walker, Head::Skull, Weapon::Axe, Ramp::Sand, Ramp::Sand, 92, 71},
                   {Body::Ghost, Head::Bare, Weapon::None, Ramp::Ice, Ramp::Ice, 100, 67},
                   {Body::Spider, Head::Bare, Weapon::None, Ramp::Fire, Ramp::Purple, 100, 55},
                   {Body::Bat, Head::Bare, Weapon::None, Ramp::Wood, Ramp::Brick, 100, 53},
                   {Body::Slime, Head::Bare, Weapon::None, Ramp::Leaf, Ramp::Leaf, 100, 52},
                   {Body::Robed, Head::Pointed, Weapon::Staff, Ramp::Skin, Ramp::Blue, 100, 79},
                   {Body::Beast, Head::Bare, Weapon::None, Ramp::Stone, Ramp::Stone, 100, 59},
                   {Body::Walker, Head::Horned, Weapon::Axe, Ramp::Brick, Ramp::Brick, 132, 103}}},
    .Growth = Ramp::Moss,
    .Cloth = Ramp::Brick,
    .Flame = Ramp::Fire,
    .Wood = Ramp::Wood,
    .Stone = Ramp::Stone,
    .Liquid = Ramp::Blue,
    .Leaves = Ramp::Leaf};

constexpr Theme Forest{
    .Walls = {{{Hedge, Ramp::Leaf, Ramp::Leaf, 104, 21},
               {Logs, Ramp::Wood, Ramp::Wood, 84, 22},
               {Blocks, Ramp::Sand, Ramp::Wood, 128, 23},
               {Tiles, Ramp::Moss, Ramp::Moss, 112, 24},
               {Rock, Ramp::Wood, Ramp::Wood, 84, 25},
               {Bricks, Ramp::Sand, Ramp::Brick, 118, 26},
               {Tiles, Ramp::Gold, Ramp::Brick, 112, 27},
               {Rock, Ramp::Moss, Ramp::Leaf, 98, 28}}},
    .Doors = {{{DoorKind::Arch, Ramp::Moss, Ramp::Sand},
               {DoorKind::Boards, Ramp::Leaf, Ramp::Gold},
               {DoorKind::Bars, Ramp::Wood, Ramp::Wood}}},
    .Creatures = {{{Body::Walker, Head::Lizard, Weapon::Sword, Ramp::Leaf, Ramp::Leaf, 104, 71},
                   {Body::Plant, Head::Bare, Weapon::None, Ramp::Moss, Ramp::Brick, 100, 77},
                   {Body::Serpent, Head::Bare, Weapon::None, Ramp::Sand, Ramp::Teal, 100, 65},
                   {Body::Beast, Head::Bare, Weapon::None, Ramp::Wood, Ramp::Gold, 100, 57},
                   {Body::Robed, Head::Hood, Weapon::Staff, Ramp::Skin, Ramp::Purple, 100, 77},
                   {Body::Spider, Head::Bare, Weapon::None, Ramp::Gold, Ramp::Wood, 100, 61},
                   {Body::Slime, Head::Bare, Weapon::None, Ramp::Purple, Ramp::Purple, 100, 49},
                   {Body::Bat, Head::Bare, Weapon::None, Ramp::Gold, Ramp::Teal, 100, 51},
                   {Body::Walker, Head::Goblin, Weapon::Axe, Ramp::Brick, Ramp::Moss, 88, 55},
                   {Body::Walker, Head::Idol, Weapon::Club, Ramp::Stone, Ramp::Stone, 136, 107}}},
    .Growth = Ramp::Leaf,
    .Cloth = Ramp::Leaf,
    .Flame = Ramp::Teal,
    .Wood = Ramp::Wood,
    .Stone = Ramp::Sand,
    .Liquid = Ramp::Teal,
    .Leaves = Ramp::Leaf};

constexpr Theme Machine{
    .Walls = {{{Plates, Ramp::Steel, Ramp::Grey, 120, 31},
               {Ice, Ramp::Ice, Ramp::Ice, 136, 32},
               {Pipes, Ramp::Steel, Ramp::Grey, 96, 33},
               {Rock, Ramp::Ice, Ramp::Blue, 112, 34},
               {Plates, Ramp::Brick, Ramp::Grey, 96, 35},
               {Tiles, Ramp::Blue, Ramp::Steel, 108, 36},
               {Plates, Ramp::Teal, Ramp::Grey, 104, 37},
               {Blocks, Ramp::Ice, Ramp::Blue, 132, 38}}},
    .Doors = {{{DoorKind::Sliding, Ramp::Steel, Ramp::Grey},
               {DoorKind::Plates, Ramp::Brick, Ramp::Steel},
               {DoorKind::Bars, Ramp::Ice, Ramp::Blue}}},
    .Creatures = {{{Body::Robot, Head::Bare, Weapon::Gun, Ramp::Steel, Ramp::Gold, 100, 73},
                   {Body::Eye, Head::Bare, Weapon::None, Ramp::Teal, Ramp::Steel, 100, 59},
                   {Body::Ghost, Head::Bare, Weapon::None, Ramp::Blue, Ramp::Blue, 100, 69},
                   {Body::Spider, Head::Bare, Weapon::None, Ramp::Teal, Ramp::Steel, 100, 57},
                   {Body::Slime, Head::Bare, Weapon::None, Ramp::Ice, Ramp::Ice, 100, 50},
                   {Body::Walker, Head::Bare, Weapon::Gun, Ramp::Skin, Ramp::Teal, 100, 70},
                   {Body::Beast, Head::Bare, Weapon::None, Ramp::Ice, Ramp::Steel, 100, 61},
                   {Body::Walker, Head::Furry, Weapon::None, Ramp::Blue, Ramp::Ice, 124, 87},
                   {Body::Robed, Head::Hood, Weapon::Staff, Ramp::Ice, Ramp::Steel, 100, 77},
                   {Body::Robot, Head::Bare, Weapon::Gun, Ramp::Brick, Ramp::Purple, 128, 109}}},
    .Growth = Ramp::Ice,
    .Cloth = Ramp::Blue,
    .Flame = Ramp::Ice,
    .Wood = Ramp::Steel,
    .Stone = Ramp::Steel,
    .Liquid = Ramp::Leaf,
    .Leaves = Ramp::Ice};

const Theme& ThemeOf(int episode) { return episode == 1 ? Keep : (episode == 2 ? Forest : Machine); }

class ArchiveBuilder {
  public:
    explicit ArchiveBuilder(int episode) : Episode(episode) {}

    // Adds a group with a code record of its own.
    void Add(int number, Images images, std::uint8_t kind) {
        encode::Group group;
        for (std::size_t i = 0; i < group.Codes.size(); ++i) {
            const std::uint32_t h = Hash(number, static_cast<int>(i), static_cast<std::uint32_t>(Episode));
            group.Codes.at(i) = static_cast<std::uint8_t>(h % 3U == 0 ? h >> 8U : (i < 8 ? h % 16U : 0));
        }
        group.Codes[0] = static_cast<std::uint8_t>(number);
        group.Codes[1] = kind;
        std::uint32_t place = 0;
        for (encode::Image& image : images) {
            image.Unknown1 = place++;
            image.Unknown2 = static_cast<std::uint32_t>(image.Width) << 16U | image.Height;
        }
        group.Images = std::move(images);
        Groups.insert_or_assign(number, std::move(group));
    }

    // Adds a group that is its lower neighbour once more.
    void AddShared(int number) {
        encode::Group group = Groups.at(number - 1);
        group.SharesLower = true;
        Groups.insert_or_assign(number, std::move(group));
    }

    [[nodiscard]] encode::ByteVector Bytes() const { return encode::EncodeImageArchive(Groups); }

  private:
    int Episode;
    std::map<int, encode::Group> Groups;
};

constexpr std::uint8_t WallKind = 1;
constexpr std::uint8_t DoorGroupKind = 2;
constexpr std::uint8_t ObjectKind = 3;
constexpr std::uint8_t CreatureKind = 4;
constexpr std::uint8_t PanelKind = 5;

// A wall and its darker side.
void AddPair(Images& images, Canvas wall) {
    images.push_back(wall.ToImage());
    wall.Brighten(-2);
    images.push_back(wall.ToImage());
}

void AddWalls(ArchiveBuilder& archive, const Theme& theme) {
    for (int i = 0; i < 8; ++i) {
        const Material& material = theme.Walls.at(static_cast<std::size_t>(i));
        Images images;
        AddPair(images, MakeWall(material));
        AddPair(images, MakeCrackedWall(material));
        AddPair(images, MakeOvergrownWall(material, theme.Growth));
        archive.Add(1 + i, std::move(images), WallKind);
    }
}

// Groups 9 to 14: what hangs on walls.
void AddDecoratedWalls(ArchiveBuilder& archive, const Theme& theme, int episode) {
    const auto wall = [&](std::size_t i) { return MakeWall(theme.Walls.at(i)); };
    std::array<Images, 6> groups;
    for (int frame = 0; frame < 4; ++frame) {
        Canvas torch = wall(0);
        AddTorch(torch, frame, theme.Flame);
        groups[0].push_back(torch.ToImage());
        Canvas banner = wall(1);
        AddBanner(banner, theme.Cloth, episode - 1, frame);
        groups[1].push_back(banner.ToImage());
        Canvas face = wall(3);
        AddFountainFace(face, theme.Stone, theme.Liquid, frame);
        groups[2].push_back(face.ToImage());
        Canvas live = wall(5);
        if (episode == 3)
            AddConsole(live, Ramp::Leaf, frame);
        else
            AddRunes(live, episode == 1 ? Ramp::Fire : Ramp::Teal, frame);
        groups[3].push_back(live.ToImage());
    }
    for (int i = 0; i < 3; ++i) {
        Canvas picture = wall(2);
        AddPainting(picture, i);
        groups[4].push_back(picture.ToImage());
    }
    Canvas window = wall(0);
    AddWindow(window, episode == 2 ? Ramp::Gold : Ramp::Ice);
    Canvas shield = wall(1);
    AddShield(shield, theme.Cloth);
    Canvas books = wall(2);
    AddBookcase(books, theme.Wood);
    Canvas up = wall(4);
    AddLever(up, false);
    Canvas down = wall(4);
    AddLever(down, true);
    for (const Canvas& canvas : {window, shield, books, up, down}) groups[5].push_back(canvas.ToImage());
    for (int i = 0; i < 6; ++i) archive.Add(9 + i, groups.at(static_cast<std::size_t>(i)), WallKind);
}

// Groups 15 to 20: three kinds of doors, each opening, then the locked ones and the frames beside doors.
void AddDoors(ArchiveBuilder& archive, const Theme& theme) {
    int number = 15;
    for (const DoorLook& look : theme.Doors) {
        const Canvas door = MakeDoor(look.Kind, look.Leaf, look.Fittings, Index(Ramp::Grey, 4));
        Images images;
        for (int step = 0; step < 5; ++step) images.push_back(OpenedDoor(door, step).ToImage());
        archive.Add(number++, std::move(images), DoorGroupKind);
    }
    Images locked;
    for (const int lock : {BrightYellow, Index(Ramp::Ice, 14), BrightRed}) {
        Canvas door = MakeDoor(theme.Doors[0].Kind, theme.Doors[0].Leaf, theme.Doors[0].Fittings, lock);
        door.Panel(86, 60, 116, 68, Ramp::Gold, 150, 50);
        locked.push_back(door.ToImage());
    }
    archive.Add(number++, std::move(locked), DoorGroupKind);
    Images frames;
    for (const std::size_t i : {0U, 4U}) {
        Canvas frame = MakeWall(theme.Walls.at(i));
        frame.Column(46, 0, 82, 128, theme.Stone);
        for (int y = 8; y < 128; y += 24) frame.Panel(44, y, 84, y + 6, Ramp::Steel, 100, 50);
        AddPair(frames, frame);
    }
    archive.Add(number++, std::move(frames), DoorGroupKind);
    Images exit;
    for (const int steps : {0, 1}) {
        Canvas stairs(WallSize, WallSize, 128, 128, Black);
        for (int i = 0; i < 8; ++i)
            stairs.Panel(i * 6, 112 - i * 15, 128 - i * 6, 128 - i * 15, theme.Stone,
                         steps == 0 ? 150 - i * 16 : 40 + i * 20, 50);
        exit.push_back(stairs.ToImage());
    }
    archive.Add(number, std::move(exit), WallKind);
}

void AddObjects(ArchiveBuilder& archive, const Theme& theme, int episode) {
    std::vector<Images> groups{MakeBarrels(theme.Wood, episode == 3 ? Ramp::Gold : Ramp::Steel),
                               MakeChests(theme.Wood, Ramp::Gold),
                               MakeTorches(theme.Flame),
                               MakeTables(theme.Wood),
                               MakeKeys(),
                               MakePotions(),
                               MakeGems(),
                               MakeBlades(),
                               MakeCrates(theme.Wood),
                               MakePillars(theme.Stone),
                               MakeTrees(theme.Leaves, Ramp::Wood),
                               MakeBooks(),
                               MakeCandles(),
                               MakeTreasures(),
                               MakeBones(),
                               MakeStatues(theme.Stone)};
    int number = 30;
    for (Images& images : groups) archive.Add(number++, std::move(images), ObjectKind);
    archive.AddShared(number);
    // Two groups that only this episode has.
    if (episode == 1) archive.Add(50, MakeUrns(Ramp::Brick), ObjectKind);
    if (episode == 2) archive.Add(50, MakeMushrooms(Ramp::Brick), ObjectKind);
    if (episode == 3) archive.Add(50, MakeMachines(Ramp::Steel, Ramp::Leaf), ObjectKind);
    if (episode == 2)
        archive.Add(52, MakeUrns(Ramp::Moss), ObjectKind);
    else
        archive.Add(52, MakeCrystals(episode == 1 ? Ramp::Purple : Ramp::Ice), ObjectKind);
}

void AddCreatures(ArchiveBuilder& archive, const Theme& theme) {
    int number = 100;
    for (const Creature& creature : theme.Creatures)
        archive.Add(number++, MakeCreature(creature), CreatureKind);
    archive.Add(110, MakeMissiles(theme.Flame), ObjectKind);
    archive.Add(111, MakeBursts(theme.Flame), ObjectKind);
    archive.Add(112, MakeHands(theme.Cloth, Ramp::Steel), ObjectKind);
}

// Letters of 5 x 7 cells, a row of 5 bits each from the top.
constexpr std::array<std::array<std::uint8_t, 7>, 7> TitleLetters{{
    {0x11, 0x1B, 0x15, 0x15, 0x11, 0x11, 0x11}, // M
    {0x0E, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}, // O
    {0x1E, 0x11, 0x11, 0x1E, 0x14, 0x12, 0x11}, // R
    {0x11, 0x11, 0x11, 0x11, 0x0A, 0x0A, 0x04}, // V
    {0x0E, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}, // A
    {0x11, 0x19, 0x15, 0x15, 0x13, 0x11, 0x11}, // N
    {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x1F}, // E
}};

void DrawTitle(Canvas& panel, int left, int top, int cell, Ramp ramp) {
    for (const auto& letter : TitleLetters) {
        for (int row = 0; row < 7; ++row) {
            for (int column = 0; column < 5; ++column) {
                if ((letter.at(static_cast<std::size_t>(row)) >> (4 - column) & 1) == 0) continue;
                const int x = left + column * cell;
                const int y = top + row * cell;
                panel.Fill(x + cell / 2, y + cell / 2, x + cell + cell / 2, y + cell + cell / 2, Black);
            }
        }
        for (int row = 0; row < 7; ++row) {
            for (int column = 0; column < 5; ++column) {
                if ((letter.at(static_cast<std::size_t>(row)) >> (4 - column) & 1) == 0) continue;
                panel.Panel(left + column * cell, top + row * cell, left + (column + 1) * cell,
                            top + (row + 1) * cell, ramp, 230 - row * 22, 30);
            }
        }
        left += 6 * cell;
    }
}

Canvas Tiled(int width, int height, const Canvas& wall) {
    Canvas canvas(width, height, width, height, Black);
    for (int y = 0; y < height; y += WallSize) {
        for (int x = 0; x < width; x += WallSize) canvas.Lay(wall, x, y);
    }
    return canvas;
}

// Group 511: the title and a tall panel.
void AddPanels(ArchiveBuilder& archive, const Theme& theme, int episode) {
    Canvas dark = MakeWall(theme.Walls[0]);
    dark.Brighten(-3);
    Canvas title = Tiled(255, 112, dark);
    DrawTitle(title, 27, 30, 5, episode == 3 ? Ramp::Ice : Ramp::Gold);
    for (int i = 0; i < episode; ++i)
        title.Ball({128 - 12 * (episode - 1) + 24 * i, 90}, 8, 8, theme.Flame, 40);
    for (const int x : {3, 238}) {
        title.Limb({x + 7, 100}, 3, {x + 7, 70}, 4, Ramp::Wood);
        title.Glow({x + 7, 54}, 9, 17, theme.Flame, static_cast<std::uint32_t>(x));
    }
    Canvas tall = Tiled(85, 128, MakeWall(theme.Walls[1]));
    tall.Column(0, 0, 14, 128, theme.Stone, 10);
    tall.Column(71, 0, 85, 128, theme.Stone, 10);
    tall.Panel(0, 0, 85, 12, theme.Stone, 130, 60);
    tall.Panel(0, 114, 85, 128, theme.Stone, 110, 60);
    Canvas bar = Tiled(255, 37, dark);
    bar.Panel(6, 6, 92, 31, Ramp::Grey, 24, -50);
    bar.Panel(164, 6, 249, 31, Ramp::Grey, 24, -50);
    for (int i = 0; i < 7; ++i)
        bar.Ball({15 + i * 11, 18}, 5, 7, i < 5 ? Ramp::Fire : Ramp::Grey, i < 5 ? 20 : -60);
    for (int i = 0; i < 7; ++i)
        bar.Ball({173 + i * 11, 18}, 5, 7, i < 4 ? Ramp::Blue : Ramp::Grey, i < 4 ? 40 : -60);
    bar.Panel(104, 3, 152, 34, Ramp::Gold, 130, 70);
    bar.Panel(108, 7, 148, 30, theme.Cloth, 60, -30);
    bar.Ball({128, 19}, 9, 10, Ramp::Skin);
    bar.Ball({128, 11}, 10, 5, Ramp::Wood);
    archive.Add(511, {title.ToImage(), tall.ToImage(), bar.ToImage()}, PanelKind);
}

} // namespace

encode::ByteVector MakeImageArchive(int episode) {
    const Theme& theme = ThemeOf(episode);
    ArchiveBuilder archive(episode);
    AddWalls(archive, theme);
    AddDecoratedWalls(archive, theme, episode);
    AddDoors(archive, theme);
    AddObjects(archive, theme, episode);
    AddCreatures(archive, theme);
    AddPanels(archive, theme, episode);
    return archive.Bytes();
}

} // namespace morvane::demo
