#include "TestWindow.h"
#include "modBrowseForFolder.h"
#include "modCommonDialog.h"

namespace morvane {

TEST_F(TestWindow, ShowsEverythingInItsPlace) {
    Sample.Groups[511] = SampleGame::MakeGroup(9, 70);
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
            menus += item->isSeparator() ? "-" : item->text();
    EXPECT_EQ(menus.join(", ").toStdString(),
              "&Open, -, &Export, Export All, -, E&xit, "
              "Episode &1, Episode &2, Episode &3, -, &Maps, &Walls/Sprites, &Sounds");
    EXPECT_EQ(Do("Walls/Sprites, Group 511"), "Walls/Sprites, exports, episodes 1* 2 3");
    for (const char* name : Lists)
        for (const ui::ListItem& item : Get<ui::ListBox>(name).Items())
            EXPECT_LE(QFontMetrics(Get(name).font()).horizontalAdvance(item.Text.c_str()) + 2,
                      Get<QListWidget>(name).viewport()->width())
                << item.Text;
    for (const char* next : {"lstImage", "pic", "txt", "lstGroup"})
        EXPECT_EQ((Do("Tab"), QApplication::focusWidget()->objectName()), next);
    EXPECT_TRUE(Get("fra1").font().bold());
    EXPECT_TRUE(QFontInfo(Get("txt").font()).fixedPitch());
}

TEST_F(TestWindow, ShowsPicturesUnscaledInsideTheirFrame) {
    Sample.Groups[2].Images[0] = {250, 250, 0, 0, ByteVector(62'500, 9)}; // higher than its box
    StartOnSample();
    for (const auto& [view, name] :
         std::map<std::string, QString>{{"Maps", "picMap"}, {"Walls/Sprites", "pic"}}) {
        Do(view);
        auto& box = Get<ui::PictureBox>(name);
        const QImage& picture = box.Image();
        const QRect seen = picture.rect() & box.rect();
        EXPECT_EQ(box.grab(seen).toImage().convertToFormat(picture.format()), picture.copy(seen)) << view;
        const QImage window = Window->centralWidget()->grab().toImage();
        EXPECT_NE(window.pixel(8, 300), window.pixel(4, 300)) << "no frame around " << view;
    }
}

TEST_F(TestWindow, HasAnIconAndTellsWhatItsPicturesShow) {
    StartOnSample();
    EXPECT_EQ(Window->windowIcon().availableSizes(), (QList{QSize(16, 16), QSize(32, 32)}));
    Do("Walls/Sprites, Group 3, image 0, Maps, Map 1");
    EXPECT_EQ(Get("picMap").accessibleName(), "Map 1");
    EXPECT_EQ(Get("pic").accessibleName(), "Group 3 image 0, 3 x 3");
    fs::resize_file(GameDir / "MAP.2", 0);
    Do("Episode 2");
    for (const char* box : {"picMap", "pic"}) EXPECT_EQ(Get(box).accessibleName(), "Nothing");
}

// The colour behind the selected entry of a list.
static QString BehindSelected(const QListWidget& list) {
    const QRect entry = list.visualItemRect(list.currentItem());
    return list.viewport()->grab().toImage().pixelColor(entry.right() - 2, entry.center().y()).name();
}

TEST_F(TestWindow, MarksTheListThatHasTheKeyboard) {
    StartOnSample();
    Do("Walls/Sprites");
    struct Colors {
        QString Base, Weaker;
    };
    for (const Colors& desktop : {Colors{"#ffffff", "#9dc1e9"}, Colors{"#141e28", "#103a68"}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, desktop.Base);
        palette.setColor(QPalette::Highlight, "#0a64c8");
        palette.setColor(QPalette::Inactive, QPalette::Highlight, desktop.Base); // as some desktops have it
        for (const char* name : Lists) Get(name).setPalette(palette);
        Do("Group 2");
        EXPECT_EQ(BehindSelected(Get<QListWidget>("lstGroup")), "#0a64c8");
        EXPECT_EQ(BehindSelected(Get<QListWidget>("lstImage")), desktop.Weaker);
        Do("image 0");
        EXPECT_EQ(BehindSelected(Get<QListWidget>("lstGroup")), desktop.Weaker);
        EXPECT_EQ(BehindSelected(Get<QListWidget>("lstImage")), "#0a64c8");
    }
}

// Moves the pressed mouse over a list.
static void DragTo(const QListWidget& list, int y) {
    QMouseEvent move(QEvent::MouseMove, {20, 1. * y}, list.viewport()->mapToGlobal(QPointF(20, y)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(list.viewport(), &move);
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.currentItem()))) << y;
}

TEST_F(TestWindow, KeepsADraggedSelectionInView) {
    Sample.Maps.resize(70);
    StartOnSample();
    auto& list = Get<QListWidget>("lstMap");
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, {20, 20});
    struct Edge {
        int Outside, LastEntry;
    };
    for (const Edge& edge : {Edge{500, 69}, Edge{-30, 0}}) {
        DragTo(list, edge.Outside);
        DragTo(list, edge.Outside + 10); // a second event at the edge makes the list scroll on to its end
        EXPECT_TRUE(QTest::qWaitFor([&] { return list.currentRow() == edge.LastEntry; }))
            << list.currentRow();
        DragTo(list, edge.Outside);
    }
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

// Wine's offscreen windows do not close the toolkit's file dialogs; the tour answers the desktop's.
#ifndef _WIN32
// Dialogs and boxes as they are told.
static std::string AskedForGame(const std::string& proposed) {
    return "\nfolder dialog over the window, cannot make folders: Select the Morvane Folder: " + proposed;
}
static std::string Missing(const std::string& file) {
    return "\nerror over the window: Error: Error: 53\nDescription: " + file + " not found.";
}
static std::string AskedToCreate(const std::string& path) {
    return "\nquestion over a dialog, Yes preset: Confirm Save As: " + path +
           " does not exist.\nDo you want to create it?";
}

TEST_F(TestWindow, AsksForTheFolderAtTheFirstStart) {
    const std::string asked = "\nfolder dialog without an owner, cannot make folders: "
                              "Select the Morvane Folder: " +
                              QDir::homePath().toStdString();
    EXPECT_EQ(Start(""), "empty" + asked); // cancelled
    EXPECT_EQ(Do("Walls/Sprites"), "empty");
    EXPECT_EQ(Start("", {GameDir.Path}), "empty" + asked +
                                             "\nerror without an owner: Error: "
                                             "Error: 53\nDescription: GAME/GAME.PAL not found.");
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

TEST_F(TestWindow, FindsFilesInAnotherCaseAndNamesThemAsBuilt) {
    Sample.Write(GameDir, {1, 2});
    for (const auto& [file, bytes] : GameDir.Files())
        fs::rename(GameDir / file, GameDir / QString(file.c_str()).toLower().toStdString());
    Start(GameDir.Path);
    EXPECT_EQ(Do("Sounds"), "Sounds, exports, episodes 1* 2");
    fs::remove(GameDir / "map.1");
    EXPECT_EQ(Do("Open", {"accept"}),
              "empty Sounds, episode 1 is checked" + AskedForGame("GAME") + Missing("GAME/MAP.1"));
}

TEST_F(TestWindow, RemembersAFolderWhateverItIsCalled) {
    Sample.Write(ProgramFolder, {1});
    const std::string unwritable = "a\rb";
    for (const std::string name :
         {"line\nend", "a=b;[c]", " blank \"quote'", "100%EP%25%s", "caf\xE9\xFF", unwritable.c_str()})
        fs::copy(ProgramFolder.Path, GameDir / name);
    for (const auto& folder : fs::directory_iterator(GameDir.Path)) {
        const std::string path = folder.path().string();
        if (path == GameDir / unwritable) continue;
        EXPECT_EQ(Start(path), "Maps, episodes 1*") << path;
        EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + path + "\r\n");
    }
    fs::current_path(GameDir / unwritable);
    Start(".");
    const std::string told =
        AskedForGame("GAME/a\rb") +
        "\nerror over the window, busy pointer: Could not save INI file.: clsINI.SaveFile: "
        "PROGRAM/viewer.ini: a name or value holds a line end";
    EXPECT_EQ(Do("Open", {"accept"}), "Maps, episodes 1*" + told);
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=.\r\n");
}

// An archive that lists nothing fails softly, one that is gone with an error.
TEST_F(TestWindow, EndsEmptyWhenAnEpisodeFails) {
    for (const std::string name : {"IMG.2", "MAP.2"})
        for (const bool gone : {true, false}) {
            StartOnSample();
            gone ? void(fs::remove(GameDir / name)) : fs::resize_file(GameDir / name, 0);
            EXPECT_EQ(Do("Walls/Sprites, Episode 2"),
                      "empty Walls/Sprites, episode 2 is checked" + (gone ? Missing("GAME/" + name) : ""));
            for (const char* part : {"lstMap", "lstGroup", "lstImage", "lstSound", "picMap", "pic"})
                EXPECT_EQ(Screen()[part], "nothing") << part;
            EXPECT_EQ(Do("Open", {"accept"}),
                      (gone ? "Maps, episodes 1* 3" : "Maps, episodes 1* 2 3") + AskedForGame("GAME"));
        }
}

TEST_F(TestWindow, ShowsNothingOfAnotherEpisode) {
    StartOnSample();
    Sample.Groups[2].Images.clear();
    Sample.Groups.erase(3); // it would begin where group 2 does
    Sample.Write(GameDir, {2});
    EXPECT_EQ(Do("Episode 2"), "Maps, episodes 1 2* 3");
    EXPECT_EQ(Screen()["pic"], "nothing");
    EXPECT_EQ(Do("Walls/Sprites, Export"), "Walls/Sprites, exports, episodes 1 2* 3"); // of no image
    Sample.Groups.clear();
    Sample.Write(GameDir, {1});
    Do("Open", {"accept"});
    EXPECT_EQ(State(), "Maps, episodes 2 3, episode 1 is checked"); // this episode alone cannot be had
}

TEST_F(TestWindow, ChoosesFolders) {
    fs::create_directory(GameDir / "game");
    fs::current_path(GameDir.Path);
    const auto browse = [&](const std::string& start, const QList<std::string>& answers) {
        Answers = answers;
        return ui::BrowseForFolder(start, nullptr, "Title", false);
    };
    for (const char* start : {"game", "./game", "game/"})
        EXPECT_EQ(browse(start, {"accept"}), GameDir / "game");
    TakeDialogs();
    EXPECT_EQ(browse(GameDir / "none/none", {GameDir / "none", GameDir.Path}), GameDir.Path);
    const std::string asked = "\nfolder dialog without an owner, cannot make folders: Title: ";
    EXPECT_EQ(TakeDialogs(), asked + "GAME" +
                                 "\nwarning over a dialog: Title: GAME/none\nThere is no such folder." +
                                 asked + "GAME/none");
    // After going up, by a name or by the button, the folder on display is taken.
    Meanwhile = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("..");
        QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    };
    EXPECT_EQ(browse(GameDir / "game", {"accept"}), GameDir.Path);
    Meanwhile = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("left over");
        dialog.findChild<QToolButton*>("toParentButton")->click();
    };
    EXPECT_EQ(browse(GameDir / "game", {"accept"}), GameDir.Path);
}

