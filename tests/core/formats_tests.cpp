#include "BMP.h"
#include "ExportNames.h"
#include "GameFile.h"
#include "ImageArchive.h"
#include "InterfaceFile.h"
#include "MapArchive.h"
#include "Palette.h"
#include "SampleGame.h"
#include "SoundArchive.h"

#include <gtest/gtest.h>

#include <limits>

namespace morvane {
namespace {

GameFolder GameIn(const TempFolder& folder, int episode = 1) { return {folder.Path, episode, "viewer"}; }

std::uint32_t NumberAt(const ByteVector& bytes, std::size_t position) {
    return static_cast<std::uint32_t>(GameFile::LongAt(ConstBytes(bytes).subspan(position)));
}

TEST(GameFolder, PathsGetOneSeparatorAndTheEpisode) {
    struct Case {
        std::string GamePath;
        const char* Name;
        int Episode;
        std::string Path;
    };
#ifdef _WIN32
    const std::string root = "D:", separator = "\\";
#else
    const std::string root, separator = "/";
#endif
    const std::string game = root + separator + "game", in = game + separator;
    for (const Case& c :
         {Case{game, "GAME.PAL", EpisodeInUse, in + "GAME.PAL"}, Case{in, "GAME.PAL", 2, in + "GAME.PAL"},
          Case{root + separator, "GAME.PAL", 1, root + separator + "GAME.PAL"},
          Case{"", "UIF.DAT", EpisodeInUse, separator + "UIF.DAT"},
          Case{game, "IMG.%EP%", EpisodeInUse, in + "IMG.3"}, Case{game, "MAP.%EP%", 2, in + "MAP.2"},
          Case{game, "MAP.%EP%", 0, in + "MAP.0"}, Case{game, "%EP%-%EP%%EP%", -7, in + "-7--7-7"},
          Case{in + "%EP%", "img.%ep%", EpisodeInUse, in + "%EP%" + separator + "img.%ep%"}}) {
        const GameFolder folder{c.GamePath, 3, "viewer"};
        EXPECT_EQ(folder.GameFilePath(c.Name, c.Episode), c.Path);
    }
}

TEST(GameFile, NotFoundNamesThePathAsBuilt) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "MAP.2");
    const GameFolder game = GameIn(folder, 2);
    std::vector<std::pair<std::string, std::string>> cases{{"GAME.PAL", "GAME.PAL"}, {"MAP.%EP%", "MAP.2"}};
#ifndef _WIN32
    folder.Write(".PAL", "x");
    cases.emplace_back(".PAL", ".PAL");
#endif
    for (const auto& [name, file] : cases) {
        const Failure failure = FailureOf([&, n = name] { GameFile(game, n); });
        EXPECT_EQ(failure.Number, 53);
        EXPECT_EQ(failure.Source, "viewer");
        EXPECT_EQ(failure.Description, folder / file + " not found.");
        EXPECT_FALSE(FileExists(folder / file));
    }
}

TEST(GameFile, ReadsZerosOutsideTheFile) {
    const TempFolder folder;
    folder.Write("game.pal", ByteVector{1, 2, 3, 0xFF, 0xFF}); // found in another case
    GameFile file(GameIn(folder), "GAME.PAL");
    EXPECT_EQ(file.Word(0), 0x0201);
    EXPECT_EQ(file.Long(1), -64766); // 02 03 FF FF
    EXPECT_EQ(file.Long(2), 0x00FFFF03);
    EXPECT_EQ(file.Byte(-1), 0);
    EXPECT_EQ(file.Word(-1), 0x0100);
    EXPECT_EQ(file.Word(4), 0x00FF);
    for (const std::int64_t far :
         {std::int64_t{5}, std::int64_t{1} << 40, std::numeric_limits<std::int64_t>::min()}) {
        ByteVector bytes(3, 9);
        file.Read(far, bytes);
        EXPECT_EQ(bytes, (ByteVector{0, 0, 0})) << far;
    }
    ByteVector across(8, 9);
    file.Read(-2, across);
    EXPECT_EQ(across, (ByteVector{0, 0, 1, 2, 3, 0xFF, 0xFF, 0}));
}

