#include "TestWindow.h"
#include "modCommonDialog.h"

// Wine does not close the toolkit's file dialogs; the tour answers the desktop's.
#ifndef _WIN32
namespace morvane {

/// The file dialogs, with the program in HOME/app and the sounds shown, ready for export. Empty folders lie
/// around, and HOME/far is a link to one; "app2" and "out 2" begin like others.
struct FileDialogs : TestWindow {
    FileDialogs() {
        for (const char* folder : Folders) fs::create_directories(Home + folder);
        fs::create_directory_symlink(Home + "/app/one/deep", Home + "/far");
        StartOnSample();
        Do("Sounds");
    }

    /// What dialogs tell from the second on, after answers to those that a menu item brings up: of a file
    /// dialog the path in its field, of a box its title and text.
    std::string After(const std::string& item, const QList<std::string>& answers) {
        const QRegularExpression kinds("(folder|save) dialog .*: .*: |(message|question|question for a name) "
                                       "over .*: |warning over a dialog: ",
                                       QRegularExpression::InvertedGreedinessOption);
        return QString::fromStdString(Do(item, answers)).section("\n", 2).remove(kinds).toStdString();
    }

    /// The folder of each song below HOME, with a blank behind it.
    [[nodiscard]] std::string FoldersWithSongs() const {
        std::string folders;
        for (const auto& entry : fs::recursive_directory_iterator(Home))
            if (entry.path().extension() == ".mid")
                folders += entry.path().parent_path().string().substr(Home.size()) + " ";
        return folders;
    }

    static constexpr std::array Folders{"/",        "/app2",    "/out",     "/out 2",      "/app/one/deep",
                                        "/app/one", "/app/sub", "/app/two", "/app/.hidden"};
};

const std::string Create = " does not exist.\nDo you want to create it?\n";
const std::string NoFolder = "\nThere is no such folder.\n";

TEST_F(FileDialogs, TakeWhatIsTypedAfterAMistypedFolder) {
    EXPECT_EQ(After("Export All", {"HOME/zzz", "HOME/out"}),
              "Export Path: HOME/zzz" + NoFolder + "HOME/zzz\nMorvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/out ");
    fs::create_directory_symlink(GameDir.Path, Home + "/game");
    for (const std::string typed : {"HOME/game", "HOME/game/", "HOME/out/../game", "HOME//./game"}) {
        After("Open", {"HOME/zzz", typed});
        EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + Home + "/game\r\n") << typed;
    }
    After("Sounds, Export", {"HOME/zzz/new", "HOME/out/new"});
    EXPECT_EQ(TextOf(Home + "/out/new.mid"), "MThd song");
}

TEST_F(FileDialogs, TakeForTheFolderAboveTheOneThatIsSeen) {
    for (const QList<std::string>& answers :
         {QList<std::string>{"HOME/far/../out"}, {"..", "click far", "press Ctrl+Down", "../out"}}) {
        EXPECT_TRUE(After("Export All", answers).ends_with("Morvane Extractor: Done"));
        EXPECT_EQ(FoldersWithSongs(), "/out ");
        fs::remove_all(Home + "/out");
        fs::create_directory(Home + "/out");
    }
    EXPECT_EQ(
        After("Export All", {"click one", "press Ctrl+Down", "type ..", "click Open", "../"}),
        "PROGRAM/one, one is highlighted\nPROGRAM/one\nPROGRAM/one/.., the button opens\nPROGRAM\nHOME");
    for (const std::string typed : {"x/", "x/.", "x/y/.."})
        EXPECT_NE(After("Export", {typed}).find("PROGRAM/x" + NoFolder), std::string::npos) << typed;
    for (const std::string typed : {"~", "..", "../", "one/../..", "x/../.."})
        EXPECT_EQ(After("Export", {typed}), "HOME/Song 002.mid") << typed;
}

