#include "FolderDialog.h"
#include "TestWindow.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvane {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool Sanitized = true;
#else
constexpr bool Sanitized = false;
#endif

// What an action took, in seconds of this process and megabytes of its peak. The sanitizers' own needs do not
// count.
void ExpectSmall(const std::string& what, const std::function<void()>& action) {
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    action();
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    const auto seconds = [](const rusage& usage) {
        return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
               static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    };
    if (Sanitized) return;
    EXPECT_LT(seconds(after) - seconds(before), 1.0) << what;
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 100 * 1024) << what;
}

// Makes a file that long without writing what lies between.
void Stretch(const std::string& path, std::int64_t length) { ASSERT_EQ(truncate(path.c_str(), length), 0); }

void WriteAt(const std::string& path, std::int64_t position, const ByteVector& bytes) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(position);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

TEST(Extremes, TheLargestNumberOfMaps) {
    TestWindow test;
    test.Sample.Write(test.GameDir);
    test.GameDir.Write("MAP.1",
                       encode::EncodeMapArchive(test.Sample.Maps, {}, static_cast<std::int16_t>(32767)));
    test.Remember(test.GameDir.Path);
    ExpectSmall("32,767 maps", [&] {
        frmMain& window = test.Start();
        EXPECT_EQ(window.lstMap->Count(), 32767);
        TestWindow::Press(*window.lstMap, "End");
        EXPECT_EQ(window.lstMap->ListIndex(), 32766);
    });
    EXPECT_TRUE(test.TakeSeen().empty());
}

TEST(Extremes, TheLargestDirectory) {
    TestWindow test;
    test.Sample.Groups.clear();
    constexpr std::int32_t First = 2048 + 512 * 90;
    constexpr std::int32_t Record = 10 + 255 * 255;
    for (int g = 1; g < 512; ++g) {
        test.Sample.Groups[g].ImageCount = 255;
        test.Sample.Groups[g].Offset = First + g % 2 * Record; // neighbours differ
    }
    test.Sample.Write(test.GameDir);
    const std::string archive = test.GameDir / "IMG.1";
    Stretch(archive, First + std::int64_t{257} * Record);
    for (int k = 0; k < 256; ++k) WriteAt(archive, First + std::int64_t{k} * Record, {255, 255});
    test.Remember(test.GameDir.Path);
    ExpectSmall("511 groups of 255 images", [&] {
        frmMain& window = test.Start();
        EXPECT_EQ(window.lstGroup->Count(), 511);
        EXPECT_EQ(window.lstImage->Count(), 255);
        EXPECT_EQ(window.pic->Image().size(), QSize(255, 255));
    });
    EXPECT_EQ(test.Window->Groups[511].Images[254].Height, 255);
}

TEST(Extremes, ArchivesBeyondTwoGiB) {
    for (const std::int64_t gib : {3, 5}) {
        TestWindow test;
        test.Sample.Groups[9].Offset = std::numeric_limits<std::int32_t>::max() - 9;
        test.Sample.Groups[9].ImageCount = 3;
        test.Sample.Groups[10].Offset = std::numeric_limits<std::int32_t>::max();
        test.Sample.Groups[10].ImageCount = 255;
        test.Sample.Sounds[5] = {{}, 4, std::numeric_limits<std::int32_t>::max() - 1};
        test.Sample.Write(test.GameDir);
        for (const char* name : {"IMG.1", "MAP.1", "SND.DAT", "UIF.DAT", "GAME.PAL"})
            Stretch(test.GameDir / name, gib << 30);
        constexpr std::int64_t Start = std::numeric_limits<std::int32_t>::max() - 9;
        WriteAt(test.GameDir / "IMG.1", Start,
                {2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 200, 100, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 50});
        WriteAt(test.GameDir / "SND.DAT", std::numeric_limits<std::int32_t>::max() - 1, {'M', 'T', 'h', 'd'});
        test.Remember(test.GameDir.Path);
        ExpectSmall("an archive of several GiB", [&] {
            frmMain& window = test.Start();
            EXPECT_TRUE(test.TakeSeen().empty());
            TestWindow::Click(*window.lstGroup, 3);
            EXPECT_EQ(window.pic->Image().pixel(0, 0), qRgb(200, 55, 100));
            TestWindow::Click(*window.lstImage, 1); // wholly past 2 GiB
            EXPECT_EQ(window.pic->Image().pixel(0, 0), qRgb(50, 205, 25));
        });
    }
}

TEST(Extremes, AnArrowKeyHeldDownThroughDamagedImages) {
    TestWindow test;
    test.Sample.Groups[2].ImageCount = 255;
    test.Sample.Groups[2].Offset = 60; // within the directory: sizes and pixels of chance
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    window.lstImage->setFocus();
    ExpectSmall("255 damaged images", [&] {
        for (int i = 0; i < 260; ++i) QTest::keyClick(window.lstImage, Qt::Key_Down);
    });
    EXPECT_TRUE(test.TakeSeen().empty());
    EXPECT_EQ(window.lstImage->ListIndex(), 254);
    std::filesystem::remove(test.GameDir / "IMG.1");
    for (int i = 0; i < 3; ++i) QTest::keyClick(window.lstImage, Qt::Key_Up);
    EXPECT_EQ(test.TakeSeen().size(), 3U); // one box for each key, and the entry shown stays
    EXPECT_EQ(window.lstImage->ListIndex(), 254);
}

