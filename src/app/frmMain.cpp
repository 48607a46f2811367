#include "frmMain.h"

#include "BusyPointer.h"
#include "MapDrawing.h"
#include "MessageBox.h"
#include "PaletteFile.h"
#include "modBrowseForFolder.h"
#include "modMapSymbols.h"
#include "modPicture.h"

#include <QCloseEvent>

#include <cstdio>
#include <new>
#include <utility>

namespace morvane {

namespace {

/// The exception being handled, as the record of an error.
Failure CurrentFailure() {
    try {
        throw;
    } catch (const Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return {OutOfMemoryError, "Out of memory"};
    } catch (const std::exception& error) {
        return {InternalError, error.what()};
    }
}

std::string CodesText(const std::array<std::uint8_t, 90>& codes) {
    std::string text;
    for (const std::uint8_t code : codes) {
        std::array<char, 6> part{};
        std::snprintf(part.data(), part.size(), "0x%02X ", code);
        text += part.data();
    }
    return text;
}

} // namespace

frmMain::frmMain(Program program) : ThisProgram(std::move(program)) {
    BuildWidgets();
    BuildMenus();
    ConnectLists();
}

void frmMain::Form_Load() {
    setWindowTitle("Morvane Extractor - " MORVANE_VERSION);
    for (const std::size_t view : {1U, 2U}) fra[view]->move(fra[0]->pos());
    EnableControls(false);
    InitSymbolColors();
    SettingsFile = std::make_unique<clsINI>([this](const std::string& title, const std::string& text) {
        ui::ShowMessageBox(this, title, text, QMessageBox::Critical);
    });
    FromUser([this] { SettingsFile->LoadINI(JoinPath(ThisProgram.Folder, ThisProgram.BaseName + ".ini")); });
    Game.Folder.GamePath = SettingsFile->ReadString("Settings", "OpenPath");
    if (Game.Folder.GamePath.empty())
        FromUser([this] { mnuFileOpen_Click(); });
    else
        OpenGameFolder();
}

void frmMain::Form_Unload() { SettingsFile.reset(); }

void frmMain::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
}

void frmMain::mnuFileExit_Click() { close(); }

void frmMain::mnuFileOpen_Click() {
    const std::string folder =
        ui::BrowseForFolder(Game.Folder.GamePath, this, "Select the Morvane Folder", false);
    if (folder.empty() || !SettingsFile) return; // the window may have been closed under the dialog
    Game.Folder = {folder, Game.Folder.CurrentEpisode};
    OpenGameFolder();
}

bool frmMain::OpenGameFolder() {
    bool complete = false;
    try {
        const auto busy = ui::ShowBusyPointer();
        LoadGame();
        complete = true;
    } catch (...) {
        PendingError = CurrentFailure();
    }
    ReportError();
    return complete;
}

void frmMain::LoadGame() {
    EnableControls(false);
    LoadPalette(Game.Folder);
    LoadInterfaceFile(Game.Folder, Game.InterfaceEntries);
    LoadSoundArchive();
    mnuViewEpisode[0]->setEnabled(true);
    mnuViewEpisode_Click(0);
    for (const int episode : {2, 3})
        mnuViewEpisode[static_cast<std::size_t>(episode - 1)]->setEnabled(
            Game.Folder.FileExists(Game.Folder.GameFilePath("IMG.%EP%", episode)) &&
            Game.Folder.FileExists(Game.Folder.GameFilePath("MAP.%EP%", episode)));
    EnableControls(true);
    mnuViewFrame_Click(0);
    SettingsFile->WriteValue("Settings", "OpenPath", Game.Folder.GamePath);
}

void frmMain::mnuViewEpisode_Click(int index) {
    Game.Folder.CurrentEpisode = index + 1;
    for (int i = 0; QAction * item : mnuViewEpisode) item->setChecked(i++ == index);
    if (LoadMapSymbols(ThisProgram.Folder, Game.Folder.CurrentEpisode) && LoadImageArchive() &&
        LoadMapArchive())
        return;
    mnuViewEpisode[static_cast<std::size_t>(index)]->setEnabled(false);
    EnableControls(false);
}

void frmMain::EnableControls(bool enabled) {
    for (QGroupBox* frame : fra) frame->setEnabled(enabled);
    mnuFileExport->setEnabled(enabled);
    mnuFileExportAll->setEnabled(enabled);
    mnuView->SetEnabled(enabled);
    if (enabled) return;
    picMap->Remove();
    pic->Remove();
    for (ui::ListBox* list : {lstMap, lstGroup, lstImage, lstSound}) list->clear();
}

