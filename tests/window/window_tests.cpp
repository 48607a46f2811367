#include "TestWindow.h"

namespace morvane {

TEST_F(TestWindow, ShowsEverythingInItsPlace) {
    StartOnSample();
    for (const char* name : Lists) EXPECT_EQ(Chosen(name), 0) << name;
    const std::vector<std::pair<QString, QRect>> places{
        {"fra0", {8, 8, 601, 473}},   {"lstMap", {8, 16, 129, 446}},  {"picMap", {144, 16, 448, 448}},
        {"fra1", {8, 8, 601, 473}},   {"lstGroup", {8, 16, 81, 446}}, {"lstImage", {96, 16, 41, 446}},
        {"pic", {144, 16, 321, 113}}, {"lbl", {144, 160, 185, 21}},   {"txt", {144, 176, 321, 173}},
        {"fra2", {8, 8, 601, 473}},   {"lstSound", {8, 16, 89, 446}}};
    for (const auto& [name, place] : places)
        EXPECT_TRUE(Get(name).geometry() == place) << name.toStdString() << " is not in its place";
    EXPECT_TRUE(Window->centralWidget()->size() == QSize(617, 488));
    QStringList menus;
    for (const char* menu : {"mnuFile", "mnuView"})
        for (const QAction* item : Get<QMenu>(menu).actions())
            menus += item->isSeparator() ? "-" : item->text() + " " + item->shortcut().toString();
    EXPECT_EQ(menus.join(", ").toStdString(),
              "&Open Ctrl+O, -, &Export , Export All , -, E&xit , "
              "Episode &1 Ctrl+Shift+F1, Episode &2 Ctrl+Shift+F2, Episode &3 Ctrl+Shift+F3, -, "
              "&Maps Ctrl+M, &Walls/Sprites Ctrl+W, &Sounds Ctrl+D");
    EXPECT_EQ(Window->windowIcon().availableSizes(), (QList{QSize(16, 16), QSize(32, 32)}));
    EXPECT_EQ(Get("picMap").accessibleName().toStdString(), "Map 0");
    Do("Walls/Sprites, Group 3, image 0, Group 3");
    EXPECT_EQ(Get("pic").accessibleName().toStdString(), "Group 3 image 0, 3 x 3");
    for (const char* next : {"lstImage", "pic", "txt", "lstGroup"}) {
        Do("Tab");
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
    }
    auto& codes = Get<QPlainTextEdit>("txt"); // whose letters stay as they are
    const QFont font = codes.font();
    QWheelEvent zoom({9, 9}, {9, 9}, {}, {0, -240}, {}, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(codes.viewport(), &zoom);
    EXPECT_EQ(codes.font(), font);
}

TEST_F(TestWindow, KeepsThePaletteWhenAnEpisodeIsChosen) {
    StartOnSample();
    GameDir.Write("GAME.PAL", "");
    EXPECT_EQ(Do("Walls/Sprites, Episode 2"), "Walls/Sprites, exports, episodes 1 2* 3");
}

// Wine's offscreen windows have no fonts and do not close the toolkit's file dialogs; the tour answers the
// desktop's.
#ifndef _WIN32
/// A window in three colours, so that its parts can be told apart.
struct ColoredWindow : TestWindow {
    ColoredWindow() {
        StartOnSample();
        QPalette palette(Paper, Paper);
        for (const auto role : {QPalette::WindowText, QPalette::Text}) palette.setColor(role, Ink);
        palette.setColor(QPalette::Highlight, Marker);
        Window->setPalette(palette);
    }

    /// True when a colour is seen somewhere in a part of a widget.
    [[nodiscard]] bool Shows(const char* widget, const QColor& color, QRect where) const {
        const QImage shown = Get(widget).grab(where).toImage();
        for (int x = 0; x < shown.width(); ++x)
            for (int y = 0; y < shown.height(); ++y)
                if (shown.pixelColor(x, y) == color) return true;
        return false;
    }

    const QColor Paper = "#ffffff", Ink = "#ff0000", Marker = "#0a64c8", WeakMarker = "#9dc1e9";
};

TEST_F(ColoredWindow, HasFramesWithACaptionInTheLine) {
    Do("Walls/Sprites");
    const int right = Get("fra1").width() - 2, bottom = Get("fra1").height() - 2;
    int top = 0;
    while (top < 99 && !Shows("fra1", Paper.darker(150), {300, top, 1, 1})) ++top;
    for (const int line : {top - 3, top + 3}) EXPECT_TRUE(Shows("fra1", Ink, {5, line, 90, 1}));
    EXPECT_TRUE(Shows("fra1", Paper, {5, top, 90, 1})) << "there is room for the caption";
    for (const QRect& side :
         {QRect(0, top, 5, 1), QRect(110, top, right - 110, 1), QRect(0, top, 1, bottom - top),
          QRect(right, top, 1, bottom - top), QRect(0, bottom, right, 1)})
        EXPECT_FALSE(Shows("fra1", Paper, side)) << "the line goes all around";
}

TEST_F(ColoredWindow, MarksWhatHasTheKeyboard) {
    const QRect pic = Get("pic").geometry();
    Do("Walls/Sprites, Group 2");
    EXPECT_TRUE(Shows("lstGroup", Marker, {2, 2, 70, 20}) && Shows("lstImage", WeakMarker, {2, 2, 30, 20}));
    EXPECT_FALSE(Shows("lstGroup", Ink, {2, 2, 77, 12}) || Shows("fra1", Marker, pic.adjusted(-3, -3, 3, 3)));
    Do("Tab");
    EXPECT_TRUE(Shows("lstGroup", WeakMarker, {2, 2, 70, 20}) && Shows("lstImage", Marker, {2, 2, 30, 20}));
    EXPECT_TRUE(Shows("lstGroup", Ink, {2, 2, 60, 12}));
    EXPECT_FALSE(Shows("lstGroup", WeakMarker, {2, 18, 70, 400})) << "one entry is marked";
    for (const char* framed : {"lstGroup", "txt"}) EXPECT_FALSE(Shows(framed, Paper, {0, 0, 1, 150}));
    EXPECT_FALSE(Shows("lstGroup", Ink, {70, 2, 9, 442})) << "no text is cut";
    Do("Tab");
    for (const QRect& side :
         {pic.adjusted(0, -2, 0, 1 - pic.height()), pic.adjusted(0, pic.height() - 1, 0, 2),
          pic.adjusted(-2, 0, 1 - pic.width(), 0), pic.adjusted(pic.width() - 1, 0, 2, 0)})
        EXPECT_TRUE(Shows("fra1", Marker, side)) << "the mark goes all around the picture";
    EXPECT_FALSE(Shows("fra1", Marker, pic)) << "the mark covers nothing of it";
}

TEST_F(TestWindow, SelectsByTheMouseInLists) {
    StartOnSample();
    auto& list = Get<QListWidget>("lstMap");
    const auto place = [&](int row) { return list.visualItemRect(list.item(row)).center(); };
    const std::string open = ", Maps, episodes 1* 2 3"; // the map selected is shown
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, place(0));
    QTest::mouseMove(list.viewport(), {5, 400}); // past the end
    EXPECT_EQ(Screen()["lstMap"] + ", " + Seen(), "Map 0, Map 1, Map 2*" + open);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, {5, 400});
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place(0));
    EXPECT_EQ(Chosen("lstMap"), 2);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place(1));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place(0)); // its second press is elsewhere
    EXPECT_EQ(Screen()["lstMap"] + ", " + Seen(), "Map 0*, Map 1, Map 2" + open);
}

