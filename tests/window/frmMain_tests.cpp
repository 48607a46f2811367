#include "FolderDialog.h"
#include "MapSymbols.h"
#include "Palette.h"
#include "TestWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace morvane {
namespace {

constexpr const char* Empty = "frames 000 view 0 exports 00 visible 100 views 000 episodes 000 filled 000000";
constexpr const char* JustOpened =
    "frames 111 view 1 exports 00 visible 100 views 100 episodes 100 filled 111111";

std::vector<std::string> Texts(const ui::ListBox& list) {
    std::vector<std::string> texts;
    for (const ui::ListItem& item : list.Items()) texts.push_back(item.Text);
    return texts;
}

std::string NotFound(const std::string& path) { return "Error: 53\nDescription: " + path + " not found."; }

// One critical box with these two lines, its owner in this state, and the pointer normal.
void ExpectError(TestWindow& test, const std::string& text) {
    const std::vector<SeenDialog> seen = test.TakeSeen();
    ASSERT_EQ(seen.size(), 1U) << text;
    EXPECT_EQ(seen[0].Title, "Error");
    EXPECT_EQ(seen[0].Text, text);
    EXPECT_EQ(seen[0].Icon, QMessageBox::Critical);
    EXPECT_FALSE(seen[0].Busy);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(Layout, EveryWidgetStandsInItsPlace) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    EXPECT_EQ(window.windowTitle(), "Morvane Extractor - 1.0.0");
    EXPECT_EQ(window.centralWidget()->size(), QSize(617, 488));
    struct Place {
        const QWidget* Widget;
        const QWidget* Parent;
        QRect Rect;
    };
    const QWidget* maps = window.fra[0];
    const QWidget* images = window.fra[1];
    const std::vector<Place> places{{window.fra[0], window.centralWidget(), {8, 8, 601, 473}},
                                    {window.fra[1], window.centralWidget(), {8, 8, 601, 473}},
                                    {window.fra[2], window.centralWidget(), {8, 8, 601, 473}},
                                    {window.lstMap, maps, {8, 16, 129, 446}},
                                    {window.picMap, maps, {144, 16, 448, 448}},
                                    {window.lstGroup, images, {8, 16, 81, 446}},
                                    {window.lstImage, images, {96, 16, 41, 446}},
                                    {window.pic, images, {144, 16, 321, 113}},
                                    {window.lbl, images, {144, 160, 185, 21}},
                                    {window.txt, images, {144, 176, 321, 173}},
                                    {window.lstSound, window.fra[2], {8, 16, 89, 446}}};
    const auto expectPlaces = [&] {
        for (const Place& place : places) {
            EXPECT_EQ(place.Widget->parentWidget(), place.Parent);
            EXPECT_EQ(place.Widget->geometry(), place.Rect) << place.Widget->objectName().toStdString();
        }
    };
    expectPlaces();
    window.resize(900, 700); // nothing moves with the window's size
    QApplication::processEvents();
    expectPlaces();

    const char* captions[] = {"Maps", "Walls/Sprites", "Sounds"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(window.fra[i]->title(), captions[i]);
        EXPECT_TRUE(window.fra[i]->font().bold());
    }
    EXPECT_EQ(window.lbl->text(), "Codes of unknown meaning");
    EXPECT_FALSE(window.lbl->font().bold());
    EXPECT_TRUE(QFontInfo(window.txt->font()).fixedPitch());
    EXPECT_TRUE(window.txt->isReadOnly());
}

TEST(Layout, MenusHaveTheirCaptionsAndShortcuts) {
    TestWindow test;
    frmMain& window = test.StartOnSample({1, 3});
    std::string text;
    for (const QAction* menu : window.menuBar()->actions()) {
        text += menu->text().toStdString() + ":";
        for (const QAction* item : menu->menu()->actions())
            text += item->isSeparator()
                        ? " -"
                        : " [" + item->text().toStdString() + "|" +
                              item->shortcut().toString().toStdString() + "]" +
                              (item->isEnabled() ? "" : "off") + (item->isChecked() ? "*" : "");
        text += "\n";
    }
    EXPECT_EQ(text,
              "&File: [&Open|Ctrl+O] - [&Export|]off [Export All|]off - [E&xit|]\n"
              "&View: [Episode &1|Ctrl+Shift+F1]* [Episode &2|Ctrl+Shift+F2]off [Episode &3|Ctrl+Shift+F3] - "
              "[&Maps|Ctrl+M]* [&Walls/Sprites|Ctrl+W] [&Sounds|Ctrl+D]\n");
}

TEST(Layout, TabGoesThroughTheViewInOrder) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    window.activateWindow();
    window.lstGroup->setFocus();
    for (const QWidget* next :
         std::initializer_list<const QWidget*>{window.lstImage, window.pic, window.txt, window.lstGroup}) {
        TestWindow::Press(*QApplication::focusWidget(), "Tab");
        EXPECT_EQ(QApplication::focusWidget(), next);
    }
}

