#include "SaveDialog.h"
#include "SaveScript.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace morvane {
namespace {

void Export(frmMain& window) {
    window.mnuFileExport->trigger();
    QApplication::processEvents();
}

std::map<std::string, ByteVector> FilesIn(const std::string& folder) {
    std::map<std::string, ByteVector> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] =
            entry.is_regular_file() ? BytesOf(entry.path().string()) : ByteVector();
    return files;
}

TEST(SaveDialog, FiltersKeepTheirDescriptions) {
    EXPECT_EQ(ui::NameFilters("VOC Files (*.voc)|*.voc|All Files (*.*)|*.*"),
              (QStringList{"VOC Files (*.voc) (*.voc)", "All Files (*.*) (*)"}));
    EXPECT_EQ(ui::NameFilters(""), QStringList());
    EXPECT_EQ(ui::NameFilters("A|*.a;*.b|alone"), QStringList{"A (*.a *.b)"});
}

TEST(SaveDialog, WritesBackTheFilter) {
    TestWindow test;
    SaveScript script(test);
    for (const auto& [given, expected] : {std::pair{0, 1}, {2, 2}, {9, 1}}) {
        int index = given;
        EXPECT_EQ(ui::ShowSaveDialog(nullptr, "A|*.a|B|*.b", "T", test.ProgramFolder.Path, "a", "n.a", index),
                  "");
        EXPECT_EQ(index, expected);
    }
}

TEST(Export, ProposesTheItemInView) {
    TestWindow test;
    SaveScript script(test);
    test.Sample.Groups[7] = SampleGame::MakeGroup(7, 12);
    test.Sample.Sounds.resize(160);
    test.Sample.Sounds[159].Data = SampleGame::Text("Creative Voice File");
    frmMain& window = test.StartOnSample();
    window.mnuFileExport_Click(); // the Maps view has nothing to export
    EXPECT_TRUE(script.Seen.empty());
    TestWindow::Press(window, "Ctrl+Shift+F2");
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Click(*window.lstGroup, 2);
    TestWindow::Click(*window.lstImage, 11);
    Export(window);
    TestWindow::Press(window, "Ctrl+D");
    std::filesystem::remove(test.GameDir / "SND.DAT"); // not looked at before a path is chosen
    for (int i = 0; i < window.lstSound->Count(); ++i) {
        TestWindow::Click(*window.lstSound, i);
        Export(window);
    }
    struct Expected {
        const char *Title, *Name, *Filters;
    };
    const std::vector<Expected> expected{
        {"Save Image As...", "Picture 2-007-12.bmp", "Bitmap Files (*.bmp)|All Files (*.*)"},
        {"Save Instrument Bank As...", "Morvane.ibk", "Instrument Bank Files (*.ibk)|All Files (*.*)"},
        {"Save MIDI As...", "Song 002.mid", "MIDI Files (*.mid)|All Files (*.*)"},
        {"Save VOC As...", "Sound 017.voc", "VOC Files (*.voc)|All Files (*.*)"},
        {"Save VOC As...", "Sound 159.voc", "VOC Files (*.voc)|All Files (*.*)"}};
    ASSERT_EQ(script.Seen.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(script.Seen[i].Title, expected[i].Title);
        EXPECT_EQ(script.Seen[i].Name, expected[i].Name);
        EXPECT_EQ(script.Seen[i].Filters, expected[i].Filters);
        EXPECT_EQ(script.Seen[i].Folder, test.ProgramFolder.Path);
    }
    EXPECT_TRUE(test.TakeSeen().empty());
    EXPECT_EQ(FilesIn(test.ProgramFolder.Path).size(), 1U); // the settings file
}

TEST(Export, AsksBeforeItReplacesOrCreates) {
    TestWindow test;
    SaveScript script(test);
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    const std::string longer = test.ProgramFolder.Write("longer.bmp", std::string(50'000, 'x'));
    const std::string made = test.ProgramFolder / "made.bmp";
    script.Names = {"longer.bmp", "", "made"};
    script.Yes = {false, true};
    Export(window);
    EXPECT_EQ(script.Questions,
              (std::vector<std::string>{longer + " already exists.\nDo you want to replace it?",
                                        longer + " already exists.\nDo you want to replace it?"}));
    EXPECT_EQ(script.Seen.at(1).Name, "longer.bmp"); // kept after the No
    EXPECT_EQ(BytesOf(longer), window.CurrentImageFile);

    script.Questions.clear();
    script.Names = {"made", "", "other.x"};
    script.Yes = {false, false};
    Export(window);
    EXPECT_EQ(script.Questions.at(0), made + " does not exist.\nDo you want to create it?");
    EXPECT_EQ(script.Questions.at(1), made + " does not exist.\nDo you want to create it?");
    EXPECT_EQ(script.Questions.size(), 3U);
    EXPECT_FALSE(std::filesystem::exists(made));
    EXPECT_EQ(BytesOf(test.ProgramFolder / "other.x"), window.CurrentImageFile);
    EXPECT_TRUE(test.TakeSeen().empty()); // no message after a successful export
}

TEST(Export, WithNothingSelectedDoesNothing) {
    TestWindow test;
    SaveScript script(test);
    test.Sample.Groups[3].Images.clear();
    test.Sample.Sounds.clear();
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    TestWindow::Click(*window.lstGroup, 1);
    Export(window);
    TestWindow::Press(window, "Ctrl+D");
    Export(window);
    EXPECT_TRUE(script.Seen.empty());
}

TEST(Export, FailuresAreReportedAndChangeNothing) {
    TestWindow test;
    SaveScript script(test);
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+D");
    const std::string state = StateOf(window);
    std::filesystem::remove(test.GameDir / "SND.DAT");
    script.Names = {"lost.ibk"};
    Export(window);
    auto seen = test.TakeSeen();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].Text, "Error: 53\nDescription: " + (test.GameDir / "SND.DAT") + " not found.");
    EXPECT_FALSE(std::filesystem::exists(test.ProgramFolder / "lost.ibk"));
    EXPECT_EQ(StateOf(window), state);
}