/// Dialogs and boxes as they are told.
static std::string AskedForGame(const std::string& proposed, const std::string& place = "over the window") {
    return "\nfolder dialog " + place + ", cannot make folders: Select the Morvane Folder: " + proposed;
}
static std::string Missing(const std::string& file, const std::string& place = "over the window") {
    return "\nerror " + place + ": Error: Error: 53\nDescription: " + file + " not found.";
}
static std::string AskedToCreate(const std::string& path) {
    return "\nquestion over a dialog, Yes preset: Confirm Save As: " + path +
           " does not exist.\nDo you want to create it?";
}
static std::string AskedToSave(const std::string& kind, const std::string& name) {
    return "\nsave dialog over the window: Save " + kind + " As...: PROGRAM/" + name;
}

TEST_F(TestWindow, AsksForTheFolderAtTheFirstStart) {
    const std::string asked = AskedForGame("HOME", "without an owner");
    Sample.Write(GameDir);
    EXPECT_EQ(StartAsItIs({GameDir.Path}), "Maps, episodes 1* 2 3" + asked); // no settings file
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + GameDir.Path + "\r\n");
    fs::remove(GameDir / "GAME.PAL");
    EXPECT_EQ(Start(""), "empty" + asked); // cancelled
    EXPECT_EQ(Do("Walls/Sprites"), "empty");
    EXPECT_EQ(Start("", {GameDir.Path}), "empty" + asked + Missing("GAME/GAME.PAL", "without an owner"));
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=\r\n");
    // A folder that is gone is not asked for, and told as it is called.
    EXPECT_EQ(Start(GameDir / "line\nend"), "empty" + Missing("GAME/line\nend/GAME.PAL", "without an owner"));
    EXPECT_EQ(Do("Open"), "empty" + AskedForGame("GAME")); // the nearest one
    Sample.Write(GameDir);
    EXPECT_EQ(Start("\r\n[B]\r\n;" + std::string(9000, 'x'), {GameDir.Path}),
              "Maps, episodes 1* 2 3" + asked);
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + GameDir.Path + "\r\n\r\n[B]\r\n");
    Sample.Maps[0].fill({2, 0});
    Sample.Write(GameDir);
    EXPECT_EQ(Do("Maps, Home"), "Maps, episodes 1* 2 3"); // read again, though selected before
    ProgramFolder.Write("viewer.ini", ";mine");
    Do("Exit");
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(Settings(), ";mine");
}