TEST_F(FileDialogs, AskBeforeAFileIsWritten) {
    ProgramFolder.Write("old.mid", "old");
    EXPECT_EQ(After("Export", {"old", "no", "new", "no", "accept"}),
              "warning over a dialog, No preset: Confirm Save As: PROGRAM/old.mid already exists.\n"
              "Do you want to replace it?\nPROGRAM/old\nConfirm Save As: PROGRAM/new.mid" +
                  Create + "PROGRAM/new\nConfirm Save As: PROGRAM/new.mid" +
                  Create.substr(0, Create.size() - 1));
    EXPECT_EQ(TextOf(ProgramFolder / "old.mid") + TextOf(ProgramFolder / "new.mid"), "oldMThd song");
    for (const std::size_t letters : {240U, 300U}) {
        const std::string told = Do("Export", {std::string(letters, 'W'), "no"});
        EXPECT_NE(told.find(letters > 255 ? "too long" : "create it"), std::string::npos);
        EXPECT_EQ(told.find("but"), std::string::npos) << told;
    }
}

TEST_F(FileDialogs, TakeTheTextAsItStands) {
    for (const auto& [text, path] : std::map<std::string, std::string>{
             {"a\"b", "PROGRAM/a\"b"}, {"~/x", "HOME/x"}, {"/HOME/x", "HOME/x"}, {"one/../x", "PROGRAM/x"}}) {
        EXPECT_EQ(After("Export", {text, "no"}).find(path + ".mid does not exist"), 17)
            << text; // after the title
        EXPECT_EQ(After("Export All", {text}).find(path + "\nThere is no such folder"), 13) << text;
    }
    const auto paste = [](const QString& text) { QGuiApplication::clipboard()->setText(text); };
    paste(QString::fromStdString(Home + "\r\n/o\nut\n"));
    EXPECT_EQ(After("Export All", {"type ", "press Ctrl+V", "type  2", "accept"}),
              "PROGRAM\nHOME/out\nHOME/out 2\nMorvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/out 2 ");
    fs::create_directory(ProgramFolder / "line\nend");
    EXPECT_EQ(
        After("Export All", {"click line\nend", "type  2", "press Backspace", "press Backspace", "accept"}),
        "PROGRAM/line\nend, line\nend is highlighted\nPROGRAM/line\nend 2\nPROGRAM/line\nend \n"
        "PROGRAM/line\nend\nMorvane Extractor: Done");
    paste(QString("long/").repeated(800));
    const std::string told = After("Export All", {"type ", "press Ctrl+V", "accept"});
    EXPECT_NE(told.find(" ... "), std::string::npos) << told;
    EXPECT_EQ(told.find("but"), std::string::npos) << told;
}

