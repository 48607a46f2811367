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
    EXPECT_EQ((GameFolder{"", 3}.GameFilePath("MAP.%EP%")), JoinPath("", "MAP.3"));
    EXPECT_EQ(PictureFileName(3, 7, 104), "Picture 3-007-105.bmp");
}

TEST_F(GameTest, BytesOutsideAFileReadAsZeros) {
    const Failure failure = FailureOf([&] { GameFile(Game, "MAP.%EP%"); });
    EXPECT_EQ(std::tuple(failure.Number, failure.Source), std::tuple(53, "core_tests"));
    EXPECT_EQ(failure.Description, Folder / "MAP.1" + " not found.");

    const std::string padded("\0\0\0\0\0abc\0\0\0\0\0", 13);
    Folder.Write("game.pal", "abc"); // found in another case
    for (std::size_t start = 0; start < 9; ++start) {
        ByteVector bytes(5, 9);
        GameFile(Game, "GAME.PAL").Read(static_cast<std::int64_t>(start) - 5, bytes);
        EXPECT_EQ(bytes, SampleGame::Text(padded.substr(start, 5)));
    }
}

TEST_F(GameTest, TheInterfaceTableHasUnsignedSizesAndSignedOffsets) {
    Folder.Write("UIF.DAT", std::string("\5\0\x10\x27\0\0\xFF\xFF\xFB\xFF\xFF\xFF", 12));
    InterfaceTable table;
    table[31].Size = 9;
    ASSERT_TRUE(LoadInterfaceFile(Game, table));
    EXPECT_EQ(std::tuple(table[0].Size, table[0].Offset, table[31].Size), std::tuple(5, 10000, 0));
    EXPECT_EQ(std::tuple(table[1].Size, table[1].Offset), std::tuple(65535, -5));
}

TEST_F(GameTest, TheImageDirectoryHasGroupsAndTheirImages) {
    Sample.Groups[2].Images[0] = {3, 2, 0x01020304, 0xFFFFFFFE, ByteVector(6, 1)};
    Sample.Groups[2].Codes[89] = 77;
    Sample.Groups[3].SharesLower = true;
    Sample.Groups[8].Offset = -5;
    Sample.Groups[9] = {{}, {}, false, 2, 48128}; // group 2's offset, and not its neighbour's
    Sample.Groups[511] = {{}, {}, false, 255, INT32_MAX};
    Sample.Write(Folder, {1});
    Groups[1].Duplicate = Groups[9].Duplicate = true;
    ReadImageArchive(Game, Groups);
    std::string text;
    for (const unsigned g : {1U, 2U, 3U, 7U, 8U, 9U, 511U})
        text += std::to_string(Groups[g].Images.size()) + (Groups[g].Duplicate ? "! " : " ");
    EXPECT_EQ(text, "0! 3 1! 2 0 2 255 "); // an absent group stays as it was
    EXPECT_EQ(std::tuple(Groups[2].Codes[0], Groups[2].Codes[89], Groups[8].Offset), std::tuple(2, 77, -5));
    const auto& [at, w, h, u1, u2] = Groups[2].Images[0];
    EXPECT_EQ(std::tuple(at, w, h, u1, u2), std::tuple(48138, 3, 2, 0x01020304, 0xFFFFFFFE));
    EXPECT_EQ(Groups[2].Images[1].DataOffset, 48154U);
    EXPECT_EQ(Groups[511].Images[254].DataOffset, 0x7FFFFFFFU + 2550); // images without a pixel
}