TEST(GameFile, WindowsGiveTheBytesOfTheirPlaceInAnyOrder) {
    const TempFolder folder;
    ByteVector bytes(300'000);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 2654435761U >> 13);
    folder.Write("GAME.PAL", bytes);
    GameFile file(GameIn(folder), "GAME.PAL");
    for (const std::size_t step : {1U, 1034U, 5000U, 65035U})
        for (std::size_t p = 0; p + 4 < bytes.size(); p += step)
            ASSERT_EQ(file.Byte(static_cast<int>(p)), bytes[p]);
    for (std::size_t p = bytes.size() - 4; p > 4096; p -= 997)
        ASSERT_EQ(static_cast<std::uint32_t>(file.Long(static_cast<int>(p))), NumberAt(bytes, p));
}

TEST(Palette, TakesTriplesUnchangedFromTheirPlace) {
    const TempFolder folder;
    ByteVector bytes(1924, 0xEE);
    for (std::size_t i = 1156; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i);
    bytes[1156] = 0x11;
    bytes[1157] = 0x22;
    bytes[1158] = 0x33;
    folder.Write("GAME.PAL", bytes);
    ASSERT_TRUE(LoadPalette(GameIn(folder)));
    EXPECT_EQ(Palette[0].Blue, 0x33);
    EXPECT_EQ(Palette[0].Green, 0x22);
    EXPECT_EQ(Palette[0].Red, 0x11);
    EXPECT_EQ(Palette[255].Red, bytes[1921]);
    EXPECT_EQ(Palette[255].Blue, bytes[1923]);
    EXPECT_EQ(Palette[255].Reserved, 0);

    FailureOf([] { LoadPalette({"/missing folder", 1, ""}); });
    EXPECT_EQ(Palette[0].Red, 0x11);

    bytes.resize(1157); // all but the first byte is missing
    folder.Write("GAME.PAL", bytes);
    ASSERT_TRUE(LoadPalette(GameIn(folder)));
    EXPECT_EQ(Palette[0].Red, 0x11);
    EXPECT_EQ(Palette[0].Green, 0);
    EXPECT_EQ(Palette[255].Red, 0);
}

TEST(InterfaceFile, ReadsUnsignedSizesAndSignedOffsets) {
    const TempFolder folder;
    ByteVector bytes{5, 0, 0x10, 0x27, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    folder.Write("UIF.DAT", bytes);
    InterfaceTable entries;
    entries[31].Size = 9;
    ASSERT_TRUE(LoadInterfaceFile(GameIn(folder), entries));
    EXPECT_EQ(entries[0].Size, 5U);
    EXPECT_EQ(entries[0].Offset, 10000);
    EXPECT_EQ(entries[1].Size, 65535U);
    EXPECT_EQ(entries[1].Offset, -1);
    EXPECT_EQ(entries[31].Size, 0U);
}

TEST(ImageArchive, ReadsTheDirectory) {
    const TempFolder folder;
    SampleGame sample;
    sample.Groups.clear();
    for (const int group : {2, 5, 6, 7, 9, 511}) sample.Groups[group] = SampleGame::MakeGroup(group % 100, 2);
    sample.Groups[6].SharesLower = true;
    sample.Groups[8].Offset = -5;
    const std::int32_t first = 2048 + 512 * 90;
    sample.Groups[9].Offset = first; // group 2's, and not its neighbour's
    sample.Groups[2].Images[0] = {3, 2, 0x01020304, 0xFFFFFFFE, ByteVector{1, 3, 5, 2, 4, 6}};
    sample.Write(folder, {1});
    ImageGroups groups;
    groups[1].Duplicate = true;
    groups[1].Images.resize(4);
    ReadImageArchive(GameIn(folder), groups);

    EXPECT_EQ(groups[1].Images.size(), 4U); // absent: left as it was
    EXPECT_TRUE(groups[1].Duplicate);
    EXPECT_EQ(groups[2].Offset, first);
    EXPECT_EQ(groups[2].Codes[0], 2);
    EXPECT_EQ(groups[2].Codes[2], 2);
    ASSERT_EQ(groups[2].Images.size(), 2U);
    EXPECT_EQ(groups[2].Images[0].DataOffset, static_cast<std::uint32_t>(first + 10));
    EXPECT_EQ(groups[2].Images[0].Unknown1, 0x01020304U);
    EXPECT_EQ(groups[2].Images[0].Unknown2, 0xFFFFFFFEU);
    EXPECT_EQ(groups[2].Images[1].DataOffset, static_cast<std::uint32_t>(first + 26));
    EXPECT_FALSE(groups[5].Duplicate);
    EXPECT_TRUE(groups[6].Duplicate);
    EXPECT_EQ(groups[6].Images.size(), 2U);
    EXPECT_FALSE(groups[7].Duplicate);
    EXPECT_EQ(groups[8].Offset, -5);
    EXPECT_TRUE(groups[8].Images.empty());
    EXPECT_FALSE(groups[9].Duplicate);
    EXPECT_EQ(groups[511].Images.size(), 2U);
}

TEST(ImageArchive, DecodesColumnsIntoTheBytesOfABMPFile) {
    const TempFolder folder;
    SampleGame sample;
    sample.Colors[0] = {0x11, 0x22, 0x33};
    sample.Colors[255] = {0xAA, 0xBB, 0xCC};
    encode::Group group;
    group.Images = {
        {3, 2, 0, 0, {1, 3, 5, 2, 4, 6}}, {1, 1, 0, 0, {7}}, {4, 1, 0, 0, {9, 8, 7, 6}}, {0, 9, 0, 0, {}}};
    sample.Groups = {{12, group}};
    sample.Write(folder, {1});
    const GameFolder game = GameIn(folder);
    LoadPalette(game);
    ImageGroups groups;
    ReadImageArchive(game, groups);

    ByteVector expected(1086, 0);
    const ByteVector header{'B', 'M', 0x3E, 4, 0, 0, 0, 0, 0, 0, 0x36, 4, 0, 0, 40,
                            0,   0,   0,    3, 0, 0, 0, 2, 0, 0, 0,    1, 0, 8, 0};
    std::copy(header.begin(), header.end(), expected.begin());
    for (std::size_t i = 0; i < 256; ++i) {
        expected[54 + 4 * i] = sample.Colors[i].Blue;
        expected[55 + 4 * i] = sample.Colors[i].Green;
        expected[56 + 4 * i] = sample.Colors[i].Red;
    }
    const ByteVector rows{2, 4, 6, 0, 1, 3, 5, 0};
    std::copy(rows.begin(), rows.end(), expected.begin() + 1078);
    EXPECT_EQ(ReadImage(game, groups, 12, 0), expected);
    EXPECT_EQ(expected[54], 0x33);
    EXPECT_EQ(expected[1074], 0xCC);

    const auto pixelsOf = [&](int image) {
        const ByteVector file = ReadImage(game, groups, 12, image);
        EXPECT_EQ(NumberAt(file, 2), file.size());
        return ByteVector(file.begin() + 1078, file.end());
    };
    EXPECT_EQ(pixelsOf(1), (ByteVector{7, 0, 0, 0}));
    EXPECT_EQ(pixelsOf(2), (ByteVector{9, 8, 7, 6}));
    EXPECT_TRUE(pixelsOf(3).empty()); // no width: no rows

    for (const auto& [g, k] : {std::pair{12, 4}, {12, -1}, {-1, 0}, {512, 0}, {1, 0}})
        EXPECT_EQ(FailureOf([&, g = g, k = k] { ReadImage(game, groups, g, k); }).Number, 9);
}

TEST(ImageArchive, DecodesEverySizeLikeAPlainLoop) {
    const TempFolder folder;
    std::uint32_t state = 1;
    for (const auto& [width, height] :
         {std::pair{1, 255}, {255, 1}, {255, 255}, {16, 16}, {17, 33}, {64, 64}, {5, 200}}) {
        SampleGame sample;
        encode::Image image{static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height), 0, 0, {}};
        for (int i = 0; i < width * height; ++i)
            image.Pixels.push_back(static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24));
        encode::Group group;
        group.Images = {image};
        sample.Groups = {{1, group}};
        sample.Write(folder, {1});
        ImageGroups groups;
        ReadImageArchive(GameIn(folder), groups);
        const ByteVector file = ReadImage(GameIn(folder), groups, 1, 0);
        const auto w = static_cast<std::size_t>(width);
        const auto h = static_cast<std::size_t>(height);
        const std::size_t stride = (w + 3) & ~std::size_t{3};
        ASSERT_EQ(file.size(), 1078 + stride * h);
        for (std::size_t y = 0; y < h; ++y)
            for (std::size_t x = 0; x < stride; ++x)
                ASSERT_EQ(file[1078 + (h - 1 - y) * stride + x], x < w ? image.Pixels[y * w + x] : 0)
                    << width << "x" << height << " at " << x << ',' << y;
    }
}

