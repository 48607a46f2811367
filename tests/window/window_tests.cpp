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
    Do("Walls/Sprites");
    for (const char* next : {"lstImage", "pic", "txt", "lstGroup"}) {
        Do("Tab");
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
    }
}

TEST_F(TestWindow, HasAnIconAndTellsWhatItsPicturesShow) {
    StartOnSample();
    EXPECT_EQ(Window->windowIcon().availableSizes(), (QList{QSize(16, 16), QSize(32, 32)}));
    Do("Walls/Sprites, Group 3, image 0, Maps, Map 1");
    EXPECT_EQ(Get("picMap").accessibleName().toStdString(), "Map 1");
    EXPECT_EQ(Get("pic").accessibleName().toStdString(), "Group 3 image 0, 3 x 3");
}

TEST_F(TestWindow, NeverChangesTheFontOfTheCodes) {
    StartOnSample();
    auto& codes = Get<QPlainTextEdit>("txt");
    const QFont font = codes.font();
    QWheelEvent twoNotches({20, 20}, codes.mapToGlobal(QPointF(20, 20)), {}, {0, -240}, {},
                           Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(codes.viewport(), &twoNotches);
    EXPECT_EQ(codes.font(), font);
}

// Wine's offscreen windows have no fonts and do not close the toolkit's file dialogs; the tour answers the
// desktop's.
#ifndef _WIN32
/// The colour behind the selected entry of a list.
static std::string BehindSelected(const QListWidget& list) {
    const QRect entry = list.visualItemRect(list.currentItem());
    const QImage shown = list.viewport()->grab().toImage();
    return shown.pixelColor(entry.right() - 2, entry.center().y()).name().toStdString();
}

TEST_F(TestWindow, MarksTheListThatHasTheKeyboard) {
    StartOnSample();
    const auto &groups = Get<QListWidget>("lstGroup"), &images = Get<QListWidget>("lstImage");
    for (const auto& [base, weaker] :
         std::map<QString, std::string>{{"#ffffff", "#9dc1e9"}, {"#141e28", "#103a68"}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Highlight, "#0a64c8");
        palette.setColor(QPalette::Inactive, QPalette::Highlight, base); // as some desktops have it
        for (const char* list : Lists) Get(list).setPalette(palette);
        Do("Walls/Sprites, Group 2");
        EXPECT_EQ(BehindSelected(groups) + BehindSelected(images), "#0a64c8" + weaker);
        Do("image 0");
        EXPECT_EQ(BehindSelected(groups) + BehindSelected(images), weaker + "#0a64c8");
    }
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
    EXPECT_EQ(Start(""), "empty" + asked); // cancelled
    EXPECT_EQ(Do("Walls/Sprites"), "empty");
    EXPECT_EQ(Start("", {GameDir.Path}), "empty" + asked + Missing("GAME/GAME.PAL", "without an owner"));
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=\r\n");
    Sample.Write(GameDir);
    EXPECT_EQ(Start("\r\n[B]\r\n;" + std::string(9000, 'x'), {GameDir.Path}),
              "Maps, episodes 1* 2 3" + asked);
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + GameDir.Path + "\r\n\r\n[B]\r\n");
    Sample.Maps[0].fill({2, 0});
    Sample.Write(GameDir);
    EXPECT_EQ(Do("Maps, Home"), "Maps, episodes 1* 2 3"); // read again, though selected before
    Do("Exit");
    EXPECT_FALSE(Window->isVisible());
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
            EXPECT_EQ(Do("Open", {"accept"}),
                      (gone ? "Maps, episodes 1* 3" : "Maps, episodes 1* 2 3") + AskedForGame("GAME"));
        }
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
}

TEST_F(TestWindow, OpensTheFolderOnDisplay) {
    Sample.Write(GameDir);
    fs::create_directories(GameDir / "some/folder");
    Start(GameDir / "some/");
    Meanwhile = [](QDialog& dialog) { // goes up, with a name in the field and a folder selected
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("left over");
        dialog.findChild<QTreeView*>("treeView")->setFocus();
        dialog.findChild<QTreeView*>("treeView")->selectAll();
        dialog.findChild<QToolButton*>("toParentButton")->click();
    };
    EXPECT_EQ(Do("Open", {"accept"}), "Maps, episodes 1* 2 3" + AskedForGame("GAME/some"));
}

TEST_F(TestWindow, AsksBeforeItWritesAFile) {
    StartOnSample();
    ProgramFolder.Write("old.mid", "old");
    const std::string sounds = Do("Sounds"), create = AskedToCreate("PROGRAM/new.mid");
    const std::string replace = "\nwarning over a dialog, No preset: Confirm Save As: "
                                "PROGRAM/old.mid already exists.\nDo you want to replace it?";
    EXPECT_EQ(Do("Export", {"old", "no", "new", "no", "accept"}),
              sounds + AskedToSave("MIDI", "Song 002.mid") + replace + AskedToSave("MIDI", "old") + create +
                  AskedToSave("MIDI", "new") + create);
    EXPECT_EQ(TextOf(ProgramFolder / "old.mid"), "old");
    // A folder is entered, and the field holds the name that was proposed, or typed before.
    fs::create_directory(ProgramFolder / "sub");
    EXPECT_EQ(Do("Export", {"sub/"}),
              sounds + AskedToSave("MIDI", "Song 002.mid") + AskedToSave("MIDI", "sub/Song 002.mid"));
    const std::string missing =
        "\nwarning over a dialog: Save MIDI As...: PROGRAM/no\nThere is no such folder.";
    EXPECT_EQ(Do("Export", {"no/new", "sub"}), sounds + AskedToSave("MIDI", "Song 002.mid") + missing +
                                                   AskedToSave("MIDI", "no/new") +
                                                   AskedToSave("MIDI", "sub/new"));
    for (const std::size_t letters : {240U, 300U}) // read by whoever looks at every box
        EXPECT_NE(
            Do("Export", {std::string(letters, 'W'), "no"}).find(letters > 255 ? "too long" : "create it"),
            std::string::npos);
}

TEST_F(TestWindow, ExportsTheItemInView) {
    StartOnSample();
    Contents files = Sample.ImageFiles(1);
    files.merge(Sample.SoundFiles());
    struct ExportCase {
        std::string Entry, Kind, File;
    };
    for (const auto& [entry, kind, file] :
         {ExportCase{"Walls/Sprites, image 2", "Image", "Picture 1-002-03.bmp"},
          {"Sounds, InstBank 9", "Instrument Bank", "Morvane.ibk"},
          {"Sounds, MIDI 2", "MIDI", "Song 002.mid"},
          {"Sounds, VOC 17", "VOC", "Sound 017.voc"}}) {
        const std::string shown = Do(entry);
        EXPECT_EQ(Do("Export", {"accept"}),
                  shown + AskedToSave(kind, file) + AskedToCreate("PROGRAM/" + file));
        EXPECT_EQ(ProgramFolder.Files()[file], files[file]);
    }
}

TEST_F(TestWindow, ExportsAllOfTheView) {
    Sample.Groups[8].SharesLower = true;
    StartOnSample();
    Sample.Groups.erase(8);
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
        "Map 0,Map 1,Map 60,Group 3,Group 7,image 0,image 1,MIDI 2,VOC 17,Up,Down,Home,End,PgUp,"
        "Tab,Space,G,Maps,Walls/Sprites,Walls/Sprites,Sounds,Open,Open,Episode 1,Episode 2,Episode 3";
    const TempFolder otherFolder;
    SampleGame game = Sample, otherGame = Sample;
    otherGame.Groups.erase(2);
    otherGame.Maps.resize(70);
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