TEST_F(GameTest, AnImageIsDecodedIntoTheBytesOfABMPFile) {
    encode::Image large{255, 255, 0, 0, {}};
    for (int i = 0; i < 255 * 255; ++i) large.Pixels.push_back(static_cast<std::uint8_t>(i * 31 / 7));
    Sample.Groups[12].Images = {{3, 2, 0, 0, {1, 3, 5, 2, 4, 6}}, {0, 9, 0, 0, {}}, large};
    Sample.Groups[13] = {{}, {}, false, 1, INT32_MAX - 1};
    Sample.Write(Folder, {1});
    ReadImageArchive(Game, Groups);
    ASSERT_TRUE(LoadPalette(Game));
    for (const int image : {0, 1, 2}) { // the second one has no width, so no rows
        const ByteVector file = ReadImage(Game, Groups, 12, image);
        const std::string name = SampleGame::ImageFileName(1, 12, image);
        EXPECT_EQ(std::string(file.begin(), file.end()), Sample.ImageFiles(1)[name]) << image;
        EXPECT_EQ(PictureFromBMP(file).Height(), Sample.Groups[12].Images.begin()[image].Height);
    }
#ifndef _WIN32
    std::filesystem::resize_file(Folder / "IMG.1", INT32_MAX - 1);
    std::ofstream(Folder / "IMG.1", std::ios::app) << std::string("\4\1\0\0\0\0\0\0\0\0ABCD", 14);
    ReadImageArchive(Game, Groups);
    EXPECT_EQ(ReadImage(Game, Groups, 13, 0).at(1081), 'D'); // past 2 GiB
#endif
    Folder.Write("GAME.PAL", std::string(1157, '\x11'));
    ASSERT_TRUE(LoadPalette(Game));
    EXPECT_EQ(std::tuple(Palette[0].Red, Palette[0].Green, Palette[255].Red), std::tuple(0x11, 0, 0));
}

TEST_F(GameTest, MapsLieBehindOneAnother) {
    Sample.Maps[2][64 * 5 + 9] = {200, 100};
    Sample.Write(Folder, {1});
    std::vector<MapEntry> directory(9);
    ReadMapArchive(Game, directory);
    EXPECT_EQ(std::tuple(directory[2].Offset, directory[2].Size), std::tuple(16898, 8192));
    MapCellTable cells{};
    ReadMapCells(Game, directory[2], cells);
    std::filesystem::remove(Folder / "MAP.1");
    FailureOf([&] { ReadMapCells(Game, directory[0], cells); }); // leaves the cells
    EXPECT_EQ(std::tuple(cells[0].Plane0, cells[329].Plane0, cells[329].Plane1), std::tuple(2, 200, 100));
    for (const auto& [header, count] : {std::pair("\xFF\xFF", 0), {"", 0}, {"\1", 1}, {"\xFF\x7F", 32767}}) {
        Folder.Write("MAP.1", header);
        ReadMapArchive(Game, directory);
        EXPECT_EQ(std::ssize(directory), count);
    }
    ReadMapCells(Game, directory[32766], cells); // far past the end
    EXPECT_EQ(std::tuple(directory[32766].Offset, cells[329].Plane0), std::tuple(268419586, 0));
}

TEST_F(GameTest, SoundsAreRecognisedByTheirFirstBytes) {
    SoundTable entries;
    for (const char* cut : {"IB", "MTh", "Creative Voice Fil"}) {
        // Without a size, without an offset, with a negative one.
        Sample.Sounds = {{}, {SampleGame::Text("MThd"), 0, {}}, {{}, 4, 0}, {{}, 4, -5}};
        for (const char* text : {"IBK", "IBKMThd", "MThd", "Creative Voice File", "IBX", "MThx", " IBK"})
            Sample.Sounds.push_back({SampleGame::Text(text), {}, {}});
        Sample.Sounds.resize(159);
        Sample.Sounds.push_back({SampleGame::Text(cut), 40000, {}}); // the last bytes of the file
        Sample.Write(Folder, {});
        entries[159].Kind = SoundKind::Voc;
        ReadSoundArchive(Game, entries);
        std::string kinds;
        for (const SoundEntry& entry : entries) kinds += std::to_string(static_cast<int>(entry.Kind));
        EXPECT_EQ(kinds, "00001123" + std::string(152, '0')) << cut;
    }
    EXPECT_EQ(std::tuple(entries[3].Offset, entries[159].Size), std::tuple(-5, 40000));
    EXPECT_EQ(ReadSoundEntry(Game, entries[6]), SampleGame::Text("MThd"));
}

