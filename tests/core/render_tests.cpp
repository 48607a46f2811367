#include "BMP.h"
#include "Failure.h"
#include "MapDrawing.h"
#include "MapSymbols.h"
#include "Palette.h"
#include "PictureFromBMP.h"
#include "TempFolder.h"
#include "TransparentPicture.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(PictureFromBMP, TakesRowsFromTheirFixedPlaceAndColoursFromThePalette) {
    Palette.fill({});
    Palette[1] = {0x33, 0x22, 0x11, 0};
    Palette[2] = {0, 0, 0xFF, 0};
    ByteVector file{1, 2, 1, 2, 2, 2}; // 3 x 2
    AddBMPHeader(3, 2, file);
    file[10] = 99;         // where the header says the pixels are does not count
    Palette[2].Red = 0xEE; // nor the colours inside
    const Picture picture = PictureFromBMP(file);
    ASSERT_EQ(picture.Width(), 3);
    ASSERT_EQ(picture.Height(), 2);
    const std::vector<Pixel> expected{0xFF112233, 0xFFEE0000, 0xFF112233, 0xFFEE0000, 0xFFEE0000, 0xFFEE0000};
    EXPECT_EQ(std::vector<Pixel>(picture.Pixels().begin(), picture.Pixels().end()), expected);

    file[28] = 24;
    EXPECT_EQ(PictureFromBMP(file).Pixels()[0], 0xFF000000U);
    file[28] = 8;
    EXPECT_EQ(FailureOf([&] { PictureFromBMP(ConstBytes(file).first(file.size() - 1)); }).Number, 9);
    EXPECT_EQ(FailureOf([&] { PictureFromBMP(ConstBytes(file).first(20)); }).Number, 9);
    file[21] = 0x80; // a negative width
    EXPECT_EQ(FailureOf([&] { PictureFromBMP(file); }).Number, 9);

    ByteVector empty;
    AddBMPHeader(0, 7, empty);
    EXPECT_TRUE(PictureFromBMP(empty).Empty());
}

TEST(TransparentPicture, LeavesOutOneColourOfARectangle) {
    Picture source(3, 3);
    for (std::size_t i = 0; i < 9; ++i)
        source.Pixels()[i] = i % 2 == 0 ? 0xFF000000U : 0xFF000000U + static_cast<Pixel>(i);
    Picture destination(4, 3);
    std::ranges::fill(destination.Pixels(), 0xFFFFFFFFU);
    AddTransparentPicture(destination, 1, 1, 2, 2, source, 1, 1, 0xFF000000U);
    const std::vector<Pixel> expected{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF,
                                      0xFF000005, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000007, 0xFFFFFFFF, 0xFFFFFFFF};
    EXPECT_EQ(std::vector<Pixel>(destination.Pixels().begin(), destination.Pixels().end()), expected);
}

TEST(MapSymbols, EveryDigitHasItsColour) {
    InitSymbolColors();
    EXPECT_EQ(TransparentColor, 0U);
    const std::string digits = "0123456789ABCDEFabcdef";
    const std::vector<Pixel> colors{0xFF000000, 0xFF0000A8, 0xFF00A800, 0xFF00A8A8, 0xFFA80000, 0xFFA800A8,
                                    0xFFA85600, 0xFFA8A8A8, 0xFF565656, 0xFF5656FC, 0xFF56FC56, 0xFF56FCFC,
                                    0xFFFC5656, 0xFFFC56FC, 0xFFFCFC56, 0xFFFCFCFC};
    for (std::size_t i = 0; i < digits.size(); ++i) {
        std::string pattern(49, '0');
        pattern[7 * 2 + 5] = digits[i]; // row 2, column 5
        const std::optional<Picture> tile = MakeSymbolTile(pattern + "ignored");
        ASSERT_TRUE(tile);
        EXPECT_EQ(*tile->At(5, 2), colors[i < 16 ? i : i - 6]) << digits[i];
        EXPECT_EQ(*tile->At(2, 5), 0xFF000000U);
    }
    EXPECT_FALSE(MakeSymbolTile(std::string(48, '0')));
    EXPECT_FALSE(MakeSymbolTile(std::string(48, '0') + "G"));
    EXPECT_FALSE(MakeSymbolTile(std::string(" ").append(48, '0')));
}