TEST_F(FileDialogs, CompleteByTabWhatIsTyped) {
    for (const char* name : {"song.mid", "note.txt"}) ProgramFolder.Write(name, "");
    // A "z" typed behind Tab stands in the field when that has added something, and has not left it.
    const std::map<std::string, std::string> cases{{"HOME/ou", "HOME/outz"},
                                                   {"HOME/out", "HOME/out"},
                                                   {"~/ou", "PROGRAM/~/outz"},
                                                   {"../ou", "PROGRAM/../outz"},
                                                   {"su", "PROGRAM/sub/z"},
                                                   {"sub", "PROGRAM/sub/z"},
                                                   {"one/d", "PROGRAM/one/deep/z"},
                                                   {"Su", "PROGRAM/Su"},
                                                   {"x", "PROGRAM/x"},
                                                   {"hid", "PROGRAM/hid"},
                                                   {".hid", "PROGRAM/.hidden/z"},
                                                   {"note", "PROGRAM/note"},
                                                   {"one/", "PROGRAM/one/"},
                                                   {"~", "PROGRAM/~"},
                                                   {".", "PROGRAM/."},
                                                   {"..", "PROGRAM/.."}};
    for (const std::string item : {"Export All", "Export"})
        for (const auto& [typed, then] : cases) {
            const std::string seen =
                After(item, {"type ", "press Ctrl+A", "type " + typed, "press Tab", "press Z"});
            EXPECT_EQ(seen.substr(seen.rfind('\n') + 1, then.size()), then) << item << ", " << typed;
            EXPECT_EQ(seen.ends_with("z"), then.ends_with("z")) << item << ", " << typed;
        }
    // What of the files is listed, in the save dialog.
    EXPECT_EQ(After("Export", {"type ", "press Ctrl+A", "type so", "press Tab", "press Home", "press Tab"}),
              "PROGRAM/Song 002.mid\nPROGRAM/Song 002.mid\nPROGRAM/so\nPROGRAM/song.mid\n"
              "PROGRAM/song.mid\nPROGRAM/song.mid");
    EXPECT_EQ(After("Export All", {"type HOME/ou", "press Tab", "press Tab", "press Shift+Tab", "press Tab"}),
              "HOME/ou\nHOME/out\nHOME/out\nHOME/out\nHOME/out");
    const std::string highlighted = "PROGRAM/sub, sub is highlighted";
    EXPECT_EQ(After("Export All", {"click sub", "type ", "press Tab", "press Z"}),
              highlighted + "\n" + highlighted + "\n" + highlighted + "\n" + highlighted);
}

TEST_F(FileDialogs, TakeNoNameWhileTheyShowDrives) {
    const std::string choose = ": Choose a drive or folder first.\n";
    EXPECT_EQ(After("Export All", {"click Computer", "accept", "zzz", "click Choose", "click /"}),
              ".\nExport Path" + choose + ".\nExport Path" + choose + "./zzz\nExport Path" + choose +
                  "./zzz\n/, / is highlighted");
    EXPECT_EQ(After("Export", {"click Computer", "accept", "HOME/x", "no"}),
              "./Song 002.mid\nSave MIDI As..." + choose + "./Song 002.mid\nConfirm Save As: HOME/x.mid" +
                  Create + "HOME/x");
}

TEST_F(FileDialogs, HighlightInTheFolderChooserWhatIsChosen) {
    EXPECT_EQ(After("Export All", {"click one", "type x", "press Backspace", "click two", "click Choose"}),
              "PROGRAM/one, one is highlighted\nPROGRAM/onex\nPROGRAM/one\nPROGRAM/two, two is highlighted\n"
              "Morvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/app/two ");
    Meanwhile = [](const QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("fileNameLabel")->text(), "Folder:");
        for (const char* part : {"fileTypeLabel", "fileTypeCombo"})
            EXPECT_FALSE(dialog.findChild<QWidget*>(part)->isVisible()) << "it has one choice";
    };
    EXPECT_EQ(After("Export All", {"click one", "click Parent Directory", "click out", "click me",
                                   "click Back", "click Forward"}),
              "PROGRAM/one, one is highlighted\nHOME\nHOME/out, out is highlighted\nHOME\nPROGRAM\nHOME");
}

TEST_F(FileDialogs, DeleteRenameAndMoveNothing) {
    for (const std::string item : {"Export All", "Export"}) {
        After(item, {"click two", "press Delete", "press F2", "press Z", "press Return"});
        After(item, {"drag two to one"});
        for (const char* folder : Folders) EXPECT_TRUE(fs::exists(Home + folder)) << item << ", " << folder;
    }
}

TEST_F(FileDialogs, KeepTheNameOfWhatVanishes) {
    EXPECT_EQ(After("Export All", {"click one", "lose one", "click Choose"}),
              "PROGRAM/one\nPROGRAM/one\nExport Path: PROGRAM/one" + NoFolder + "PROGRAM/one");
    for (const char* name : {"a.mid", "b.mid"}) ProgramFolder.Write(name, "old");
    EXPECT_EQ(After("Export", {"click a.mid", "lose a.mid", "press Return", "no"}),
              "PROGRAM/a.mid\nPROGRAM/a.mid\nConfirm Save As: PROGRAM/a.mid" + Create + "PROGRAM/a.mid");
}