TEST(StartUp, FirstRunAsksForAFolderBeforeTheWindowIsShown) {
    TestWindow test;
    test.Sample.Write(test.GameDir);
    test.Folders = {test.GameDir.Path};
    frmMain& window = test.Start();
    const std::vector<SeenDialog> seen = test.TakeSeen();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].Text, "Select the Morvane Folder");
    EXPECT_FALSE(seen[0].OwnerVisible);
    EXPECT_EQ(StateOf(window), JustOpened);
    EXPECT_EQ(TextOf(test.SettingsPath()), "[Settings]\r\nOpenPath=" + test.GameDir.Path + "\r\n");
}

TEST(StartUp, CancelledFirstRunLeavesAnEmptyWindowAndNoFile) {
    for (const bool emptyPath : {false, true}) {
        TestWindow test;
        if (emptyPath) test.Remember("");
        frmMain& window = test.Start();
        EXPECT_EQ(test.TakeSeen().size(), 1U);
        EXPECT_EQ(StateOf(window), Empty);
        EXPECT_EQ(std::filesystem::exists(test.SettingsPath()), emptyPath);
        window.close();
        EXPECT_EQ(window.SettingsFile, nullptr);
    }
}

TEST(StartUp, RememberedFolderThatIsGoneIsReportedOnce) {
    TestWindow test;
    const std::string gone = test.GameDir / "gone";
    test.Remember(gone);
    const std::string before = TextOf(test.SettingsPath());
    frmMain& window = test.Start();
    ExpectError(test, NotFound(gone + "/GAME.PAL"));
    EXPECT_EQ(StateOf(window), Empty);
    EXPECT_EQ(window.Game.GamePath, gone);
    EXPECT_EQ(TextOf(test.SettingsPath()), before);
}

TEST(Open, FillsEveryView) {
    TestWindow test;
    test.Sample.Groups[3].Codes[89] = 0xFA;
    test.ProgramFolder.Write("Episode1.tsd", "[Plane 0]\r\n0=," + std::string(49, '4') + ",red\r\n1=," +
                                                 std::string(49, '2') + ",green\r\n");
    frmMain& window = test.StartOnSample();
    EXPECT_TRUE(test.TakeSeen().empty());
    EXPECT_EQ(StateOf(window), JustOpened);
    EXPECT_EQ(Texts(*window.lstMap), (std::vector<std::string>{"Map 0", "Map 1", "Map 2"}));
    EXPECT_EQ(Texts(*window.lstGroup), (std::vector<std::string>{"Group 2", "Group 3", "Group 7"}));
    EXPECT_EQ(Texts(*window.lstImage), (std::vector<std::string>{"0", "1", "2"}));
    EXPECT_EQ(Texts(*window.lstSound), (std::vector<std::string>{"InstBank 1", "MIDI 2", "VOC 17"}));
    EXPECT_EQ(window.lstSound->Items()[2].Data, 17);
    EXPECT_EQ(window.picMap->Image().pixel(447, 447), 0xFFA80000);

    TestWindow::Click(*window.lstMap, 1);
    EXPECT_EQ(window.picMap->Image().pixel(0, 0), 0xFF00A800);
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Click(*window.lstGroup, 1); // group 3: one image of 3 x 3, all of colour 48
    EXPECT_EQ(window.lstImage->Count(), 1);
    EXPECT_EQ(window.pic->Image().size(), QSize(3, 3));
    EXPECT_EQ(window.pic->Image().pixel(2, 2), qRgb(48, 207, 24));
    EXPECT_EQ(window.CurrentImageFile.size(), 1078U + 12U);
    const std::string codes = window.txt->toPlainText().toStdString();
    EXPECT_EQ(codes.size(), 450U);
    EXPECT_TRUE(codes.starts_with("0x03 0x00 0x01 0x00 ")) << codes;
    EXPECT_TRUE(codes.ends_with("0x00 0xFA "));
}