TEST_F(TestWindow, EndsACommandWhoseWindowIsClosedMeanwhile) {
    for (const std::string command : {"Open", "Export All"}) {
        StartOnSample();
        Meanwhile = [&](QDialog&) { Window->close(); };
        Do("Walls/Sprites, " + command, {GameDir.Path});
        EXPECT_EQ(Window->isVisible(), false) << command;
        EXPECT_EQ(GameDir.Files().size(), 9);
    }
}

// What is seen of a save dialog that proposes "name" and then gets these answers.
struct SaveCase {
    const char* Rule;
    QList<std::string> Answers;
    std::string Seen;
};

TEST_F(TestWindow, AsksForANameAndBeforeItWrites) {
    fs::create_directory(GameDir / "sub");
    fs::create_directory(ProgramFolder / "tmp"); // in the process's folder, not the dialog's
    fs::current_path(ProgramFolder.Path);
    GameDir.Write("old.bmp", "old");
    const auto asked = [](const std::string& name) {
        return "\nsave dialog without an owner: T: GAME/" + name;
    };
    const auto create = [](const std::string& name) { return AskedToCreate("GAME/" + name); };
    const auto chosen = [](const std::string& name) { return "\nchosen: GAME/" + name; };
    const std::string replace = "\nwarning over a dialog, No preset: Confirm Save As: "
                                "GAME/old.bmp already exists.\nDo you want to replace it?";
    const std::string noFolder = "\nwarning over a dialog: T: GAME/no\nThere is no such folder.";
    const SaveCase cases[] = {
        {"an extension is added", {"accept"}, asked("name") + create("name.bmp") + chosen("name.bmp")},
        {"also in a folder's name", {"tmp"}, asked("name") + create("tmp.bmp") + chosen("tmp.bmp")},
        {"not to another one", {"name.x"}, asked("name") + create("name.x") + chosen("name.x")},
        {"a leading dot begins none", {".x"}, asked("name") + create(".x.bmp") + chosen(".x.bmp")},
        {"a file is replaced", {"old"}, asked("name") + replace + chosen("old.bmp")},
        {"no leads back to what was typed",
         {"a", "no", "old.bmp", "no", "accept"},
         asked("name") + create("a.bmp") + asked("a") + replace + asked("old.bmp") + replace +
             chosen("old.bmp")},
        {"a folder is entered",
         {"sub", "accept"},
         asked("name") + asked("sub/name") + create("sub/name.bmp") + chosen("sub/name.bmp")},
        {"also with a slash", {"sub/", "cancel"}, asked("name") + asked("sub/name")},
        {"with the name typed before",
         {"a", "no", "sub"},
         asked("name") + create("a.bmp") + asked("a") + asked("sub/a")},
        {"a folder must exist", {"no/a"}, asked("name") + noFolder + asked("no/a")},
        {"also without a name", {"no/"}, asked("name") + noFolder + asked("no/")},
    };
    for (const auto& [rule, answers, seen] : cases) {
        int filter = 2;
        Answers = answers;
        const std::string path = // starts next to a folder that cannot be shown
            ui::ShowSaveDialog(nullptr, "A|*.a|B|*.*", "T", GameDir / "caf\xE9", "bmp", "name", filter);
        const std::string result = path.empty() ? "" : chosen(path.substr(GameDir.Path.size() + 1));
        EXPECT_EQ(TakeDialogs() + result, seen) << rule;
        EXPECT_EQ(filter, 2);
    }
}