TEST_F(FileDialogs, EnterAHighlightedFolderOnlyByTheListAndTheButton) {
    const std::string asked = "Confirm Save As: PROGRAM/Song 002.mid" + Create,
                      opens = "PROGRAM/Song 002.mid, sub is highlighted, the button opens\n";
    EXPECT_EQ(After("Export", {"click sub", "accept", "no", "click Open", "click Back", "accept", "no"}),
              opens + asked + opens + "PROGRAM/sub/Song 002.mid\nPROGRAM/Song 002.mid\n" + asked +
                  "PROGRAM/Song 002.mid");
    EXPECT_EQ(After("Export", {"click sub", "press Return"}), opens + "PROGRAM/sub/Song 002.mid");
    EXPECT_EQ(After("Export", {"click sub", "type x"}), opens + "PROGRAM/Song 002.midx");
}

TEST_F(FileDialogs, ListTheFilesOfAFilter) {
    for (const char* name : {"a.mid", "b.txt"}) ProgramFolder.Write(name, "old");
    for (const auto& [preselected, taken, found] :
         {std::tuple(0, 1, "a.mid"), std::tuple(1, 1, "a.mid"), std::tuple(2, 2, "b.txt")}) {
        int filter = preselected;
        Answers = {"click a.mid", "press B"};
        EXPECT_EQ(ui::ShowSaveDialog(Window.get(), "MIDI Files (*.mid)|*.mid|All Files (*.*)|*.*", "Save",
                                     ProgramFolder.Path, "mid", "new", filter),
                  "");
        EXPECT_EQ(filter, taken);
        EXPECT_NE(Seen().rfind(found + std::string(" is highlighted")), std::string::npos) << filter;
    }
}

TEST_F(FileDialogs, MakeAFolderUnderANameAskedFor) {
    const std::string question = "New Folder: ",
                      taken = "\nThere is a file or folder of this name already.\n",
                      noName = "\nThis is not a name for a folder.\n";
    EXPECT_EQ(
        After("Export All", {"reach newFolderButton", "press Return", "one", "a/b", "..", "~", "accept"}),
        "PROGRAM\n" + question + "\nExport Path: one" + taken + question + "one\nExport Path: a/b" + noName +
            question + "a/b\nExport Path: .." + noName + question + "..\nPROGRAM/~\nMorvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/app/~ ");
    EXPECT_EQ(After("Export", {"click Create New Folder", "accept", "click Create New Folder", "cancel",
                               "click Create New Folder", "new", "press Z"}),
              question + "\nPROGRAM/Song 002.mid\n" + question + "\nPROGRAM/Song 002.mid\n" + question +
                  "\nPROGRAM/new/Song 002.mid\nPROGRAM/new/Song 002.midz");
}

TEST_F(FileDialogs, DoByEnterWhatHasTheKeyboard) {
    EXPECT_EQ(After("Export All", {"click me", "press Return", "reach detailModeButton", "press Return",
                                   "reach lookInCombo", "press Return", "press Down", "press Return"}),
              "HOME\nHOME\nHOME\nHOME\nHOME\nHOME, a list is open\nHOME, a list is open\n" +
                  fs::path(Home).parent_path().string());
    const std::string proposed = "PROGRAM/Song 002.mid", open = ", a list is open\n";
    EXPECT_EQ(After("Export", {"reach fileTypeCombo", "press Return", "press Down", "press Return"}),
              proposed + "\n" + proposed + open + proposed + open + proposed);
    EXPECT_EQ(FoldersWithSongs(), "");
    EXPECT_EQ(After("Export All", {"press Ctrl+H", "click .hidden"}),
              "PROGRAM\nPROGRAM/.hidden, .hidden is highlighted");
}

} // namespace morvane
#endif