TEST(Open, EveryMissingFileIsReportedAndNothingIsLost) {
    for (const std::string name : {"GAME.PAL", "UIF.DAT", "SND.DAT", "IMG.1", "MAP.1"}) {
        TestWindow test;
        frmMain& window = test.StartOnSample();
        TestWindow::Press(window, "Ctrl+D");
        const TempFolder other;
        test.Sample.Write(other);
        std::filesystem::remove(other / name);
        const std::string settings = TextOf(test.SettingsPath());
        test.Folders = {other.Path};
        TestWindow::Press(window, "Ctrl+O");
        EXPECT_EQ(test.LastStartFolder, test.GameDir.Path);
        auto seen = test.TakeSeen();
        ASSERT_EQ(seen.size(), 2U);
        EXPECT_EQ(seen[1].Text, NotFound(other / name));
        EXPECT_FALSE(seen[1].Busy);
        EXPECT_EQ(window.Game.GamePath, other.Path);
        EXPECT_EQ(TextOf(test.SettingsPath()), settings);
        EXPECT_EQ(StateOf(window).substr(0, 56), "frames 000 view 0 exports 00 visible 001 views 001 episo")
            << name;
        EXPECT_EQ(window.lstSound->Count() > 0, name[0] == 'I' || name[0] == 'M')
            << name;                         // what was loaded stays
        TestWindow::Press(window, "Ctrl+W"); // the View menu is disabled, and its shortcuts with it
        TestWindow::Press(window, "Ctrl+Shift+F2");
        EXPECT_EQ(window.CurrentView, 2);
        EXPECT_FALSE(window.mnuViewFrame[1]->isChecked());
        EXPECT_FALSE(window.mnuViewEpisode[1]->isChecked());

        test.Folders = {test.GameDir.Path}; // and back again
        TestWindow::Press(window, "Ctrl+O");
        EXPECT_EQ(test.TakeSeen().size(), 1U);
        EXPECT_EQ(StateOf(window), JustOpened);
    }
}

TEST(Open, CancelChangesNothing) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    const std::string before = StateOf(window);
    TestWindow::Press(window, "Ctrl+O");
    EXPECT_EQ(test.TakeSeen().size(), 1U);
    EXPECT_EQ(StateOf(window), before);
    EXPECT_EQ(window.Game.GamePath, test.GameDir.Path);
}

TEST(Open, FilesAreFoundInAnotherCaseButNamedAsBuilt) {
    TestWindow test;
    test.Sample.Write(test.GameDir, {1, 2});
    for (const char* name : {"GAME.PAL", "IMG.1", "MAP.2"}) {
        std::string lower = name;
        for (char& c : lower) c = static_cast<char>(std::tolower(c));
        std::filesystem::rename(test.GameDir / name, test.GameDir / lower);
    }
    test.Remember(test.GameDir.Path);
    frmMain& window = test.Start();
    EXPECT_TRUE(test.TakeSeen().empty());
    EXPECT_TRUE(window.mnuViewEpisode[1]->isEnabled());
    EXPECT_FALSE(window.mnuViewEpisode[2]->isEnabled());
}