TEST(ImageArchive, OffsetsBeyondTheFileGiveEmptyImages) {
    const TempFolder folder;
    SampleGame sample;
    sample.Groups[1].Offset = std::numeric_limits<std::int32_t>::max();
    sample.Groups[1].ImageCount = 255;
    sample.Groups[2].ImageCount = 255; // runs past the end
    sample.Groups[400].Offset = 5;     // within the directory itself
    sample.Groups[400].ImageCount = 255;
    sample.Write(folder, {1});
    ImageGroups groups;
    ReadImageArchive(GameIn(folder), groups);
    ASSERT_EQ(groups[1].Images.size(), 255U);
    EXPECT_EQ(groups[1].Images[1].DataOffset, 0x7FFFFFFFU + 20); // sizes of 0 x 0 behind 10-byte headers
    EXPECT_EQ(groups[1].Images[254].Width, 0);
    EXPECT_EQ(groups[2].Images[254].Width, 0);
    EXPECT_EQ(ReadImage(GameIn(folder), groups, 1, 254).size(), 1078U);
    for (int k = 0; k < 255; ++k) ReadImage(GameIn(folder), groups, 400, k);
}

TEST(MapArchive, ListsAndReadsMaps) {
    const TempFolder folder;
    SampleGame sample;
    sample.Maps[2][64 * 5 + 9] = {200, 100};
    sample.Write(folder, {2});
    const GameFolder game = GameIn(folder, 2);
    std::vector<MapEntry> directory(9);
    ReadMapArchive(game, directory);
    ASSERT_EQ(directory.size(), 3U);
    EXPECT_EQ(directory[0].Offset, 514);
    EXPECT_EQ(directory[1].Offset, 8706);
    EXPECT_EQ(directory[2].Offset, 16898);
    EXPECT_EQ(directory[2].Size, 8192);
    MapCellTable cells{};
    ReadMapCells(game, directory[2], cells);
    EXPECT_EQ(cells[0].Plane0, 2);
    EXPECT_EQ(cells[64 * 5 + 9].Plane0, 200);
    EXPECT_EQ(cells[64 * 5 + 9].Plane1, 100);

    for (const auto& [header, count] : {std::pair{ByteVector{0xFF, 0xFF}, 0},
                                        {ByteVector{0, 0}, 0},
                                        {ByteVector{}, 0},
                                        {ByteVector{0xFF, 0x7F}, 32767}}) {
        folder.Write("MAP.2", header);
        ReadMapArchive(game, directory);
        EXPECT_EQ(directory.size(), static_cast<std::size_t>(count));
    }
    ReadMapCells(game, directory[32766], cells); // far past the end
    EXPECT_EQ(cells[64 * 5 + 9].Plane0, 0);
}

