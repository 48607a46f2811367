#include "frmMain.h"

#include "ExportNames.h"
#include "FolderDialog.h"
#include "MapDrawing.h"
#include "MapSymbols.h"
#include "MessageBox.h"
#include "Palette.h"
#include "PictureFromBMP.h"

#include <QCloseEvent>

#include <new>
#include <utility>

namespace morvane {

namespace {

// The exception being handled, as the record of an error.
Failure CurrentFailure(const std::string& source) {
    try {
        throw;
    } catch (const Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return {OutOfMemoryError, source, "Out of memory"};
    } catch (const std::exception& error) {
        return {InternalError, source, error.what()};
    }
}

std::string CodesText(const std::array<std::uint8_t, 90>& codes) {
    constexpr const char* Digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t code : codes) {
        text += "0x";
        text += Digits[code >> 4];
        text += Digits[code & 15];
        text += ' ';
    }
    return text;
}

const char* ListLabel(SoundKind kind) {
    switch (kind) {
    case SoundKind::InstBank:
        return "InstBank ";
    case SoundKind::Midi:
        return "MIDI ";
    case SoundKind::Voc:
        return "VOC ";
    case SoundKind::None:
        break;
    }
    return "";
}

} // namespace

frmMain::frmMain(Program program)
    : ThisProgram(std::move(program)), MapPicture(MapPictureSide, MapPictureSide) {
    Game.ProgramName = ThisProgram.BaseName;
    BuildWidgets();
    BuildMenus();
    ConnectLists();
    resize(sizeHint()); // the client area with the menu bar on top
}

frmMain::~frmMain() = default;

void frmMain::Form_Load() {
    setWindowTitle("Morvane Extractor - " MORVANE_VERSION);
    for (const std::size_t view : {1U, 2U}) fra[view]->move(fra[0]->pos());
    EnableControls(false);
    InitSymbolColors();
    SettingsFile = std::make_unique<clsINI>([this](const std::string& title, const std::string& text) {
        ui::ShowMessageBox(this, title, text, ui::BoxIcon::Critical);
    });
    FromUser([this] { SettingsFile->LoadINI(JoinPath(ThisProgram.Folder, ThisProgram.BaseName + ".ini")); });
    Game.GamePath = SettingsFile->ReadString("Settings", "OpenPath");
    if (Game.GamePath.empty())
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
    const std::string folder = ui::BrowseForFolder(Game.GamePath, this, "Select the Morvane Folder", false);
    if (folder.empty()) return;
    Game.GamePath = folder;
    OpenGameFolder();
}

bool frmMain::OpenGameFolder() {
    ui::BusyPointer busy;
    bool complete = false;
    try {
        LoadGame();
        complete = true;
    } catch (...) {
        PendingError = CurrentFailure(ThisProgram.BaseName);
    }
    busy.Restore();
    ReportError();
    return complete;
}

void frmMain::LoadGame() {
    EnableControls(false);
    LoadPalette(Game);
    LoadInterfaceFile(Game, InterfaceEntries);
    LoadSoundArchive();
    mnuViewEpisode[0]->setEnabled(true);
    mnuViewEpisode_Click(0);
    for (const int episode : {2, 3})
        mnuViewEpisode[static_cast<std::size_t>(episode - 1)]->setEnabled(
            FileExists(Game.GameFilePath("IMG.%EP%", episode)) &&
            FileExists(Game.GameFilePath("MAP.%EP%", episode)));
    EnableControls(true);
    mnuViewFrame_Click(0);
    SettingsFile->WriteValue("Settings", "OpenPath", Game.GamePath);
}