TEST(Open, SettingsThatCannotBeSavedAreReportedAndTheGameOpens) {
    TestWindow test;
    test.Sample.Write(test.GameDir);
    test.Folders = {test.GameDir.Path};
    std::filesystem::create_directory(test.SettingsPath());
    frmMain& window = test.Start();
    const auto seen = test.TakeSeen();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[1].Title, "Could not save INI file.");
    EXPECT_EQ(seen[1].Text, "clsINI.SaveFile: " + test.SettingsPath() + ": Is a directory");
    EXPECT_EQ(seen[1].Icon, QMessageBox::Critical);
    EXPECT_EQ(StateOf(window), JustOpened);
}

TEST(Views, StatesFollowTheViewShown) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    struct Step {
        const char* Keys;
        const char* State;
    };
    for (const Step& step :
         {Step{"Ctrl+W", "frames 111 view 1 exports 11 visible 010 views 010 episodes 100 filled 111111"},
          Step{"Ctrl+D", "frames 111 view 1 exports 11 visible 001 views 001 episodes 100 filled 111111"},
          Step{"Ctrl+Shift+F3",
               "frames 111 view 1 exports 11 visible 001 views 001 episodes 001 filled 111111"},
          Step{"Ctrl+Shift+F3",
               "frames 111 view 1 exports 11 visible 001 views 001 episodes 001 filled 111111"},
          Step{"Ctrl+M", "frames 111 view 1 exports 00 visible 100 views 100 episodes 001 filled 111111"},
          Step{"Ctrl+M", "frames 111 view 1 exports 00 visible 100 views 100 episodes 001 filled 111111"}}) {
        TestWindow::Press(window, step.Keys);
        EXPECT_EQ(StateOf(window), step.State) << step.Keys;
    }
    EXPECT_EQ(window.Game.CurrentEpisode, 3);
    const QString codes = window.txt->toPlainText();
    window.EnableControls(false);
    EXPECT_EQ(StateOf(window),
              "frames 000 view 0 exports 00 visible 100 views 100 episodes 001 filled 000000");
    EXPECT_EQ(window.txt->toPlainText(), codes);
    EXPECT_FALSE(codes.isEmpty());
}

TEST(Episodes, AnArchiveWithoutEntriesDisablesItsEpisode) {
    for (const bool images : {true, false}) {
        TestWindow test;
        frmMain& window = test.StartOnSample();
        SampleGame none;
        none.Groups.clear();
        const std::string path =
            images ? test.GameDir.Write("IMG.2", encode::EncodeImageArchive({}))
                   : test.GameDir.Write(
                         "MAP.2", encode::EncodeMapArchive(none.Maps, {}, static_cast<std::int16_t>(-1)));
        TestWindow::Press(window, "Ctrl+Shift+F2");
        EXPECT_TRUE(test.TakeSeen().empty()) << path;
        EXPECT_EQ(StateOf(window),
                  "frames 000 view 0 exports 00 visible 100 views 100 episodes 010 filled 000000");
        EXPECT_TRUE(window.mnuFile->IsEnabled());
        window.mnuView->SetEnabled(true);
        EXPECT_FALSE(window.mnuViewEpisode[1]->isEnabled()) << path;
        EXPECT_TRUE(window.mnuViewEpisode[2]->isEnabled());
    }
}

TEST(Episodes, AVanishedArchiveIsReportedOnceAndTheProgramGoesOn) {
    for (const std::string name : {"IMG.2", "MAP.2"}) {
        TestWindow test;
        frmMain& window = test.StartOnSample();
        std::filesystem::remove(test.GameDir / name);
        TestWindow::Press(window, "Ctrl+Shift+F2");
        ExpectError(test, NotFound(test.GameDir / name));
        EXPECT_TRUE(window.mnuView->IsEnabled());
        TestWindow::Press(window, "Ctrl+Shift+F1");
        EXPECT_TRUE(test.TakeSeen().empty());
        EXPECT_EQ(StateOf(window), JustOpened);
    }
}

