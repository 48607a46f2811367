#include "ExportNames.h"
#include "GameFile.h"
#include "LoadedGame.h"
#include "MapDrawing.h"
#include "PaletteFile.h"
#include "SampleGame.h"
#include "modAddBMPHeader.h"
#include "modPicture.h"

using namespace morvane;

constexpr Pixel Black = 0xFF000000, Green = 0xFF00A800, White = 0xFFFCFCFC;

struct GameTest : testing::Test {
    GameTest() { InitSymbolColors(); }
    TempFolder Folder;
    SampleGame Sample;
    GameFolder Game{Folder.Path, 1};
    ImageGroups Groups;
};

TEST_F(GameTest, PathsAndNamesHoldTheEpisode) {
    EXPECT_EQ(Game.GameFilePath("%EP%-%EP%%EP"), Folder / "1-1%EP");
    EXPECT_EQ(Game.GameFilePath("MAP.%EP%", 2), Folder / "MAP.2");
    EXPECT_EQ((GameFolder{Folder.Path + PathSeparator, 3}.GameFilePath("img.%ep%")), Folder / "img.%ep%");
    EXPECT_EQ(PictureFileName(3, 7, 104), "Picture 3-007-105.bmp");
}

TEST_F(GameTest, BytesOutsideAFileReadAsZeros) {
    const Failure missing = FailureOf([&] { GameFile(Game, "MAP.%EP%"); });
    EXPECT_EQ(std::tuple(missing.Number, missing.Source), std::tuple(53, "core_tests"));
    EXPECT_EQ(missing.Description, Folder / "MAP.1" + " not found.");
    const std::string padded("\0\0\0\0\0abc\0\0\0\0\0", 13);
    Folder.Write("game.pal", "abc"); // found in another case
    for (std::size_t start = 0; start < 9; ++start) {
        ByteVector bytes(5, 9);
        GameFile(Game, "GAME.PAL").Read(static_cast<std::int64_t>(start) - 5, bytes);
        EXPECT_EQ(bytes, SampleGame::Text(padded.substr(start, 5)));
    }
}

TEST_F(GameTest, TheImageDirectoryHasGroupsAndTheirImages) {
    Sample.Groups[2].Codes[89] = 77;
    Sample.Groups[3].SharesLower = true;
    Sample.Groups[8] = {{}, {}, false, 1, -5};
    Sample.Groups[9] = {{}, {}, false, 2, 48128}; // group 2's offset, and not its neighbour's
    Sample.Groups[511] = {{}, {}, false, 255, INT32_MAX};
    Sample.Write(Folder, {1});
    Groups[1].Duplicate = Groups[9].Duplicate = true;
    ReadImageArchive(Game, Groups);
    std::string images;
    for (const unsigned g : {1U, 2U, 3U, 7U, 8U, 9U, 511U})
        images += std::to_string(Groups[g].Images.size()) + (Groups[g].Duplicate ? " repeated, " : ", ");
    EXPECT_EQ(images, "0 repeated, 3, 1 repeated, 2, 0, 2, 255, "); // an absent group stays as it was
    EXPECT_EQ(Groups[2].Codes[89], 77);
    EXPECT_EQ(Groups[2].Images[1].DataOffset, 48154U);
}

TEST_F(GameTest, AnImageIsDecodedIntoTheBytesOfABMPFile) {
    const encode::Image large{255, 255, 0, 0, ByteVector(std::size_t{255} * 255, 7)};
    Sample.Groups[1].Images = {{0, 9, 0, 0, {}}, large, {3, 2, 0, 0, {1, 3, 5, 2, 4, 6}}};
    Sample.Write(Folder, {1});
    ReadImageArchive(Game, Groups);
    ASSERT_TRUE(LoadPalette(Game));
    ByteVector file;
    for (const int image : {0, 1, 2}) { // the first one has no width, so no rows
        file = ReadImage(Game, Groups, 1, image);
        const std::string name = SampleGame::ImageFileName(1, 1, image);
        EXPECT_EQ(std::string(file.begin(), file.end()), Sample.ImageFiles(1)[name]) << image;
    }
    Palette[6] = {0x33, 0x22, 0x11, 0}; // the colours inside the file do not count
    const std::vector<Pixel> pixels{0xFF01FE00, 0xFF03FC01, 0xFF05FA02, 0xFF02FD01, 0xFF04FB02, 0xFF112233};
    EXPECT_EQ(PictureFromBMP(file).Pixels(), pixels);
}

TEST_F(GameTest, MapsLieBehindOneAnother) {
    Sample.Maps[2][64 * 5 + 9] = {200, 100};
    Sample.Write(Folder, {1});
    std::vector<MapEntry> directory(9);
    ReadMapArchive(Game, directory);
    MapCellTable cells{};
    ReadMapCells(Game, directory[2], cells);
    EXPECT_EQ(std::tuple(cells[0].Plane0, cells[329].Plane0, cells[329].Plane1), std::tuple(2, 200, 100));
    for (const auto& [header, count] : {std::pair("\xFF\xFF", 0), {"", 0}, {"\1", 1}, {"\xFF\x7F", 32767}}) {
        Folder.Write("MAP.1", header);
        ReadMapArchive(Game, directory);
        EXPECT_EQ(std::ssize(directory), count);
    }
}

