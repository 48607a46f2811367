#include "ExportNames.h"
#include "FolderDialog.h"
#include "MessageBox.h"
#include "SaveDialog.h"
#include "frmMain.h"

#include <QApplication>

namespace morvane {

namespace {

// How the save dialog asks for a kind of item.
struct SaveRequest {
    const char* Title;
    const char* Filter;
    const char* DefaultExtension;
};

constexpr SaveRequest ImageRequest{"Save Image As...", "Bitmap Files (*.bmp)|*.bmp|All Files (*.*)|*.*",
                                   "bmp"};
constexpr SaveRequest BankRequest{"Save Instrument Bank As...",
                                  "Instrument Bank Files (*.ibk)|*.ibk|All Files (*.*)|*.*", "ibk"};
constexpr SaveRequest MidiRequest{"Save MIDI As...", "MIDI Files (*.mid)|*.mid|All Files (*.*)|*.*", "mid"};
constexpr SaveRequest VocRequest{"Save VOC As...", "VOC Files (*.voc)|*.voc|All Files (*.*)|*.*", "voc"};

const SaveRequest* RequestFor(SoundKind kind) {
    switch (kind) {
    case SoundKind::InstBank:
        return &BankRequest;
    case SoundKind::Midi:
        return &MidiRequest;
    case SoundKind::Voc:
        return &VocRequest;
    case SoundKind::None:
        break;
    }
    return nullptr;
}

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
    const std::string name = PictureFileName(Game, lstGroup->SelectedData(), lstImage->ListIndex());
    const std::string path = AskForFile(this, ImageRequest, ThisProgram.Folder, name);
    if (!path.empty()) WriteByteArray(path, CurrentImageFile, true);
}

void frmMain::ExportSound() {
    if (lstSound->ListIndex() < 0) return;
    const int number = lstSound->SelectedData();
    const SoundEntry& entry = SoundEntries.at(static_cast<std::size_t>(number));
    const SaveRequest* request = RequestFor(entry.Kind);
    if (request == nullptr) return;
    const std::string path =
        AskForFile(this, *request, ThisProgram.Folder, SoundFileName(entry.Kind, number));
    if (!path.empty()) WriteByteArray(path, ReadSoundEntry(Game, entry), true);
}

void frmMain::mnuFileExportAll_Click() {
    const std::string folder = ui::BrowseForFolder(ThisProgram.Folder, this, "Export Path", true);
    if (folder.empty()) return;
    QApplication::processEvents();
    const ui::BusyPointer busy;
    if (CurrentView != 1 && CurrentView != 2) return;
    if (CurrentView == 1)
        ExportAllImages(folder);
    else
        ExportAllSounds(folder);
    ui::ShowMessageBox(this, "Morvane Extractor", "Done", ui::BoxIcon::None);
}

void frmMain::ExportAllImages(const std::string& folder) {
    for (int g = 1; g < static_cast<int>(Groups.size()); ++g) {
        const ImageGroup& group = Groups[static_cast<std::size_t>(g)];
        if (group.Offset <= 0 || group.Duplicate) continue;
        for (int i = 0; i < static_cast<int>(group.Images.size()); ++i)
            WriteByteArray(JoinPath(folder, PictureFileName(Game, g, i)), ReadImage(Game, Groups, g, i),
                           true);
    }
}

void frmMain::ExportAllSounds(const std::string& folder) {
    for (int n = 0; n < static_cast<int>(SoundEntries.size()); ++n) {
        const SoundEntry& entry = SoundEntries[static_cast<std::size_t>(n)];
        if (entry.Offset <= 0 || entry.Size <= 0 || entry.Kind == SoundKind::None) continue;
        WriteByteArray(JoinPath(folder, SoundFileName(entry.Kind, n)), ReadSoundEntry(Game, entry), true);
    }
}

bool frmMain::WriteByteArray(const std::string& fileName, ConstBytes bytes, bool overwrite) {
    if (WriteNewFile(fileName, bytes)) return true;
    if (!overwrite) return false;
    DeleteFileIfAny(fileName);
    WriteFile(fileName, bytes);
    return true;
}

} // namespace morvane