TEST(ExportAll, WritesEveryItemOfTheView) {
    TestWindow test;
    test.Sample.Groups[8] = SampleGame::MakeGroup(8, 2);
    test.Sample.Groups[8].SharesLower = true;
    test.Sample.Sounds.resize(30);
    test.Sample.Sounds[29].Data = SampleGame::Text("IBK second");
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+Shift+F3");
    TestWindow::Press(window, "Ctrl+W");
    const ByteVector shown = window.CurrentImageFile;
    const TempFolder target;
    target.Write("Picture 3-002-01.bmp", std::string(90'000, 'x'));
    for (int run = 0; run < 2;
         ++run) { // the second over the files of the first, through a path that ends in "/"
        test.Folders = {target.Path + (run == 0 ? "" : "/")};
        window.mnuFileExportAll->trigger();
        const auto seen = test.TakeSeen();
        ASSERT_EQ(seen.size(), 2U);
        EXPECT_EQ(seen[0].Text, "Export Path");
        EXPECT_EQ(test.LastStartFolder, test.ProgramFolder.Path);
        EXPECT_EQ(seen[1].Title, "Morvane Extractor");
        EXPECT_EQ(seen[1].Text, "Done");
        EXPECT_EQ(seen[1].Icon, QMessageBox::NoIcon);
        EXPECT_TRUE(seen[1].Busy);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        const auto files = FilesIn(target.Path);
        EXPECT_EQ(files.size(), 6U); // groups 2 and 7 with 3 and 2, group 3 with 1; none of group 8
        EXPECT_EQ(files.at("Picture 3-002-01.bmp"), shown);
        EXPECT_EQ(files.at("Picture 3-007-02.bmp").size(), 1078U + 4 * 8);
    }
    EXPECT_EQ(window.CurrentImageFile, shown);

    const TempFolder sounds;
    TestWindow::Press(window, "Ctrl+D");
    test.Folders = {sounds.Path};
    window.mnuFileExportAll->trigger();
    EXPECT_EQ(FilesIn(sounds.Path),
              (std::map<std::string, ByteVector>{{"Morvane.ibk", test.Sample.Sounds[29].Data},
                                                 {"Song 002.mid", test.Sample.Sounds[2].Data},
                                                 {"Sound 017.voc", test.Sample.Sounds[17].Data}}));
    EXPECT_EQ(test.TakeSeen().size(), 2U);
    window.mnuFileExportAll->trigger(); // cancelled
    EXPECT_EQ(test.TakeSeen().size(), 1U);
}

TEST(ExportAll, StopsAtTheFirstFailureAndKeepsWhatIsWritten) {
    TestWindow test;
    frmMain& window = test.StartOnSample();
    TestWindow::Press(window, "Ctrl+W");
    const auto run = [&](const std::string& folder) {
        test.Folders = {folder};
        window.mnuFileExportAll->trigger();
        const auto seen = test.TakeSeen();
        EXPECT_EQ(seen.size(), 2U);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_FALSE(seen.back().Busy);
        EXPECT_EQ(StateOf(window),
                  "frames 111 view 1 exports 11 visible 010 views 010 episodes 100 filled 111111");
        return seen.back().Text;
    };
    const TempFolder blocked;
    std::filesystem::create_directory(blocked / "Picture 1-002-03.bmp");
    EXPECT_EQ(run(blocked.Path),
              "Error: 21\nDescription: " + (blocked / "Picture 1-002-03.bmp") + ": Is a directory");
    EXPECT_EQ(FilesIn(blocked.Path).size(), 3U);

    // A limit of file sizes stands in for a full disk.
    const TempFolder full;
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1078 + 4 * 3, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string text = run(full.Path);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(text, "Error: 27\nDescription: " + (full / "Picture 1-002-02.bmp") + ": File too large");

    const TempFolder lost;
    std::filesystem::remove(test.GameDir / "IMG.1");
    EXPECT_EQ(run(lost.Path), "Error: 53\nDescription: " + (test.GameDir / "IMG.1") + " not found.");
    EXPECT_TRUE(FilesIn(lost.Path).empty());
}

TEST(WriteByteArray, ReplacesOnlyWhenToldTo) {
    const TempFolder folder;
    const std::string path = folder.Write("file", std::string(1000, 'x'));
    const ByteVector bytes(10, 7);
    EXPECT_FALSE(frmMain::WriteByteArray(path, bytes, false));
    EXPECT_EQ(BytesOf(path).size(), 1000U);
    EXPECT_TRUE(frmMain::WriteByteArray(path, bytes, true));
    EXPECT_EQ(BytesOf(path), bytes);
    EXPECT_TRUE(frmMain::WriteByteArray(folder / "new", bytes, false));
    EXPECT_EQ(BytesOf(folder / "new"), bytes);
    EXPECT_EQ(FailureOf([&] { frmMain::WriteByteArray(folder / "no/such", bytes, true); }).Number, ENOENT);
}

} // namespace
} // namespace morvane