void frmMain::mnuViewEpisode_Click(int index) {
    Game.CurrentEpisode = index + 1;
    for (int i = 0; QAction * item : mnuViewEpisode) item->setChecked(i++ == index);
    if (LoadMapSymbols(ThisProgram.Folder, Game.CurrentEpisode) && LoadImageArchive() && LoadMapArchive())
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
    for (ui::ListBox* list : {lstMap, lstGroup, lstImage, lstSound}) list->Clear();
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
    lstSound->Clear();
    ReadSoundArchive(Game, SoundEntries);
    std::vector<ui::ListItem> items;
    for (int n = 0; const SoundEntry& entry : SoundEntries) {
        if (entry.Kind != SoundKind::None) items.push_back({ListLabel(entry.Kind) + std::to_string(n), n});
        ++n;
    }
    lstSound->SetItems(std::move(items));
    if (lstSound->Count() > 0) lstSound->Select(0);
}

bool frmMain::LoadImageArchive() {
    lstGroup->Clear();
    ReadImageArchive(Game, Groups);
    std::vector<ui::ListItem> items;
    for (int g = 0; const ImageGroup& group : Groups) {
        if (group.Offset > 0 && !group.Duplicate) items.push_back({"Group " + std::to_string(g), g});
        ++g;
    }
    lstGroup->SetItems(std::move(items));
    if (lstGroup->Count() == 0) return false;
    lstGroup->Select(0);
    return true;
}

bool frmMain::LoadMapArchive() {
    lstMap->Clear();
    ReadMapArchive(Game, MapDirectory);
    std::vector<ui::ListItem> items;
    for (std::size_t i = 0; i < MapDirectory.size(); ++i) items.push_back({"Map " + std::to_string(i), 0});
    lstMap->SetItems(std::move(items));
    if (lstMap->Count() == 0) return false;
    lstMap->Select(0);
    return true;
}

void frmMain::lstMap_Click() { DrawMap(); }

void frmMain::DrawMap() {
    const int map = lstMap->ListIndex();
    if (map < 0) return;
    ReadMapCells(Game, MapDirectory.at(static_cast<std::size_t>(map)), MapCells);
    DrawMapCells(MapCells, MapPicture);
    picMap->Show(MapPicture.Pixels().data(), MapPicture.Width(), MapPicture.Height(),
                 "Map " + std::to_string(map));
}

void frmMain::lstGroup_Click() {
    lstImage->Clear();
    if (lstGroup->ListIndex() < 0) return;
    const std::size_t count = Groups[static_cast<std::size_t>(lstGroup->SelectedData())].Images.size();
    std::vector<ui::ListItem> items;
    for (std::size_t k = 0; k < count; ++k) items.push_back({std::to_string(k), 0});
    lstImage->SetItems(std::move(items));
    if (lstImage->Count() > 0) lstImage->Select(0);
}

void frmMain::lstImage_Click() {
    if (lstGroup->ListIndex() < 0 || lstImage->ListIndex() < 0) return;
    const int group = lstGroup->SelectedData();
    std::vector<std::uint8_t> file = ReadImage(Game, Groups, group, lstImage->ListIndex());
    Picture picture = PictureFromBMP(file);
    CurrentImageFile = std::move(file);
    ImagePicture = std::move(picture);
    pic->Show(ImagePicture.Pixels().data(), ImagePicture.Width(), ImagePicture.Height(),
              "Group " + std::to_string(group) + " image " + std::to_string(lstImage->ListIndex()) + ", " +
                  std::to_string(ImagePicture.Width()) + " x " + std::to_string(ImagePicture.Height()));
    txt->setPlainText(QString::fromStdString(CodesText(Groups[static_cast<std::size_t>(group)].Codes)));
}

void frmMain::FromUser(const std::function<void()>& command, const std::function<void()>& undo) noexcept {
    try {
        command();
    } catch (...) {
        PendingError = CurrentFailure(ThisProgram.BaseName);
        if (undo) undo();
        ReportError();
    }
}

void frmMain::ReportError() {
    if (!PendingError) return;
    const Failure failure = *std::exchange(PendingError, std::nullopt);
    ui::ShowMessageBox(this, "Error",
                       "Error: " + std::to_string(failure.Number) + "\r\nDescription: " + failure.Description,
                       ui::BoxIcon::Critical);
}

} // namespace morvane