TEST(SoundArchive, RecognisesPresentEntriesByTheirFirstBytes) {
    const TempFolder folder;
    SampleGame sample;
    sample.Sounds.assign(160, {});
    const auto put = [&](std::size_t n, const std::string& text) {
        sample.Sounds[n].Data = SampleGame::Text(text);
    };
    put(0, "IBK");
    put(1, "MThd");
    put(2, "Creative Voice File");
    put(3, "MThx");
    put(4, "creative voice file");
    put(5, "Creative Voice Fil");
    put(6, "IBKMThd");
    put(7, " IBK");
    put(159, "MThd tail");
    sample.Sounds[8] = {{'I', 'B', 'K'}, 0, {}}; // no size
    sample.Sounds[9] = {{}, 40000, 0};           // no offset
    sample.Sounds[10] = {{}, 1, -5};             // negative offset
    sample.Sounds[11] = {{}, 40000, 2000};       // past the end
    sample.Write(folder, {});
    const GameFolder game = GameIn(folder);
    SoundTable entries;
    for (SoundEntry& entry : entries) entry.Kind = SoundKind::Voc;
    ReadSoundArchive(game, entries);

    std::map<std::size_t, SoundKind> recognised;
    for (std::size_t n = 0; n < entries.size(); ++n)
        if (entries[n].Kind != SoundKind::None) recognised[n] = entries[n].Kind;
    EXPECT_EQ(recognised, (std::map<std::size_t, SoundKind>{{0, SoundKind::InstBank},
                                                            {1, SoundKind::Midi},
                                                            {2, SoundKind::Voc},
                                                            {6, SoundKind::InstBank},
                                                            {159, SoundKind::Midi}}));
    EXPECT_EQ(entries[11].Size, 40000);
    EXPECT_EQ(entries[10].Offset, -5);
    EXPECT_EQ(ReadSoundEntry(game, entries[159]), sample.Sounds[159].Data);
    EXPECT_EQ(ReadSoundEntry(game, {65535, 960, SoundKind::Midi}).size(), 65535U);
}

TEST(ExportNames, AreThoseOfTheLists) {
    EXPECT_EQ(PadNumber(7, 3), "007");
    EXPECT_EQ(PadNumber(0, 2), "00");
    EXPECT_EQ(PadNumber(123, 2), "123");
    EXPECT_EQ(PictureFileName({"", 1, ""}, 12, 0), "Picture 1-012-01.bmp");
    EXPECT_EQ(PictureFileName({"", 3, ""}, 7, 104), "Picture 3-007-105.bmp");
    EXPECT_EQ(SoundFileName(SoundKind::Midi, 7), "Song 007.mid");
    EXPECT_EQ(SoundFileName(SoundKind::Voc, 159), "Sound 159.voc");
    EXPECT_EQ(SoundFileName(SoundKind::InstBank, 3), "Morvane.ibk");
    EXPECT_EQ(SoundFileName(SoundKind::None, 3), "");
}

} // namespace
} // namespace morvane
