#include "TestWindow.h"
#include "modCommonDialog.h"

// Wine does not close the toolkit's file dialogs; the tour answers the desktop's.
#ifndef _WIN32
namespace morvane {

/// The file dialogs, with the program in HOME/app and the sounds shown, ready for export. Empty folders lie
/// around; "app2" and "out 2" begin like others.
struct FileDialogs : TestWindow {
    FileDialogs() {
        for (const char* folder : Folders) fs::create_directories(Home + folder);
        StartOnSample();
        Do("Sounds");
    }

    /// What dialogs tell from the second on, after answers to those that a menu item brings up: of a file
    /// dialog the path in its field, of a box its title and text.
    std::string After(const std::string& item, const QList<std::string>& answers) {
        const QRegularExpression kinds(
            "(folder|save) dialog .*: .*: |(message|question) .*: |warning over a dialog: ",
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

    static constexpr std::array Folders{"/",        "/app2",    "/out",    "/out 2", "/app/one/deep",
                                        "/app/one", "/app/sub", "/app/two"};
};

const std::string Create = " does not exist.\nDo you want to create it?\n";
const std::string NoFolder = "\nThere is no such folder.\n";

TEST_F(FileDialogs, TakeWhatIsTypedAfterAMistypedFolder) {
    EXPECT_EQ(After("Export All", {"HOME/zzz", "HOME/out"}),
              "Export Path: HOME/zzz" + NoFolder + "HOME/zzz\nMorvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/out ");
    fs::create_directory_symlink(GameDir.Path, Home + "/game");
    fs::create_directory_symlink(Home + "/app/one", Home + "/link");
    fs::create_directory_symlink(GameDir.Path, Home + "/app/other");
    // What leads through a link and up again is kept.
    for (const auto& [typed, remembered] :
         std::map<std::string, std::string>{{"/out/../game", "/game"},
                                            {"/link/../other", "/link/../other"},
                                            {"/app/other/", "/app/other"}}) {
        After("Open", {"HOME/zzz", Home + typed});
        EXPECT_EQ(Settings(), "[Settings]\r\nOpenPath=" + Home + remembered + "\r\n");
    }
    After("Sounds, Export", {"HOME/zzz/new", "HOME/out/new"});
    EXPECT_EQ(TextOf(Home + "/out/new.mid"), "MThd song");
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
    for (const auto& [text, path] : std::map<std::string, std::string>{{"a\"b", "PROGRAM/a\"b"},
                                                                       {"~/x", "HOME/x"},
                                                                       {"/HOME/x", "/HOME/x"},
                                                                       {"one/../x", "PROGRAM/one/../x"}}) {
        EXPECT_EQ(After("Export", {text, "no"}).find(path + ".mid does not exist"), 17)
            << text; // after the title
        EXPECT_EQ(After("Export All", {text}).find(path + "\nThere is no such folder"), 13) << text;
    }
    for (const std::string folder : {"~", ".."}) EXPECT_EQ(After("Export", {folder}), "HOME/Song 002.mid");
    EXPECT_EQ(After("Export All", {"type ..", "click Open", ".."}),
              "PROGRAM/.., the button opens\nHOME\n" + fs::path(Home).parent_path().string());
    QGuiApplication::clipboard()->setText(QString::fromStdString(Home + "/out\r\n"));
    EXPECT_EQ(After("Export All", {"type ", "press Ctrl+V", "accept"}),
              "PROGRAM\nHOME/out\r\n\nMorvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/out ");
}

TEST_F(FileDialogs, TakeNoNameWhileTheyShowDrives) {
    const std::string choose = ": Choose one of these first.\n";
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
    EXPECT_EQ(After("Export All",
                    {"click one", "click Parent Directory", "click out", "click Back", "click Forward"}),
              "PROGRAM/one, one is highlighted\nHOME\nHOME/out, out is highlighted\nPROGRAM\nHOME");
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

TEST_F(FileDialogs, CompleteWhatIsTyped) {
    EXPECT_EQ(After("Export All", {"type HOME/ou", "down to out", "press Return", "press Return"}),
              "HOME/ou\nHOME/out\nHOME/out\nMorvane Extractor: Done");
    EXPECT_EQ(FoldersWithSongs(), "/out ");
    EXPECT_EQ(After("Export All",
                    {"type HOME/app", "down to app2", "press Tab", "press /", "press X", "press Return"}),
              "PROGRAM\nHOME/app2\nHOME/app2\nHOME/app2/\nHOME/app2/x\nExport Path: HOME/app2/x" + NoFolder +
                  "HOME/app2/x");
    EXPECT_EQ(After("Open", {"type HOME/ou", "down to out 2", "press Return"}),
              "HOME/ou\nHOME/out 2\nHOME/out 2");
    EXPECT_EQ(After("Export All", {"click one", "click Parent Directory", "type ap", "down to app2"}),
              "PROGRAM/one, one is highlighted\nHOME\nHOME/ap\nHOME/app2");
    // The list comes once the folder has been read, and past its end stands what was typed.
    EXPECT_EQ(After("Export All", {"click one", "type /", "down to deep"}),
              "PROGRAM/one, one is highlighted\nPROGRAM/one/\nPROGRAM/one/deep");
    EXPECT_EQ(After("Export All", {"type ~", "down to me", "down to ~", "press Return"}),
              "PROGRAM/~\nHOME\nPROGRAM/~\nMorvane Extractor: Done");
    // A completed name stays a name: another folder may be entered.
    ProgramFolder.Write("Song 002.mid.mid", "old");
    EXPECT_EQ(After("Export", {"click sub", "type .", "down to Song 002.mid.mid", "click sub", "click Open"}),
              "PROGRAM/Song 002.mid, sub is highlighted, the button opens\n"
              "PROGRAM/Song 002.mid.\nPROGRAM/Song 002.mid.mid\n"
              "PROGRAM/Song 002.mid.mid, sub is highlighted, the button opens\n"
              "PROGRAM/sub/Song 002.mid.mid");
}

} // namespace morvane
#endif