TEST(Selections, AVanishedArchiveLeavesTheEntryShownBefore) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    TestWindow::Click(*window.lstMap, 1);
    const QImage map = window.picMap->Image().copy();
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Click(*window.lstImage, 1);
    const QImage image = window.pic->Image().copy();
    const ByteVector file = window.CurrentImageFile;
    const QString codes = window.txt->toPlainText();
    std::filesystem::remove(test.GameDir / "IMG.1");
    std::filesystem::remove(test.GameDir / "MAP.1");

    TestWindow::Click(*window.lstImage, 2);
    ExpectError(test, NotFound(test.GameDir / "IMG.1"));
    TestWindow::Click(*window.lstGroup, 2);
    ExpectError(test, NotFound(test.GameDir / "IMG.1"));
    EXPECT_EQ(window.lstGroup->ListIndex(), 0);
    EXPECT_EQ(window.lstImage->ListIndex(), 1);
    EXPECT_EQ(window.lstImage->Count(), 3);
    EXPECT_EQ(window.pic->Image(), image);
    EXPECT_EQ(window.CurrentImageFile, file);
    EXPECT_EQ(window.txt->toPlainText(), codes);

    TestWindow::Press(window, "Ctrl+M");
    window.lstMap->setFocus();
    TestWindow::Press(*window.lstMap, "Down");
    ExpectError(test, NotFound(test.GameDir / "MAP.1"));
    EXPECT_EQ(window.lstMap->ListIndex(), 1);
    EXPECT_EQ(window.picMap->Image(), map);
}

TEST(Selections, RunTheHandlerEveryTime) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    int runs = 0;
    window.lstMap->Handler = [&] { ++runs; };
    const auto runsAfter = [&](const std::function<void()>& action) {
        runs = 0;
        action();
        return runs;
    };
    ui::ListBox& list = *window.lstMap;
    EXPECT_EQ(runsAfter([&] { TestWindow::Click(list, 0); }), 1); // selected already
    EXPECT_EQ(runsAfter([&] { TestWindow::Click(list, 2); }), 1);
    EXPECT_EQ(runsAfter([&] { TestWindow::Press(list, "Down"); }), 1); // at the end already
    EXPECT_EQ(runsAfter([&] { TestWindow::Press(list, "Home"); }), 1);
    EXPECT_EQ(runsAfter([&] { list.Select(0); }), 1);
    EXPECT_EQ(runsAfter([&] { list.ShowSelected(1); }), 0);
    EXPECT_EQ(runsAfter([&] {
                  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {5, 400});
              }),
              0); // below the entries
    EXPECT_EQ(list.ListIndex(), 1);
    const QPoint entry = list.visualRect(list.model()->index(1, 0)).center();
    EXPECT_EQ(
        runsAfter([&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, entry); }),
        1);
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(1, 0)));
    EXPECT_EQ(runsAfter([&] { QTest::mouseClick(list.viewport(), Qt::RightButton, {}, {5, 5}); }), 0);
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(Selections, AFailureInsideThoseOfTheProgramReachesTheCommand) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    const std::string settings = test.SettingsPath();
    std::filesystem::remove(settings);
    window.lstImage->Handler = [] { throw Failure(5, "", "first line\nsecond line"); };
    EXPECT_FALSE(window.OpenGameFolder());
    ExpectError(test, "Error: 5\nDescription: first line\nsecond line");
    EXPECT_FALSE(std::filesystem::exists(settings));
    EXPECT_EQ(window.lstMap->Count(), 0); // the steps behind it were skipped
    window.lstImage->Handler = [] { throw std::bad_alloc(); };
    EXPECT_FALSE(window.OpenGameFolder());
    ExpectError(test, "Error: 7\nDescription: Out of memory");
}

TEST(Selections, AGroupWithoutImagesLeavesTheImageShown) {
    TestWindow test;
    test.Sample.Groups[3].Images.clear();
    frmMain& window = test.StartOnSample();
    const ByteVector file = window.CurrentImageFile;
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Click(*window.lstGroup, 1);
    EXPECT_EQ(window.lstImage->Count(), 0);
    EXPECT_EQ(window.CurrentImageFile, file);
    EXPECT_FALSE(window.pic->Image().isNull());
}

