#include "TestWindow.h"
#include "modBrowseForFolder.h"
#include "modCommonDialog.h"

namespace morvane {

static const std::string Asked = "\n^RSelect the Morvane Folder: GAME";

static const std::string Missing = "\n!^Error: Error: 53\nDescription: GAME/";

// The places along a row or column where the window's own colour begins or ends.
static std::string Edges(const QImage& shot, QPoint at, QPoint step) {
    std::string text;
    for (; shot.rect().contains(at); at += step)
        if ((shot.pixel(at) == shot.pixel(2, 2)) != (shot.pixel(at - step) == shot.pixel(2, 2)))
            text += std::to_string(at.x() * step.x() + at.y() * step.y()) + " ";
    return text;
}

TEST_F(TestWindow, ShowsEverythingInItsPlace) {
    Sample.Groups[511] = SampleGame::MakeGroup(9, 70);
    Sample.Groups[2].Images[0] = {250, 250, 0, 0, ByteVector(62'500, 9)}; // higher than its box
    StartOnSample();
    EXPECT_EQ(Chosen("lstMap") + Chosen("lstGroup") + Chosen("lstImage") + Chosen("lstSound"), 0);
    std::string edges, menus;
    for (const char* view : {"Ctrl+M", "Ctrl+D", "Ctrl+W"}) {
        Do(view);
        const QImage shot = Window->centralWidget()->grab().toImage();
        edges += "across " + Edges(shot, {1, 300}, {1, 0}) + "down " + Edges(shot, {400, 20}, {0, 1}) + "| " +
                 Edges(shot, {90, 20}, {0, 1}) + "\n";
    }
    for (const char* menu : {"mnuFile", "mnuView"})
        for (const QAction* item : Get<QMenu>(menu).actions()) menus += item->text().toStdString() + ",";
    EXPECT_EQ(menus, "&Open,,&Export,Export All,,E&xit,Episode &1,Episode &2,Episode &3,,&Maps,"
                     "&Walls/Sprites,&Sounds,");
    EXPECT_EQ(edges,
              "across 8 10 16 145 152 600 607 609 down 24 472 479 481 | 24 470 479 481 \n"
              "across 8 10 16 105 607 609 down 479 481 | 24 470 479 481 \n"
              "across 8 10 16 97 104 145 152 473 607 609 down 24 137 184 357 479 481 | 24 470 479 481 \n");
    EXPECT_EQ(Do("lstGroup 3"), "eVe++*+++*+");
    for (const char* name : Lists)
        for (const ui::ListItem& item : Get<ui::ListBox>(name).Items())
            EXPECT_LE(QFontMetrics(Get(name).font()).horizontalAdvance(item.Text.c_str()) + 2,
                      Get<QListWidget>(name).viewport()->width());
    for (const char* next : {"lstImage", "pic", "txt", "lstGroup"})
        EXPECT_EQ((Do("Tab"), QApplication::focusWidget()->objectName()), next);
    EXPECT_TRUE(Get("fra1").font().bold() && QFontInfo(Get("txt").font()).fixedPitch());
}

// The colour behind the selected entry of a list.
static QColor BehindSelected(const QListWidget& list) {
    const QRect entry = list.visualItemRect(list.currentItem());
    return list.viewport()->grab().toImage().pixelColor(entry.right() - 2, entry.center().y());
}

TEST_F(TestWindow, MarksTheListThatHasTheKeyboard) {
    StartOnSample();
    Do("Ctrl+W");
    for (const auto& [base, weaker] :
         std::map<QString, QString>{{"#ffffff", "#9dc1e9"}, {"#141e28", "#103a68"}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Highlight, "#0a64c8");
        palette.setColor(QPalette::Inactive, QPalette::Highlight, base); // as some desktops have it
        for (const char* name : Lists) Get(name).setPalette(palette);
        for (const QStringList& lists : {QStringList{"lstGroup", "lstImage"}, {"lstImage", "lstGroup"}}) {
            Do(lists[0].toStdString() + " 0");
            EXPECT_EQ(BehindSelected(Get<QListWidget>(lists[0])).name(), "#0a64c8");
            EXPECT_EQ(BehindSelected(Get<QListWidget>(lists[1])).name(), weaker);
        }
    }
}

TEST_F(TestWindow, KeepsADraggedSelectionInView) {
    Sample.Maps.resize(70);
    StartOnSample();
    auto& list = Get<QListWidget>("lstMap");
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, {20, 20});
    for (const int y : {500, 510, -30, -40}) {
        QMouseEvent move(QEvent::MouseMove, {20, 1. * y}, list.viewport()->mapToGlobal(QPointF(20, y)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(list.viewport(), &move);
        const int end = y > 0 ? 69 : 0; // a second event at the edge makes the list scroll on to it
        const bool first = y == 500 || y == -30;
        EXPECT_TRUE(first || QTest::qWaitFor([&] { return list.currentRow() == end; })) << list.currentRow();
        EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.currentItem()))) << y;
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
TEST_F(TestWindow, AsksForTheFolderAtTheFirstStart) {
    Start(""); // cancelled
    EXPECT_EQ(Do("Ctrl+W"), "v----------\nRSelect the Morvane Folder: " + QDir::homePath().toStdString());
    Start("", {GameDir.Path});
    EXPECT_TRUE(Do("Ctrl+W").ends_with("\n!Error: Error: 53\nDescription: GAME/GAME.PAL not found."));
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=\r\n");
    Sample.Write(GameDir);
    Start("\r\n[B]\r\n;" + std::string(9000, 'x'), {GameDir.Path});
    EXPECT_TRUE(Do("Ctrl+W").starts_with("eVe++*+++*+\nRSelect"));
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + GameDir.Path + "\r\n\r\n[B]\r\n");
    Sample.Maps[0].fill({2, 0});
    Sample.Write(GameDir);
    EXPECT_EQ(Do("Ctrl+M, Home"), "Vee--*++*++"); // read again, though selected before
    Do("mnuFileExit");
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(TestWindow, FindsFilesInAnotherCaseAndNamesThemAsBuilt) {
    Sample.Write(GameDir, {1, 2});
    for (const auto& [file, bytes] : FilesIn(GameDir.Path))
        fs::rename(GameDir / file, GameDir / QString(file.c_str()).toLower().toStdString());
    Start(GameDir.Path);
    EXPECT_EQ(Do("Ctrl+D"), "eeV++*+-++*");
    fs::remove(GameDir / "map.1");
    EXPECT_EQ(Do("Ctrl+O", {""}), "--v--x----x" + Asked + Missing + "MAP.1 not found.");
}

TEST_F(TestWindow, OpensWhateverTheFolderIsCalled) {
    Sample.Write(ProgramFolder, {1});
    for (const std::string name :
         {"line\nend", "a=b;[c]", " blank \"quote'", "100%EP%25%s", "caf\xE9\xFF", "a\rb"}) {
        fs::copy(ProgramFolder.Path, GameDir / name);
        fs::current_path(GameDir / name);
        Start(name == "a\rb" ? "." : GameDir / name);
        EXPECT_EQ(Do("Ctrl+D"), "eeV++*--++*") << name;
    }
    EXPECT_EQ(Do("Ctrl+O", {""}), "Vee--*--*++" + Asked +
                                      "/a\rb\n!^~Could not save INI file.: clsINI.SaveFile: "
                                      "PROGRAM/viewer.ini: a name or value holds a line end");
    EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=.\r\n");
}

// An archive that lists nothing fails softly, one that is gone with an error.
TEST_F(TestWindow, EndsEmptyWhenAnEpisodeFails) {
    for (const std::string name : {"IMG.2", "MAP.2"})
        for (const bool gone : {true, false}) {
            StartOnSample();
            gone ? void(fs::remove(GameDir / name)) : fs::resize_file(GameDir / name, 0);
            EXPECT_EQ(Do("Ctrl+W, Ctrl+Shift+F2"),
                      "-v----x--x-" + (gone ? Missing + name + " not found." : ""));
            for (const char* list : Lists) EXPECT_EQ(Screen()[list], "-1");
            EXPECT_EQ(Screen()["picMap"] + Screen()["pic"], SumOf({}) + SumOf({}));
            EXPECT_EQ(Do("Ctrl+O", {""}), (gone ? "Vee--*-+*++" : "Vee--*++*++") + Asked);
        }
    Sample.Groups[2].Images.clear();
    Sample.Groups.erase(3); // it would begin where group 2 does
    Sample.Write(GameDir, {2});
    EXPECT_EQ(Do("Ctrl+Shift+F2"), "Vee--+*+*++");
    EXPECT_EQ(Screen()["pic"], SumOf({})); // none of the other episode
    EXPECT_EQ(Do("Ctrl+W, mnuFileExport"), "eVe+++*++*+");
    Sample.Groups.clear();
    Sample.Write(GameDir, {1});
    EXPECT_EQ(Do("Ctrl+O", {""}).substr(0, 11), "Vee--x++*++"); // this episode alone cannot be had
}

TEST_F(TestWindow, ChoosesFolders) {
    fs::create_directory(GameDir / "game");
    fs::current_path(GameDir.Path);
    for (const char* start : {"game", "./game", "game/"}) {
        Answers = {""};
        EXPECT_EQ(ui::BrowseForFolder(start, nullptr, "Title", false), GameDir / "game");
    }
    TakeSeen();
    Answers = {GameDir / "none", GameDir.Path};
    EXPECT_EQ(ui::BrowseForFolder(GameDir / "none/none", nullptr, "Title", false), GameDir.Path);
    EXPECT_EQ(TakeSeen(), "\nRTitle: GAME\n^Title: GAME/none\nThere is no such folder.\nRTitle: GAME/none");
    // Up, whether by the button or by a name: then the folder on display is taken.
    for (const char* typed : {"left over", ".."}) {
        Meanwhile = [&](QDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            name->setText(typed);
            if (name->text() == "..") return QTest::keyClick(name, Qt::Key_Return);
            dialog.findChild<QToolButton*>("toParentButton")->click();
        };
        Answers = {""};
        EXPECT_EQ(ui::BrowseForFolder(GameDir / "game", nullptr, "Title", false), GameDir.Path) << typed;
    }
    for (const char* item : {"mnuFileOpen", "mnuFileExportAll"}) {
        StartOnSample();
        Meanwhile = [&](QDialog&) { Window->close(); };
        EXPECT_EQ(Do(std::string("Ctrl+W, ") + item, {GameDir.Path}).find('!'), std::string::npos);
        EXPECT_TRUE(!Window->isVisible() && FilesIn(GameDir.Path).size() == 9);
    }
}

static std::string Create(const std::string& path, const std::string& owner = "") {
    return "\n" + owner + "YConfirm Save As: " + path + " does not exist.\nDo you want to create it?";
}

TEST_F(TestWindow, AsksForANameAndBeforeItWrites) {
    fs::create_directory(GameDir / "sub");
    fs::create_directory(ProgramFolder / "tmp"); // in the process's folder, not the dialog's
    fs::current_path(ProgramFolder.Path);
    GameDir.Write("old.bmp", "old");
    const auto save = [&](const QList<std::string>& answers) { // starts next to a folder that cannot be shown
        int filter = 2;
        Answers = answers;
        const std::string path =
            ui::ShowSaveDialog(nullptr, "A|*.a|B|*.*", "T", GameDir / "caf\xE9", "bmp", "name", filter);
        return TakeSeen() + (path.empty() ? "" : "\n" + path.substr(GameDir.Path.size())) +
               (filter == 2 ? "" : "filter");
    };
    const std::string replace =
                          "\n^NConfirm Save As: GAME/old.bmp already exists.\nDo you want to replace it?",
                      asked = "\nT: GAME/name";
    const std::string longName(300, 'W');
    for (const auto& [typed, name] : std::map<std::string, std::string>{
             {"", "name.bmp"}, {"tmp", "tmp.bmp"}, {"name.x", "name.x"}, {".x", ".x.bmp"}})
        EXPECT_EQ(save({typed}), Create("GAME/" + name, "^").insert(0, asked).append("\n/").append(name));
    EXPECT_EQ(save({"old"}), asked + replace + "\n/old.bmp");
    EXPECT_EQ(save({"a", "no", "old.bmp", "no", ""}), asked + Create("GAME/a.bmp", "^") + "\nT: GAME/a" +
                                                          replace + "\nT: GAME/old.bmp" + replace +
                                                          "\n/old.bmp");
    for (const char* typed : {"sub", "sub/"}) // entered; the name proposed comes back
        EXPECT_EQ(save({typed, ""}),
                  asked + "\nT: GAME/sub/name" + Create("GAME/sub/name.bmp", "^") + "\n/sub/name.bmp");
    EXPECT_EQ(save({"a", "no", "sub"}), asked + Create("GAME/a.bmp", "^") + "\nT: GAME/a\nT: GAME/sub/a");
    for (const char* typed : {"no/a", "no/"})
        EXPECT_EQ(save({typed}), asked + "\n^T: GAME/no\nThere is no such folder.\nT: GAME/" + typed);
    const std::string seen = save({longName});
    EXPECT_EQ(QString(seen.c_str()).remove('\n').toStdString(),
              "T: GAME/name^T: GAME/" + longName + ".bmpThe name is too long.T: GAME/" + longName);
}

TEST_F(TestWindow, ExportsTheItemInView) {
    StartOnSample();
    std::map<std::string, ByteVector> files = Sample.ImageFiles(1);
    files.merge(Sample.SoundFiles());
    for (const auto& [entry, title, name] :
         std::vector<std::array<std::string, 3>>{{"Ctrl+W, lstImage 2", "Image", "Picture 1-002-03.bmp"},
                                                 {"Ctrl+D, lstSound 0", "Instrument Bank", "Morvane.ibk"},
                                                 {"Ctrl+D, lstSound 1", "MIDI", "Song 002.mid"},
                                                 {"Ctrl+D, lstSound 2", "VOC", "Sound 017.voc"}}) {
        const auto asked = std::string("\n^Save ").append(title).append(" As...: PROGRAM/").append(name);
        EXPECT_EQ(Do(entry + ", mnuFileExport", {""}).substr(11),
                  Create("PROGRAM/" + name, "^").insert(0, asked));
        EXPECT_EQ(BytesOf(ProgramFolder / name), files[name]);
    }
    fs::remove(GameDir / "SND.DAT"); // not looked for before a name is chosen
    EXPECT_EQ(Do("mnuFileExport", {"no/a"}),
              "eeV++*++++*\n^Save VOC As...: PROGRAM/Sound 017.voc\n^Save VOC As...: PROGRAM/no\nThere is "
              "no such folder.\n^Save VOC As...: PROGRAM/no/a");
}

TEST_F(TestWindow, ExportsAllOfTheView) {
    Sample.Groups[8].SharesLower = true;
    StartOnSample();
    Sample.Groups.erase(8);
    Do("Ctrl+Shift+F2, Ctrl+D");
    const TempFolder target;
    target.Write("Sound 017.voc", std::string(9000, 'x'));
    const std::string asked = "\n^Export Path: PROGRAM", second = target / "Picture 2-003-01.bmp";
    EXPECT_EQ(Do("mnuFileExportAll", {target.Path + "/"}),
              "eeV+++*+++*" + asked + "\n^~Morvane Extractor: Done");
    EXPECT_EQ(Differences(FilesIn(target.Path), Sample.SoundFiles()), "");
    EXPECT_EQ(Do("mnuFileExportAll"), "eeV+++*+++*" + asked);
    Do("Ctrl+W");
    EXPECT_EQ(WrongExports(), "");
    fs::create_directory(second);
    EXPECT_EQ(Do("mnuFileExportAll", {target.Path}),
              "eVe+++*++*+" + asked + "\n!^Error: Error: 21\nDescription: " + second + ": Is a directory");
    // Another game is to be opened meanwhile, and cannot.
    Meanwhile = [&](QDialog&) { QTimer::singleShot(0, &Get<QAction>("mnuFileOpen"), &QAction::trigger); };
    EXPECT_EQ(Do("mnuFileExportAll", {target.Path, ProgramFolder.Path}).substr(11),
              asked + Asked + "\n!^Error: Error: 53\nDescription: PROGRAM/GAME.PAL not found.");
}

// Random actions over two games, with what must always hold checked after each.
TEST_F(TestWindow, KeepsTogetherWhatBelongsTogether) {
    QRandomGenerator random(1); // the same session in every run
    const auto pick = [&](const QString& words) {
        return words.split(' ')[random.bounded(static_cast<int>(words.count(' ')) + 1)].toStdString();
    };
    std::array games{Sample, Sample};
    const std::array<TempFolder, 2> folders;
    games[1].Groups.erase(2);
    games[1].Maps.resize(70);
    for (std::size_t i = 0; i < games.size(); ++i) games[i].Write(folders[i]);
    fs::remove(folders[1] / "IMG.2");
    std::size_t game = 0;
    Start(folders[game].Path);
    for (int i = 0; i < 1500; ++i) {
        std::string action =
            pick("lstMap lstGroup lstImage lstSound Up Down Home End PgUp Tab Space G Ctrl+M Ctrl+W Ctrl+W "
                 "Ctrl+D Ctrl+O Ctrl+Shift+F1 Ctrl+Shift+F2 Ctrl+Shift+F3");
        if (!IsOpen()) action = "Ctrl+O";
        if (action.starts_with("lst")) {
            const auto& list = Get<QListWidget>(action.c_str());
            if (list.count() == 0 || !list.isVisible()) continue;
            action += " " + std::to_string(random.bounded(std::min(30, list.count())));
        }
        const bool opens = action == "Ctrl+O" && random.bounded(5) != 0;
        if (opens) Sample = games[game = random.bounded(2U)];
        const std::string path = folders[game] / pick("IMG.1 IMG.2 MAP.1 MAP.2 MAP.3 UIF.DAT");
        const bool gone = random.bounded(9) == 0 && fs::exists(path);
        if (gone) fs::rename(path, path + " away");
        const std::string done = opens ? Do(action, {folders[game].Path + pick("/ ")}) : Do(action);
        if (gone) fs::rename(path + " away", path);
        SCOPED_TRACE(testing::Message() << "action " << i << ", " << action << ": " << done);
        ASSERT_TRUE(done.find("MIXED") == std::string::npos &&
                    QString("Vee-- eVe++ eeV++ v---- -v--- --v--").contains(done.substr(0, 5).c_str()));
        ASSERT_FALSE(done.find('!') != std::string::npos && action.starts_with("Ctrl") && IsOpen());
        ASSERT_EQ(random.bounded(9) == 0 ? WrongExports() : "", "");
        ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    }
}
#endif

} // namespace morvane
