#include "ExportNames.h"
#include "File.h"
#include "MessageBox.h"
#include "frmMain.h"
#include "modBrowseForFolder.h"
#include "modCommonDialog.h"

#include <QApplication>

#include <array>

namespace morvane {

namespace {

// How the save dialog asks for a kind of item.
struct SaveRequest {
    const char* Title;
    const char* Filter;
    const char* DefaultExtension;
};

// The requests for an image and for the kinds of sounds.
constexpr std::array<SaveRequest, 4> Requests{
    {{"Save Image As...", "Bitmap Files (*.bmp)|*.bmp|All Files (*.*)|*.*", "bmp"},
     {"Save Instrument Bank As...", "Instrument Bank Files (*.ibk)|*.ibk|All Files (*.*)|*.*", "ibk"},
     {"Save MIDI As...", "MIDI Files (*.mid)|*.mid|All Files (*.*)|*.*", "mid"},
     {"Save VOC As...", "VOC Files (*.voc)|*.voc|All Files (*.*)|*.*", "voc"}}};

std::string AskForFile(QWidget* owner, const SaveRequest& request, const std::string& folder,
                       const std::string& name) {
    int filterIndex = 0;
    return ui::ShowSaveDialog(owner, request.Filter, request.Title, folder, request.DefaultExtension, name,
                              filterIndex);
}

} // namespace

void frmMain::mnuFileExport_Click() {
    if (CurrentView == 1) ExportImage();
    if (CurrentView == 2) ExportSound();
}

void frmMain::ExportImage() {
    if (lstGroup->ListIndex() < 0 || lstImage->ListIndex() < 0 || CurrentImageFile.empty()) return;
    const std::string name =
        PictureFileName(Game.Folder.CurrentEpisode, lstGroup->SelectedData(), lstImage->ListIndex());
    const std::string path = AskForFile(this, Requests[0], ThisProgram.Folder, name);
    if (!path.empty()) WriteByteArray(path, CurrentImageFile, true);
}

void frmMain::ExportSound() {
    if (lstSound->ListIndex() < 0) return;
    const int number = lstSound->SelectedData();
    const SoundEntry& entry = Game.SoundEntries.at(static_cast<std::size_t>(number));
    if (entry.Kind == SoundKind::None) return;
    const std::string path = AskForFile(this, Requests.at(static_cast<std::size_t>(entry.Kind)),
                                        ThisProgram.Folder, SoundFileName(entry.Kind, number));
    if (!path.empty()) WriteByteArray(path, ReadSoundEntry(Game.Folder, entry), true);
}

void frmMain::mnuFileExportAll_Click() {
    const std::string folder = ui::BrowseForFolder(ThisProgram.Folder, this, "Export Path", true);
    if (folder.empty()) return;
    QApplication::processEvents();
    // What was pending may have closed the window, or failed to open another game.
    if (!SettingsFile || !mnuFileExportAll->isEnabled()) return;
    const ui::BusyPointer busy;
    if (CurrentView == 1)
        ExportAllImages(Game, folder);
    else if (CurrentView == 2)
        ExportAllSounds(Game, folder);
    else
        return;
    ui::ShowMessageBox(this, "Morvane Extractor", "Done", ui::BoxIcon::None);
}

} // namespace morvane