TEST(Accessibility, ScreenReadersLearnWhatIsShown) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    const auto spoken = [](QWidget* widget) {
        const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        return accessible->text(QAccessible::Name).toStdString();
    };
    TestWindow::Click(*window.lstMap, 2);
    EXPECT_EQ(spoken(window.picMap), "Map 2");
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Click(*window.lstImage, 1);
    EXPECT_EQ(spoken(window.pic), "Group 2 image 1, 3 x 4");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window.pic)->role(), QAccessible::Graphic);
    EXPECT_EQ(spoken(window.txt), "Codes of unknown meaning");
    EXPECT_EQ(spoken(window.lstGroup), "Groups");
    EXPECT_EQ(spoken(window.fra[1]), "Walls/Sprites");
    window.EnableControls(false);
    EXPECT_EQ(spoken(window.pic), "Nothing");
}

TEST(Looks, NoTextIsCutInDarkColoursOrWithLargeFonts) {
    TestWindow test;
    test.Sample.Groups[511] = SampleGame::MakeGroup(5, 250);
    test.Sample.Groups[511].Images.resize(255);
    test.Sample.Sounds.resize(160);
    test.Sample.Sounds[159].Data = SampleGame::Text("IBK");
    QApplication::setFont(QFont(QApplication::font().family(), 24));
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Press(*window.lstGroup, "End");
    EXPECT_EQ(window.centralWidget()->size(), QSize(617, 488));
    for (const ui::ListBox* list : {window.lstMap, window.lstGroup, window.lstImage, window.lstSound})
        for (const ui::ListItem& item : list->Items())
            EXPECT_LE(list->fontMetrics().horizontalAdvance(QString::fromStdString(item.Text)) + 2,
                      list->viewport()->width())
                << item.Text;
    EXPECT_EQ(window.txt->document()->size().height(), 10); // all codes, nine in a line, without scrolling
    EXPECT_LE(window.lbl->fontMetrics().horizontalAdvance(window.lbl->text()), window.lbl->width());
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    QApplication::processEvents();
    const QImage shot = window.grab().toImage();
    shot.save(QApplication::applicationDirPath() + "/looks-dark-large.png");
    EXPECT_LT(shot.pixelColor(610, shot.height() - 4).lightness(), 60);
    EXPECT_LT(shot.pixelColor(50, shot.height() - 40).lightness(), 60); // the list
    QApplication::setPalette(QPalette());
    QApplication::setFont(QFont());
}

TEST(FolderDialog, HonoursStartFolderTitleAndStyle) {
    TestWindow test;
    const TempFolder folder;
    const std::string odd = folder / "caf\xE9"; // no UTF-8: must come back byte for byte
    std::filesystem::create_directory(odd);
    folder.Write("file", "x");
    for (const bool newStyle : {false, true}) {
        test.Answer = [&](QWidget& dialog) {
            auto* tree = dialog.findChild<QTreeWidget*>();
            EXPECT_EQ(tree->currentItem()->parent()->childCount(), 1); // folders only
            EXPECT_EQ(dialog.minimumSize() == dialog.maximumSize(), !newStyle);
            EXPECT_EQ(dialog.findChildren<QPushButton*>().size(), newStyle ? 3 : 2);
            QTest::keyClick(tree, Qt::Key_Return);
            return true;
        };
        EXPECT_EQ(ui::BrowseForFolder(odd, nullptr, "", newStyle), odd);
    }
    std::string complaint;
    test.Answer = [&](QWidget& dialog) {
        auto* path = dialog.findChild<QLineEdit*>();
        path->setText("");
        QTest::keyClicks(path, QString::fromStdString(folder / "file"));
        QTest::keyClick(path, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            complaint += label->text().toStdString() + "\n";
        QTest::keyClick(&dialog, Qt::Key_Escape);
        return true;
    };
    EXPECT_EQ(ui::BrowseForFolder(folder.Path, nullptr, "Title <b>", false), "");
    EXPECT_NE(complaint.find("There is no such folder."), std::string::npos);
    EXPECT_NE(complaint.find("Title <b>"), std::string::npos);
}

} // namespace
} // namespace morvane
