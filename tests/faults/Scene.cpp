#include "Scene.h"

#include <QApplication>

#include <set>

namespace morvane::faults {

std::string Differences(const Snapshot::Part& a, const Snapshot::Part& b) {
    std::set<std::string> names;
    for (const auto* one : {&a, &b})
        for (const auto& [name, value] : *one) {
            const auto other = (one == &a ? b : a).find(name);
            if (other == (one == &a ? b : a).end() || other->second != value) names.insert(name);
        }
    std::string text;
    for (const std::string& name : names) text += name + ", ";
    return text;
}

std::string Root() { return (std::filesystem::temp_directory_path() / "morvane-").string(); }

std::size_t OpenFiles() {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone).string().starts_with(Root())) ++count;
    }
    return count;
}

Scene::Scene() {
    SampleGame second;
    second.Groups[5] = SampleGame::MakeGroup(5, 4);
    second.Maps.resize(2);
    second.Sounds[3].Data = SampleGame::Text("MThd of another game");
    second.Write(Other);
    std::filesystem::rename(Other / "MAP.1", Other / "map.1");
    second.Write(Test.GameDir, {2});
    for (const int episode : {1, 2})
        Test.ProgramFolder.Write("Episode" + std::to_string(episode) + ".tsd",
                                 "[Plane 0]\r\n0=," + std::string(49, '4') + ",red\r\n1=," +
                                     std::string(49, static_cast<char>('0' + episode)) + ",other\r\n");
    Test.StartOnSample({1});
}

Snapshot Scene::Take() const {
    Snapshot now;
    now.Settings = TextOf(Test.SettingsPath());
    for (const auto& entry : std::filesystem::directory_iterator(Target.Path))
        now.Files[entry.path().filename().string()] = TextOf(entry.path().string());
    if (Test.Window == nullptr) return now;
    const frmMain& window = Window();
    now.Window["state"] = StateOf(window);
    now.Window["game"] = window.Game.GamePath + " " + std::to_string(window.Game.CurrentEpisode);
    for (const ui::ListBox* list : {window.lstMap, window.lstGroup, window.lstImage, window.lstSound}) {
        std::string& text = now.Window[list->objectName().toStdString()];
        for (const ui::ListItem& item : list->Items()) text += item.Text + "\n";
        text += std::to_string(list->ListIndex());
    }
    for (const ui::PictureBox* box : {window.picMap, window.pic})
        now.Window[box->objectName().toStdString()].assign(
            reinterpret_cast<const char*>(box->Image().constBits()),
            static_cast<std::size_t>(box->Image().sizeInBytes()));
    now.Window["codes"] = window.txt->toPlainText().toStdString();
    now.Window["image file"].assign(window.CurrentImageFile.begin(), window.CurrentImageFile.end());
    now.Window["cells"].assign(reinterpret_cast<const char*>(window.MapCells.data()), sizeof window.MapCells);
    return now;
}

Boxes Scene::TakeBoxes() {
    Boxes boxes;
    for (SeenDialog& seen : Test.TakeSeen()) {
        if (seen.Text == "Done") ++boxes.Done;
        if (seen.Icon == QMessageBox::Critical) boxes.Errors.push_back(std::move(seen));
    }
    return boxes;
}

void Scene::ShowImage(int group, int image) {
    TestWindow::Press(Window(), "Ctrl+W");
    TestWindow::Click(*Window().lstGroup, group);
    TestWindow::Click(*Window().lstImage, image);
}

void Scene::FillTarget() const {
    for (const auto& entry : std::filesystem::directory_iterator(Target.Path))
        std::filesystem::remove_all(entry.path());
    for (const char* name : {"A file of the user", "Picture 1-002-02.bmp", "Song 002.mid", "old.voc"})
        Target.Write(name, std::string(3000, 'x'));
}

namespace {

void Export(Scene& scene, const char* name) {
    scene.Script.Names = {scene.Target / name};
    scene.Window().mnuFileExport->trigger();
    QApplication::processEvents();
}

void ExportAll(Scene& scene) {
    scene.Test.Folders = {scene.Target.Path};
    scene.Window().mnuFileExportAll->trigger();
    QApplication::processEvents();
}

void Press(Scene& scene, const char* keys) { TestWindow::Press(scene.Window(), keys); }

void StandOnImage(Scene& scene) {
    scene.FillTarget();
    scene.ShowImage(0, 1);
}

void StandOnSound(Scene& scene) {
    scene.FillTarget();
    Press(scene, "Ctrl+D");
    TestWindow::Click(*scene.Window().lstSound, 2);
}

constexpr const char* Closed = "frames 000 view 0 exports 00 ";

} // namespace

const std::vector<Action> Actions{
    {"StartUp",
     [](Scene& scene) {
         scene.Test.Window.reset();
         scene.Test.Remember(scene.Test.GameDir.Path);
     },
     [](Scene& scene) { scene.Test.Start(); }, Closed},
    {"OpenFolder",
     [](Scene& scene) {
         scene.Window().Game.GamePath = scene.Test.GameDir.Path;
         scene.Window().OpenGameFolder();
         scene.ShowImage(2, 1);
     },
     [](Scene& scene) {
         scene.Test.Folders = {scene.Other.Path};
         Press(scene, "Ctrl+O");
     },
     Closed},
    {"ChooseEpisode",
     [](Scene& scene) {
         Press(scene, "Ctrl+Shift+F1");
         scene.ShowImage(2, 1);
     },
     [](Scene& scene) { Press(scene, "Ctrl+Shift+F2"); }, "frames 111 view 1 exports 11 "},
    {"SelectMap",
     [](Scene& scene) {
         Press(scene, "Ctrl+M");
         TestWindow::Click(*scene.Window().lstMap, 0);
     },
     [](Scene& scene) { TestWindow::Click(*scene.Window().lstMap, 1); }, nullptr, "MAP.1"},
    {"SelectGroup", StandOnImage, [](Scene& scene) { TestWindow::Click(*scene.Window().lstGroup, 2); },
     nullptr, "IMG.1"},
    {"SelectImage", StandOnImage, [](Scene& scene) { TestWindow::Click(*scene.Window().lstImage, 2); },
     nullptr, "IMG.1"},
    {"ExportImage", StandOnImage, [](Scene& scene) { Export(scene, "new.bmp"); }, nullptr, "none"},
    {"ExportSound", StandOnSound, [](Scene& scene) { Export(scene, "old.voc"); }, nullptr, "SND.DAT"},
    {"ExportAllImages", StandOnImage, ExportAll, nullptr, "IMG.1"},
    {"ExportAllSounds", StandOnSound, ExportAll, nullptr, "SND.DAT"},
    {"SaveSettings",
     [](Scene& scene) { scene.Window().SettingsFile->WriteValue("Settings", "OpenPath", "a longer one"); },
     [](Scene& scene) { scene.Window().SettingsFile->WriteValue("Settings", "OpenPath", "short"); }}};

} // namespace morvane::faults