TEST_F(TestWindow, RemembersAFolderWhateverItIsCalled) {
    Sample.Write(ProgramFolder, {1});
    for (const std::string name : {"line\nend", "a=b;[c]", " blank \"quote'", "100%EP%25%s", "caf\xE9\xFF"}) {
        fs::copy(ProgramFolder.Path, GameDir / name);
        EXPECT_EQ(Start(GameDir / name), "Maps, episodes 1*") << name;
        EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + (GameDir / name) + "\r\n");
    }
    fs::copy(ProgramFolder.Path, GameDir / "a\rb");
    fs::current_path(GameDir / "a\rb");
    Start(".");
    EXPECT_EQ(Do("Open", {"accept"}),
              "Maps, episodes 1*" + AskedForGame("GAME/a\rb") +
                  "\nerror over the window, busy pointer: Could not save INI file.: clsINI.SaveFile: "
                  "PROGRAM/viewer.ini: a name or value holds a line end");
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=.\r\n");
}

// An archive that lists nothing fails softly, one that is gone with an error.
TEST_F(TestWindow, EndsEmptyWhenAnEpisodeFails) {
    for (const std::string name : {"IMG.2", "MAP.2"})
        for (const bool gone : {true, false}) {
            StartOnSample();
            fs::resize_file(GameDir / name, 0);
            if (gone) fs::remove(GameDir / name);
            EXPECT_EQ(Do("Walls/Sprites, Episode 2"),
                      "empty Walls/Sprites, episode 2 is checked" + (gone ? Missing("GAME/" + name) : ""));
            for (const char* part : {"lstMap", "lstGroup", "lstImage", "lstSound", "picMap", "pic"})
                EXPECT_EQ(Screen()[part], "nothing") << part;
            EXPECT_EQ(Screen()["txt"].substr(0, 10), "0xA2 0x00 ");
            EXPECT_EQ(Do("Open", {"accept"}),
                      (gone ? "Maps, episodes 1* 3" : "Maps, episodes 1* 2 3") + AskedForGame("GAME"));
        }
}