TEST(MapSymbols, DefinitionsAreReadAsWritten) {
    const TempFolder folder;
    const std::string red(49, '4');
    folder.Write("Episode1.tsd", "7=outside," + red + ",ignored\r\n[Plane 0]\r\n; 1=a comment\r\n0=," + red +
                                     ",\r\n7= x ," + red + ", a, b\r\n7=second," + red + ",late\r\n08=x," +
                                     red + ",n\r\n9=\r\n10=x," + red + "\r\n11=x, " + red + ",n\r\n12=x," +
                                     red.substr(1) + ",n\r\n13=x," + red + "zz,long\r\n[plane 1]\r\n1=x," +
                                     red + ",n\r\n[Plane 1]\r\n255=x," + red + ",last\r\n");
    InitSymbolColors();
    ASSERT_TRUE(LoadMapSymbols(folder.Path, 1));
    const MapSymbol& seven = MapSymbols[0][7];
    EXPECT_TRUE(seven.Defined);
    EXPECT_EQ(seven.Extra, " x ");
    EXPECT_EQ(seven.Pattern, red);
    EXPECT_EQ(seven.Name, " a, b");
    EXPECT_EQ(seven.Tile.Pixels()[48], 0xFFA80000U);
    EXPECT_TRUE(MapSymbols[0][0].Defined);
    EXPECT_EQ(MapSymbols[0][0].Name, "");
    EXPECT_TRUE(MapSymbols[0][13].Defined);
    EXPECT_TRUE(MapSymbols[1][255].Defined);
    for (const auto& [plane, code] : {std::pair{0, 8}, {0, 9}, {0, 10}, {0, 11}, {0, 12}, {1, 1}}) {
        const MapSymbol& symbol = MapSymbols[static_cast<std::size_t>(plane)][static_cast<std::size_t>(code)];
        EXPECT_FALSE(symbol.Defined) << code;
        EXPECT_EQ(symbol.Name, "Unknown");
        EXPECT_EQ(symbol.Pattern, std::string(49, 'F'));
        EXPECT_EQ(symbol.Tile.Pixels()[0], 0xFFFCFCFCU);
    }

    ASSERT_TRUE(LoadMapSymbols(folder.Path, 2)); // no file: nothing of episode 1 remains
    EXPECT_FALSE(MapSymbols[0][7].Defined);
    EXPECT_EQ(MapSymbols[0][7].Tile.Pixels()[48], 0xFFFCFCFCU);
    EXPECT_EQ(MapSymbols[0][0].Name, "Nothing");
    EXPECT_EQ(MapSymbols[0][0].Tile.Pixels()[0], 0xFF000000U);
    EXPECT_EQ(MapSymbols[1][0].Name, "Nothing");
}

TEST(MapDrawing, PaintsPlane1OverPlane0WithoutItsTransparentPixels) {
    const TempFolder folder;
    std::string frame = "FFFFFFF";
    for (int row = 0; row < 5; ++row) frame += "F00008F"; // black and a dark grey inside
    frame += "FFFFFFF";
    folder.Write("Episode1.tsd", "[Plane 0]\r\n1=," + std::string(49, '2') + ",green\r\n[Plane 1]\r\n5=," +
                                     frame + ",frame\r\n");
    InitSymbolColors();
    LoadMapSymbols(folder.Path, 1);
    MapCellTable cells{};
    cells.fill({1, 0});
    cells[64 * 3 + 2] = {1, 5};
    cells[64 * 63 + 63] = {0, 6}; // an undefined code covers its cell
    cells[1] = {0, 0};
    Picture picture(MapPictureSide, MapPictureSide);
    DrawMapCells(cells, picture);
    constexpr Pixel Green = 0xFF00A800;
    constexpr Pixel White = 0xFFFCFCFC;
    EXPECT_EQ(*picture.At(0, 0), Green);
    EXPECT_EQ(*picture.At(7, 0), 0xFF000000U); // code 0 is painted on plane 0
    EXPECT_EQ(*picture.At(13, 6), 0xFF000000U);
    EXPECT_EQ(*picture.At(14, 0), Green);
    EXPECT_EQ(*picture.At(14, 21), White);
    EXPECT_EQ(*picture.At(15, 22), Green); // seen through
    EXPECT_EQ(*picture.At(19, 22), 0xFF565656U);
    EXPECT_EQ(*picture.At(20, 27), White);
    EXPECT_EQ(*picture.At(21, 27), Green);
    EXPECT_EQ(*picture.At(441, 441), White);
    EXPECT_EQ(*picture.At(447, 447), White);
    EXPECT_EQ(*picture.At(440, 447), Green);
}

} // namespace
} // namespace morvane
