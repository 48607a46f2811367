// A long random session: the real window, driven by random actions over good, damaged and missing folders,
// with what must always hold checked after each.
//
// usage: session_tests [ACTIONS [SEED]]

#include "MapDrawing.h"
#include "Palette.h"
#include "SaveScript.h"
#include "TestWindow.h"

#include <QApplication>
#include <QPixmapCache>
#include <QTest>
#include <gtest/gtest.h>

#include <iostream>
#include <random>

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT: the name is the sanitizer's
#else
#include <malloc.h>
#endif

namespace morvane {
namespace {

std::size_t LiveBytes() {
    QPixmapCache::clear(); // the toolkit's, which it keeps within bounds
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

std::ptrdiff_t OpenFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
}

class Session {
  public:
    explicit Session(unsigned seed) : Save(Test), Random(seed) {
        MakeGames();
        Main = &Test.StartOnSample();
    }

    void Act() {
        switch (Pick(20)) {
        case 0:
            Open();
            break;
        case 1: // an episode or a view, by its shortcut
        case 2:
        case 3:
            TestWindow::Press(*Main, Keys[Pick(Keys.size())]);
            break;
        case 4:
            ExportOne();
            break;
        case 5:
            ExportAll();
            break;
        default:
            Select();
            break;
        }
    }

    void Check() {
        const bool open = Main->mnuView->IsEnabled();
        int visible = -1;
        for (int i = 0; i < 3; ++i) {
            const auto view = static_cast<std::size_t>(i);
            ASSERT_EQ(Main->fra[view]->isEnabled(), open);
            ASSERT_EQ(Main->mnuViewFrame[view]->isChecked(), i == Main->CurrentView);
            ASSERT_EQ(Main->mnuViewEpisode[view]->isChecked(), i + 1 == Main->Game.CurrentEpisode);
            if (Main->fra[view]->isHidden()) continue;
            ASSERT_EQ(visible, -1) << "two frames are visible";
            visible = i;
        }
        ASSERT_EQ(visible, Main->CurrentView);
        ASSERT_EQ(Main->mnuFileExport->isEnabled(), open && Main->CurrentView != 0);
        ASSERT_EQ(Main->mnuFileExportAll->isEnabled(), open && Main->CurrentView != 0);
        ASSERT_EQ(QApplication::overrideCursor(), nullptr);
        ASSERT_EQ(QApplication::activeModalWidget(), nullptr);
        if (open) CheckPictures();
    }

    // How many dialogs and boxes there were since the last call.
    std::size_t TakeSeen() {
        const std::size_t count = Test.TakeSeen().size() + Save.Seen.size() + Save.Questions.size();
        Save.Seen = {};
        Save.Questions = {};
        return count;
    }

  private:
    std::size_t Pick(std::size_t count) { return Random() % count; }