TEST_F(TestWindow, ExportsTheItemInView) {
    StartOnSample();
    Contents files = Sample.ImageFiles(1);
    files.merge(Sample.SoundFiles());
    struct ExportCase {
        std::string Steps, Title, File;
    };
    for (const auto& [steps, title, file] :
         {ExportCase{"Walls/Sprites, image 2", "Save Image As...", "Picture 1-002-03.bmp"},
          {"Sounds, InstBank 9", "Save Instrument Bank As...", "Morvane.ibk"},
          {"MIDI 2", "Save MIDI As...", "Song 002.mid"},
          {"VOC 17", "Save VOC As...", "Sound 017.voc"}}) {
        Do(steps);
        EXPECT_EQ(Do("Export", {"accept"}), State() + "\nsave dialog over the window: " + title +
                                                ": PROGRAM/" + file + AskedToCreate("PROGRAM/" + file));
        EXPECT_EQ(ProgramFolder.Files()[file], files[file]);
    }
    fs::remove(GameDir / "SND.DAT"); // not looked for before a name is chosen
    EXPECT_EQ(Do("Export", {"cancel"}), "Sounds, exports, episodes 1* 2 3\nsave dialog over the window: Save "
                                        "VOC As...: PROGRAM/Sound 017.voc");
}

TEST_F(TestWindow, ExportsAllOfTheView) {
    Sample.Groups[8].SharesLower = true;
    StartOnSample();
    Sample.Groups.erase(8);
    Do("Episode 2, Sounds");
    const TempFolder target;
    target.Write("Sound 017.voc", std::string(9000, 'x'));
    const std::string sounds = "Sounds, exports, episodes 1 2* 3";
    const std::string asked = "\nfolder dialog over the window: Export Path: PROGRAM";
    EXPECT_EQ(Do("Export All", {target.Path + "/"}),
              sounds + asked + "\nmessage over the window, busy pointer: Morvane Extractor: Done");
    EXPECT_EQ(Differences(target.Files(), Sample.SoundFiles()), "");
    EXPECT_EQ(Do("Export All", {"cancel"}), sounds + asked);
    Do("Walls/Sprites");
    EXPECT_EQ(WrongExports(), "");
    const std::string second = target / "Picture 2-003-01.bmp";
    fs::create_directory(second);
    EXPECT_EQ(Do("Export All", {target.Path}),
              "Walls/Sprites, exports, episodes 1 2* 3" + asked +
                  "\nerror over the window: Error: Error: 21\nDescription: " + second +
                  ": Is a directory");
    // Another game is to be opened meanwhile, and cannot.
    Meanwhile = [&](QDialog&) { QTimer::singleShot(0, &Get<QAction>("mnuFileOpen"), &QAction::trigger); };
    EXPECT_EQ(Do("Export All", {target.Path, ProgramFolder.Path}),
              "empty Walls/Sprites, episode 2 is checked" + asked + AskedForGame("GAME") +
                  Missing("PROGRAM/GAME.PAL"));
}