TEST_F(GameTest, SoundsAreRecognisedByTheirFirstBytes) {
    // The file itself begins with "IBK". Entries without a size, without an offset, with a negative one.
    Sample.Sounds = {{{}, 0x4249, 'K'}, {SampleGame::Text("MThd"), 0, {}}, {{}, 4, 0}, {{}, 4, -5}};
    for (const char* text : {"IBK", "IBKMThd", "MThd", "Creative Voice File", "mthd", "MThx", "XBK", "IBX"})
        Sample.Sounds.push_back({SampleGame::Text(text), {}, {}});
    Sample.Sounds.resize(159);
    Sample.Sounds.push_back({SampleGame::Text("Creative Voice Fil"), 40000, {}}); // ends the file
    Sample.Write(Folder, {});
    SoundTable entries;
    entries[2].Kind = SoundKind::Voc;
    ReadSoundArchive(Game, entries);
    std::string kinds;
    for (const SoundEntry& entry : entries) kinds += std::to_string(static_cast<int>(entry.Kind));
    EXPECT_EQ(kinds, "00001123" + std::string(152, '0'));
    EXPECT_EQ(std::tuple(entries[3].Offset, entries[159].Size), std::tuple(-5, 40000));
    EXPECT_EQ(ReadSoundEntry(Game, entries[6]), SampleGame::Text("MThd"));
}

TEST_F(GameTest, SymbolsAreDefinedAsWritten) {
    const std::vector<Pixel> colors{0x000000, 0x0000A8, 0x00A800, 0x00A8A8, 0xA80000, 0xA800A8,
                                    0xA85600, 0xA8A8A8, 0x565656, 0x5656FC, 0x56FC56, 0x56FCFC,
                                    0xFC5656, 0xFC56FC, 0xFCFC56, 0xFCFCFC};
    const Picture tile = MakeSymbolTile("0123456789ABCDEFabcdef" + std::string(27, '0'));
    for (std::size_t i = 0; i < 22; ++i) EXPECT_EQ(tile.Pixels()[i] & 0xFFFFFF, colors[i < 16 ? i : i - 6]);

    // "RED" stands for 48 digits; one more is needed.
    const std::string file =
        "[Plane 0]\r1= x ,RED4, a, b\r1=,RED2,late\r2=x,RED4zz,\r"
        "3=x,RED,too short\r4=x,REDG,no digit\r5=x, RED4,blank\r6=x,RED4\r7=\r08=x,RED4,\r"
        "[plane 0]\r9=,RED4,\r[Plane 1]\r10=,RED4,\r0=,RED4,zero\r255=,RED4,last";
    Folder.Write("Episode3.tsd", Replaced(file, "RED", std::string(48, '4')));
    EXPECT_TRUE(LoadMapSymbols(Folder.Path, 3));
    const auto& [plane0, plane1] = MapSymbols;
    const std::string red(49, '4'), white(49, 'F');
    EXPECT_EQ(plane0[1].Extra + "|" + plane0[1].Pattern + "|" + plane0[1].Name, " x |" + red + "| a, b");
    EXPECT_EQ(plane0[2].Pattern, red + "zz");
    EXPECT_EQ(plane0[2].Tile.At(6, 6), 0xFFA80000);
    for (std::size_t code = 3; code <= 10; ++code)
        EXPECT_EQ(plane0[code].Extra + plane0[code].Pattern + plane0[code].Name, white + "Unknown") << code;
    EXPECT_EQ(plane1[0].Name + plane1[255].Name, "zerolast");
    EXPECT_TRUE(LoadMapSymbols(Folder.Path, 2)); // no file: nothing of another episode remains
    EXPECT_EQ(plane1[0].Name + plane0[1].Name, "NothingUnknown");
}

TEST_F(GameTest, Plane1IsPaintedOverPlane0WithoutItsTransparentPixels) {
    // Black and a dark grey within white.
    const std::string frame = "FFFFFFFF00008FF00008FF00008FF00008FF00008FFFFFFFF,";
    Folder.Write("Episode1.tsd", "[Plane 0]\r1=," + std::string(49, '2') + ",\r[Plane 1]\r5=," + frame +
                                     "\r0=," + std::string(49, '7') + ",");
    LoadMapSymbols(Folder.Path, 1);
    MapCellTable cells{};
    cells.fill({1, 0});
    cells[1] = {0, 0}; // code 0 of plane 1 is nothing, whatever its symbol
    cells[64 * 3 + 2] = {1, 5};
    cells[64 * 63 + 63] = {0, 6}; // an undefined code covers its cell
    const Picture picture = DrawMapCells(cells);
    const std::vector<std::pair<Pixel, std::vector<std::pair<int, int>>>> pixels = {
        {Black, {{7, 0}, {13, 6}}}, // code 0 is painted on plane 0
        {Green, {{0, 0}, {6, 6}, {14, 6}, {14, 20}, {15, 22}, {21, 27}, {440, 447}, {447, 440}}},
        {0xFF565656, {{19, 22}}},
        {White, {{14, 21}, {20, 27}, {441, 441}, {447, 447}}}};
    for (const auto& [color, places] : pixels)
        for (const auto& [x, y] : places) EXPECT_EQ(picture.At(x, y), color) << x << ',' << y;
}