TEST_F(TestWindow, OpensNoFolderThatLacksAFile) {
    Sample.Write(GameDir);
    for (const std::string name : {"GAME.PAL", "UIF.DAT", "SND.DAT", "IMG.1", "MAP.1"}) {
        Start(GameDir.Path);
        fs::rename(GameDir / name, GameDir / "away");
        EXPECT_EQ(Do("Sounds, Open", {"accept"}),
                  "empty Sounds, episode 1 is checked" + AskedForGame("GAME") + Missing("GAME/" + name));
        fs::rename(GameDir / "away", GameDir / name);
    }
    EXPECT_EQ(Do("Open", {"/"}),
              "empty Sounds, episode 1 is checked" + AskedForGame("GAME") + Missing("/GAME.PAL"));
}

TEST_F(TestWindow, KeepsPictureAndCodesInAGroupWithoutImages) {
    StartOnSample();
    Sample.Groups[2].Images.clear();
    Sample.Groups.erase(3); // it would begin where group 2 does
    Sample.Write(GameDir, {1, 2});
    const std::string seen = Do("Walls/Sprites, Group 7, image 1");
    Contents shown = Screen();
    for (const std::string step : {"Episode 2", "Group 2"}) {
        EXPECT_EQ(Do(step + ", Export"), "Walls/Sprites, exports, episodes 1 2* 3");
        for (const char* part : {"pic", "txt"}) EXPECT_EQ(Screen()[part], shown[part]) << step;
    }
    Do("Open", {"accept"});
    EXPECT_EQ(Screen()["pic"], "nothing");
    EXPECT_EQ(Screen()["txt"], shown["txt"]);
    fs::resize_file(GameDir / "MAP.1", 0);
    Do("Open", {"accept"});
    EXPECT_EQ(State(), "Maps, episodes 2 3, episode 1 is checked");
    Sample.Write(GameDir);
    fs::resize_file(GameDir / "SND.DAT", 0);
    Do("Open, Sounds, Export", {"accept"}); // of no sound
    EXPECT_EQ(State(), "Sounds, exports, episodes 1* 2 3");
}

TEST_F(TestWindow, ExportsTheItemInView) {
    StartOnSample();
    Contents files = Sample.ImageFiles(1);
    files.merge(Sample.SoundFiles());
    for (const auto& [entry, kind, file] :
         std::vector<std::array<std::string, 3>>{{"Walls/Sprites, image 2", "Image", "Picture 1-002-03.bmp"},
                                                 {"Sounds, InstBank 9", "Instrument Bank", "Morvane.ibk"},
                                                 {"Sounds, MIDI 2", "MIDI", "Song 002.mid"},
                                                 {"Sounds, VOC 17", "VOC", "Sound 017.voc"}}) {
        const std::string shown = Do(entry), pattern = " (*" + fs::path(file).extension().string() + ")";
        QStringList filters;
        Meanwhile = [&](QDialog& dialog) {
            filters = static_cast<QFileDialog&>(dialog).nameFilters();
            filters += dialog.findChild<QComboBox*>("fileTypeCombo")->currentText();
        };
        EXPECT_EQ(Do("Export", {"accept"}),
                  shown + AskedToSave(kind, file) + AskedToCreate("PROGRAM/" + file));
        EXPECT_EQ(ProgramFolder.Files()[file], files[file]);
        EXPECT_EQ(filters.value(0).section(" Files", 1).toStdString(), pattern + pattern);
        EXPECT_EQ(filters.value(1).toStdString(), "All Files (*.*) (*)");
        EXPECT_EQ(filters.value(2).section(" Files", 1).toStdString(), pattern) << "the one shown";
    }
}