TEST_F(GameTest, PicturesHaveTheRowsOfTheirFileAndTheColoursOfThePalette) {
    Palette[1] = {0x33, 0x22, 0x11, 0};
    ByteVector file{1, 2, 1, 2, 2, 2};
    AddBMPHeader(3, 2, file);
    file[10] = 99;                // where the header says the pixels are does not count
    Palette[2] = {0, 0, 0xEE, 0}; // nor the colours inside
    const std::vector<Pixel> expected{0xFF112233, 0xFFEE0000, 0xFF112233, 0xFFEE0000, 0xFFEE0000, 0xFFEE0000};
    EXPECT_EQ(PictureFromBMP(file).Pixels(), expected);
    file[28] = 24;
    EXPECT_EQ(PictureFromBMP(file).Pixels(), std::vector<Pixel>(6, Black));
}

TEST_F(GameTest, SymbolsAreDefinedAsWritten) {
    const std::vector<Pixel> colors{0x000000, 0x0000A8, 0x00A800, 0x00A8A8, 0xA80000, 0xA800A8,
                                    0xA85600, 0xA8A8A8, 0x565656, 0x5656FC, 0x56FC56, 0x56FCFC,
                                    0xFC5656, 0xFC56FC, 0xFCFC56, 0xFCFCFC};
    const Picture tile = MakeSymbolTile("0123456789ABCDEFabcdef" + std::string(27, '0'));
    for (std::size_t i = 0; i < 22; ++i) EXPECT_EQ(tile.Pixels()[i] & 0xFFFFFF, colors[i < 16 ? i : i - 6]);

    // The symbol of code 7 after loading a file, in which "R" stands for 48 digits.
    const auto loaded = [&](std::string text) {
        for (std::size_t at = 0; (at = text.find('R')) != std::string::npos;) text.replace(at, 1, 48, '4');
        Folder.Write("Episode3.tsd", text);
        EXPECT_TRUE(LoadMapSymbols(Folder.Path, 3));
        const MapSymbol& symbol = MapSymbols[0][7];
        EXPECT_EQ(symbol.Tile.At(6, 6), symbol.Defined ? 0xFFA80000 : White) << text;
        return symbol.Extra + "|" + symbol.Pattern + "|" + symbol.Name;
    };
    const std::string red(49, '4');
    EXPECT_EQ(loaded("[Plane 0]\r7= x ,R4, a, b\r7=2,R4,late"), " x |" + red + "| a, b");
    EXPECT_EQ(loaded("[Plane 0]\r7=x,R4zz,"), "x|" + red + "zz|");
    for (const char* text : {"[Plane 0]\r7=x,R,n", "[Plane 0]\r7=x,RG,n", "[Plane 0]\r7=x, R4,n",
                             "[Plane 0]\r7=x,R4", "[Plane 0]\r7=", "[Plane 0]\r07=x,R4,n",
                             "[plane 0]\r7=x,R4,n", "[Plane 1]\r7=x,R4,n\r0=,R4,zero\r255=,R4,last"})
        EXPECT_EQ(loaded(text), "|" + std::string(49, 'F') + "|Unknown") << text;
    EXPECT_EQ(MapSymbols[1][0].Name + MapSymbols[1][255].Name, "zerolast");
    EXPECT_TRUE(LoadMapSymbols(Folder.Path, 2)); // no file: nothing of another episode remains
    EXPECT_EQ(MapSymbols[1][255].Name, "Unknown");
    EXPECT_EQ(MapSymbols[1][0].Name + MapSymbols[1][0].Pattern, "Nothing" + std::string(49, '0'));
}

TEST_F(GameTest, Plane1IsPaintedOverPlane0WithoutItsTransparentPixels) {
    // Black and a dark grey within white.
    const std::string frame = "FFFFFFFF00008FF00008FF00008FF00008FF00008FFFFFFFF,";
    Folder.Write("Episode1.tsd", "[Plane 0]\r1=," + std::string(49, '2') + ",\r[Plane 1]\r5=," + frame);
    LoadMapSymbols(Folder.Path, 1);
    MapCellTable cells{};
    cells.fill({1, 0});
    cells[1] = {0, 0};
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