void frmMain::mnuViewFrame_Click(int index) {
    CurrentView = index;
    mnuFileExport->setEnabled(CurrentView != 0);
    mnuFileExportAll->setEnabled(CurrentView != 0);
    for (int i = 0; i < static_cast<int>(fra.size()); ++i) {
        mnuViewFrame[static_cast<std::size_t>(i)]->setChecked(i == index);
        fra[static_cast<std::size_t>(i)]->setVisible(i == index);
    }
    const std::array lists{lstMap, lstGroup, lstSound};
    lists[static_cast<std::size_t>(index)]->setFocus(); // ready for the arrow keys
}

void frmMain::LoadSoundArchive() {
    lstSound->clear();
    ReadSoundArchive(Game.Folder, Game.SoundEntries);
    std::vector<ui::ListItem> items;
    for (int n = 0; const SoundEntry& entry : Game.SoundEntries) {
        if (entry.Kind != SoundKind::None)
            items.push_back({RowOf(entry.Kind).ListLabel + std::to_string(n), n});
        ++n;
    }
    lstSound->Fill(items);
}

bool frmMain::LoadImageArchive() {
    lstGroup->clear();
    ReadImageArchive(Game.Folder, Game.Groups);
    std::vector<ui::ListItem> items;
    for (int g = 0; const ImageGroup& group : Game.Groups) {
        if (group.Offset > 0 && !group.Duplicate) items.push_back({"Group " + std::to_string(g), g});
        ++g;
    }
    return lstGroup->Fill(items);
}

bool frmMain::LoadMapArchive() {
    lstMap->clear();
    ReadMapArchive(Game.Folder, Game.MapDirectory);
    std::vector<ui::ListItem> items;
    for (std::size_t i = 0; i < Game.MapDirectory.size(); ++i)
        items.push_back({"Map " + std::to_string(i), 0});
    return lstMap->Fill(items);
}

void frmMain::lstMap_Click() { DrawMap(); }

void frmMain::DrawMap() {
    const int map = lstMap->ListIndex();
    if (map < 0) return;
    ReadMapCells(Game.Folder, Game.MapDirectory.at(static_cast<std::size_t>(map)), Game.MapCells);
    const Picture picture = DrawMapCells(Game.MapCells);
    picMap->Show(picture.Pixels(), picture.Width(), picture.Height(), "Map " + std::to_string(map));
}

void frmMain::lstGroup_Click() {
    lstImage->clear();
    if (lstGroup->ListIndex() < 0) return;
    const ImageGroup& group = Game.Groups[static_cast<std::size_t>(lstGroup->SelectedData())];
    std::vector<ui::ListItem> items;
    for (std::size_t k = 0; k < group.Images.size(); ++k) items.push_back({std::to_string(k), 0});
    lstImage->Fill(items);
}

void frmMain::lstImage_Click() {
    if (lstGroup->ListIndex() < 0 || lstImage->ListIndex() < 0) return;
    const int group = lstGroup->SelectedData();
    const int image = lstImage->ListIndex();
    std::vector<std::uint8_t> file = ReadImage(Game.Folder, Game.Groups, group, image);
    const Picture picture = PictureFromBMP(file);
    // What reads the archive comes before the first change, so that a failure leaves the image shown.
    const std::string description = "Group " + std::to_string(group) + " image " + std::to_string(image) +
                                    ", " + std::to_string(picture.Width()) + " x " +
                                    std::to_string(picture.Height());
    const std::string codes = CodesText(Game.Groups[static_cast<std::size_t>(group)].Codes);
    CurrentImageFile = std::move(file);
    pic->Show(picture.Pixels(), picture.Width(), picture.Height(), description);
    txt->SetText(codes);
}

void frmMain::FromUser(const std::function<void()>& command, const std::function<void()>& undo) noexcept {
    try {
        command();
    } catch (...) {
        PendingError = CurrentFailure();
        if (undo) undo();
        ReportError();
    }
}

void frmMain::ReportError() {
    if (!PendingError) return;
    const Failure failure = *std::exchange(PendingError, std::nullopt);
    ui::ShowMessageBox(this, "Error",
                       "Error: " + std::to_string(failure.Number) + "\r\nDescription: " + failure.Description,
                       QMessageBox::Critical);
}

} // namespace morvane