TEST(Extremes, HugeSymbolFiles) {
    constexpr std::size_t Size = 50'000'000;
    for (const std::string start : {"", "[", "; ", "[Plane 0]\r\n7="}) {
        TestWindow test;
        test.Sample.Write(test.GameDir);
        test.Remember(test.GameDir.Path);
        test.ProgramFolder.Write("Episode1.tsd", start);
        Stretch(test.ProgramFolder / "Episode1.tsd", Size);
        ExpectSmall("a symbol file without a line end, " + start, [&] { test.Start(); });
        EXPECT_TRUE(test.TakeSeen().empty());
        EXPECT_EQ(test.Window->picMap->Image().pixel(0, 0), 0xFF000000);
    }
}

TEST(Extremes, SettingsThatAreNoFile) {
    TestWindow test;
    test.Sample.Write(test.GameDir);
    test.Folders = {test.GameDir.Path};
    ASSERT_EQ(mkfifo(test.SettingsPath().c_str(), 0600), 0);
    test.Start(); // neither reading nor writing waits for the other end
    const auto seen = test.TakeSeen();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].Text, "Select the Morvane Folder");
    EXPECT_EQ(seen[1].Title, "Could not save INI file.");
    EXPECT_TRUE(test.Window->fra[0]->isEnabled());
}

TEST(Extremes, FolderNamesAreRememberedByteForByte) {
    const TempFolder parent;
    for (const std::string name :
         {"line\nend", "quote\"'`", "100%EP%25%s", "caf\xE9\xFF", "-rf *", "a=b;[c]", " blank "}) {
        TestWindow test;
        test.Sample.Write(test.GameDir);
        const std::string folder = parent / name;
        std::filesystem::create_directory(folder);
        std::filesystem::create_directory_symlink(folder, folder + " link");
        for (const std::string& path : {folder, folder + " link"}) {
            test.Sample.Write(test.GameDir);
            for (const auto& file : std::filesystem::directory_iterator(test.GameDir.Path))
                std::filesystem::copy_file(file.path(),
                                           std::filesystem::path(folder) / file.path().filename(),
                                           std::filesystem::copy_options::overwrite_existing);
            frmMain& window = test.StartOnSample();
            window.Game.GamePath = path; // where the dialog of File > Open starts
            test.Answer = [&](QWidget& dialog) {
                QTest::keyClick(dialog.findChild<QTreeWidget*>(), Qt::Key_Return);
                return true;
            };
            TestWindow::Press(window, "Ctrl+O");
            EXPECT_EQ(window.Game.GamePath, path);
            window.close();
            EXPECT_EQ(TextOf(test.SettingsPath()), "[Settings]\r\nOpenPath=" + path + "\r\n");
            EXPECT_EQ(test.Start().lstMap->Count(), 3) << path;
            EXPECT_EQ(test.Window->Game.GamePath, path);
            EXPECT_TRUE(test.TakeSeen().empty());
        }
    }
}

TEST(Extremes, ANameThatWouldBreakTheSettingsIsRefused) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    const std::string settings = TextOf(test.SettingsPath());
    const TempFolder parent;
    std::filesystem::create_directory(parent / "a\rb");
    std::filesystem::copy(test.GameDir.Path, parent / "a\rb");
    window.Game.GamePath = parent / "a\rb";
    EXPECT_TRUE(window.OpenGameFolder());
    const auto seen = test.TakeSeen();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].Title, "Could not save INI file.");
    EXPECT_EQ(TextOf(test.SettingsPath()), settings);
}

TEST(Extremes, VeryLongPathsFitOnTheScreen) {
    TestWindow test;
    QSize box;
    test.Answer = [&](QWidget& dialog) {
        box = dialog.size();
        return false;
    };
    test.Remember("/" + std::string(4000, 'x'));
    test.Start();
    EXPECT_EQ(test.TakeSeen().size(), 1U);
    EXPECT_LT(box.width(), 900);
    EXPECT_LT(box.height(), 750);

    const TempFolder parent;
    std::string folder = parent.Path;
    while (folder.size() < 3900) folder += "/" + std::string(90, 'n');
    std::filesystem::create_directories(folder);
    test.Sample.Write(test.GameDir);
    for (const auto& file : std::filesystem::directory_iterator(test.GameDir.Path))
        std::filesystem::copy_file(file.path(), std::filesystem::path(folder) / file.path().filename());
    test.Remember(folder);
    EXPECT_EQ(test.Start().lstMap->Count(), 3);
    EXPECT_TRUE(test.TakeSeen().empty());
}

} // namespace
} // namespace morvane