    // Good games, a cut one, one without entries, one without its second episode, and one with a file
    // missing.
    void MakeGames() {
        Test.Sample.Maps.resize(40);
        for (encode::Map& map : Test.Sample.Maps)
            for (encode::MapCell& cell : map)
                cell = {static_cast<std::uint8_t>(Pick(256)), static_cast<std::uint8_t>(Pick(9))};
        for (int i = 0; i < 6; ++i) Games.push_back(std::make_unique<TempFolder>());
        for (const auto& folder : Games) Test.Sample.Write(*folder);
        std::filesystem::resize_file(*Games[1] / "IMG.1", 48'200);
        std::filesystem::resize_file(*Games[1] / "MAP.2", 9'000);
        std::filesystem::resize_file(*Games[1] / "SND.DAT", 970);
        std::filesystem::resize_file(*Games[1] / "GAME.PAL", 1'300);
        std::filesystem::resize_file(*Games[2] / "IMG.1", 0);
        std::filesystem::resize_file(*Games[3] / "MAP.3", 1);
        std::filesystem::remove(*Games[4] / "IMG.2");
        std::filesystem::remove(*Games[5] / "UIF.DAT");
    }

    void Open() {
        const std::size_t choice = Pick(Games.size() + 2);
        if (choice < Games.size()) Test.Folders = {Games[choice]->Path};
        if (choice == Games.size()) Test.Folders = {Games[0]->Path + "//"};
        TestWindow::Press(*Main, "Ctrl+O"); // the last choice: cancelled
        Test.Folders.clear();
    }

    void ExportOne() {
        if (Pick(3) != 0) Save.Names = {"out.x"};
        Main->mnuFileExport->trigger();
        Save.Names.clear();
    }

    void ExportAll() {
        if (Pick(3) != 0) Test.Folders = {Target.Path};
        Main->mnuFileExportAll->trigger();
        Test.Folders.clear();
    }

    void Select() {
        const std::array lists{Main->lstMap, Main->lstGroup, Main->lstImage, Main->lstSound};
        ui::ListBox& list = *lists[Pick(lists.size())];
        if (!list.isVisible() || !list.isEnabled()) return;
        constexpr std::array Moves{Qt::Key_Up,     Qt::Key_Down, Qt::Key_Home,  Qt::Key_End,
                                   Qt::Key_PageUp, Qt::Key_Tab,  Qt::Key_Space, Qt::Key_G};
        if (Pick(2) == 0 || list.Count() == 0)
            QTest::keyClick(&list, Moves[Pick(Moves.size())]);
        else
            TestWindow::Click(list, static_cast<int>(Pick(static_cast<std::size_t>(list.Count()))));
    }

    // The pictures shown are those of the entries selected, read here from the files.
    void CheckPictures() {
        if (Main->lstMap->ListIndex() >= 0) {
            ByteVector archive = BytesOf(Main->Game.GameFilePath("MAP.%EP%"));
            const auto start = 514 + 8192 * static_cast<std::size_t>(Main->lstMap->ListIndex());
            archive.resize(std::max(archive.size(), start + 8192), 0);
            MapCellTable cells{};
            for (std::size_t i = 0; i < cells.size(); ++i)
                cells[i] = {archive[start + 2 * i], archive[start + 2 * i + 1]};
            Picture expected(MapPictureSide, MapPictureSide);
            DrawMapCells(cells, expected);
            const QImage& shown = Main->picMap->Image();
            ASSERT_TRUE(std::equal(expected.Pixels().begin(), expected.Pixels().end(),
                                   reinterpret_cast<const Pixel*>(shown.constBits())));
        }
        if (Main->lstImage->ListIndex() < 0) return;
        const int group = Main->lstGroup->SelectedData();
        ByteVector archive = BytesOf(Main->Game.GameFilePath("IMG.%EP%"));
        archive.resize(std::max<std::size_t>(archive.size(), 60'000), 0);
        const ImageEntry& image = Main->Groups[static_cast<std::size_t>(group)]
                                      .Images[static_cast<std::size_t>(Main->lstImage->ListIndex())];
        const QImage& shown = Main->pic->Image();
        if (image.Width == 0 || image.Height == 0) {
            ASSERT_TRUE(shown.isNull());
            return;
        }
        ASSERT_EQ(shown.size(), QSize(image.Width, image.Height));
        for (int x = 0; x < image.Width; ++x)
            for (int y = 0; y < image.Height; ++y) {
                const std::uint8_t index =
                    archive[image.DataOffset + static_cast<std::size_t>(x * image.Height + y)];
                const PaletteEntry& color = Palette[index];
                ASSERT_EQ(shown.pixel(x, y), qRgb(color.Red, color.Green, color.Blue));
            }
        ASSERT_EQ(Main->txt->toPlainText().left(4).toInt(nullptr, 16), group);
    }

    static constexpr std::array Keys{"Ctrl+Shift+F1", "Ctrl+Shift+F2", "Ctrl+Shift+F3", "Ctrl+M",
                                     "Ctrl+W",        "Ctrl+W",        "Ctrl+D",        "Ctrl+M"};
    TestWindow Test;
    frmMain* Main;
    SaveScript Save;
    std::mt19937 Random;
    std::vector<std::unique_ptr<TempFolder>> Games;
    TempFolder Target;
};

TEST(Session, HoldsItsInvariants) {
    const std::vector<std::string>& arguments = TestArguments();
    const int actions = arguments.empty() ? 3000 : std::stoi(arguments[0]);
    const unsigned seed = arguments.size() < 2 ? 1 : static_cast<unsigned>(std::stoul(arguments[1]));
    std::cout << actions << " actions, seed " << seed << std::endl;
    Session session(seed);
    std::size_t early = 0;
    const std::ptrdiff_t files = OpenFiles();
    std::size_t boxes = 0;
    for (int i = 0; i < actions; ++i) {
        session.Act();
        boxes += session.TakeSeen();
        session.Check();
        if (HasFatalFailure()) FAIL() << "after action " << i << " of seed " << seed;
        if (i == actions / 4) early = LiveBytes();
    }
    EXPECT_LE(OpenFiles(), files + 2); // the toolkit may open one of its own
    const std::size_t late = LiveBytes();
    EXPECT_LT(late, early + (1U << 20)) << "memory grew from " << early << " bytes";
    std::cout << boxes << " dialogs and boxes; " << early << " live bytes after a quarter, " << late
              << " at the end\n";
}

} // namespace
} // namespace morvane