// Random actions over two games, with what must always hold checked after each.
TEST_F(TestWindow, KeepsTogetherWhatBelongsTogether) {
    QRandomGenerator random(1); // the same session in every run
    const auto oneIn = [&](int number) { return random.bounded(number) == 0; };
    const auto pick = [&](const QStringList& words) { return words[random.bounded(words.size())]; };
    const QStringList actions{"lstMap", "lstGroup", "lstImage",  "lstSound",      "Up",
                              "Down",   "Home",     "End",       "PgUp",          "Tab",
                              "Space",  "G",        "Maps",      "Walls/Sprites", "Walls/Sprites",
                              "Sounds", "Open",     "Episode 1", "Episode 2",     "Episode 3"};
    std::array games{Sample, Sample};
    const std::array<TempFolder, 2> folders;
    games[1].Groups.erase(2);
    games[1].Maps.resize(70);
    for (std::size_t i = 0; i < games.size(); ++i) games[i].Write(folders[i]);
    fs::remove(folders[1] / "IMG.2");
    std::size_t game = 0;
    Start(folders[game].Path);
    for (int i = 0; i < 1500; ++i) {
        QString action = IsOpen() ? pick(actions) : "Open";
        if (const auto* list = Window->findChild<QListWidget*>(action)) {
            if (list->count() == 0 || !list->isVisible()) continue;
            action =
                (action == "lstImage" ? "image " : "") + list->item(random.bounded(list->count()))->text();
        }
        const bool opens = action == "Open" && !oneIn(5);
        if (opens) Sample = games[game = random.bounded(2U)];
        const QStringList files{"IMG.1", "IMG.2", "MAP.1", "MAP.2", "MAP.3", "UIF.DAT"};
        const std::string path = folders[game] / pick(files).toStdString();
        const bool gone = oneIn(9) && fs::exists(path);
        if (gone) fs::rename(path, path + " away");
        const std::string answer = opens ? folders[game].Path + pick({"/", ""}).toStdString() : "cancel";
        const QString seen = Do(action.toStdString(), {answer}).c_str();
        if (gone) fs::rename(path + " away", path);
        SCOPED_TRACE(testing::Message()
                     << "action " << i << ", " << action.toStdString() << ": " << seen.toStdString());
        ASSERT_TRUE(
            seen.contains(QRegularExpression("^(empty|(Maps|(Walls/Sprites|Sounds), exports), episodes)")));
        ASSERT_FALSE(seen.contains("\nbut ") || seen.contains(", but "));
        const bool command = action == "Open" || action.startsWith("Episode");
        ASSERT_FALSE(command && seen.contains("\nerror ") && IsOpen());
        ASSERT_EQ(WrongExports(), "");
        ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    }
}
#endif

} // namespace morvane