TEST_F(TestWindow, ExportsAllOfTheView) {
    Sample.Groups[8].SharesLower = true;
    Sample.Groups[9].Offset = -5;
    StartOnSample();
    for (const int unlisted : {8, 9}) Sample.Groups.erase(unlisted);
    const TempFolder target;
    target.Write("Sound 017.voc", std::string(9000, 'x'));
    EXPECT_EQ(Do("Episode 2, Sounds, Export All", {target.Path + "/"}),
              "Sounds, exports, episodes 1 2* 3\nfolder dialog over the window: Export Path: PROGRAM"
              "\nmessage over the window, busy pointer: Morvane Extractor: Done");
    EXPECT_EQ(Differences(target.Files(), Sample.SoundFiles()), "");
    Do("Walls/Sprites");
    EXPECT_EQ(WrongExports(), "");
    // Another game is to be opened meanwhile, and cannot.
    Meanwhile = [&](QDialog&) { QTimer::singleShot(0, &Get<QAction>("mnuFileOpen"), &QAction::trigger); };
    EXPECT_EQ(
        Do("Export All", {target.Path, ProgramFolder.Path}),
        "empty Walls/Sprites, episode 2 is checked\nfolder dialog over the window: Export Path: PROGRAM" +
            AskedForGame("GAME") + Missing("PROGRAM/GAME.PAL"));
}

// Random actions over two games, with what must always hold checked after each.
TEST_F(TestWindow, KeepsTogetherWhatBelongsTogether) {
    QRandomGenerator random(1); // the same session in every run
    const auto oneIn = [&](int number) { return random.bounded(number) == 0; };
    const auto pick = [&](const QStringList& words) {
        return words[random.bounded(words.size())].toStdString();
    };
    const QString actions =
        "Map 0 if listed,Map 1 if listed,Map 60 if listed,Group 3 if listed,Group 7 if listed,"
        "image 0 if listed,image 1 if listed,MIDI 2 if listed,VOC 17 if listed,Up,Down,Home,End,PgUp,"
        "Tab,Space,G,Maps,Walls/Sprites,Walls/Sprites,Sounds,Open,Open,Episode 1,Episode 2,Episode 3";
    const TempFolder otherFolder;
    SampleGame game = Sample, otherGame = Sample;
    otherGame.Groups.erase(2);
    otherGame.Maps.resize(70);
    for (auto& color : otherGame.Colors) std::swap(color.Red, color.Green);
    otherGame.Write(otherFolder, {1, 3});
    StartOnSample();
    bool other = false; // the game last opened
    for (int i = 0; i < 1500; ++i) {
        const std::string action = IsOpen() ? pick(actions.split(',')) : "Open";
        const bool opens = action == "Open" && !oneIn(5);
        if (opens) other = oneIn(2);
        if (opens) Sample = other ? otherGame : game;
        const TempFolder& folder = other ? otherFolder : GameDir;
        const std::string file = folder / pick({"IMG.1", "IMG.2", "MAP.1", "MAP.2", "MAP.3", "UIF.DAT"});
        const bool gone = oneIn(5) && fs::exists(file);
        if (gone) fs::rename(file, file + " away");
        const std::string seen = Do(action, {opens ? folder.Path + pick({"/", ""}) : "cancel"});
        if (gone) fs::rename(file + " away", file);
        SCOPED_TRACE(testing::Message() << "action " << i << ", " << action << ": " << seen);
        ASSERT_EQ(seen, seen.substr(0, seen.find("but ")));
        ASSERT_EQ(WrongExports(), "");
        ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    }
}
#endif

} // namespace morvane
