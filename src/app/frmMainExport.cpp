#include "BusyPointer.h"
#include "ExportAll.h"
#include "ExportNames.h"
#include "File.h"
#include "MessageBox.h"
#include "frmMain.h"
#include "modBrowseForFolder.h"
#include "modCommonDialog.h"

#include <QApplication>

namespace morvane {

namespace {

/// Asks for a file to write. The dialog calls the item and its kind of file by these names.
std::string AskForFile(QWidget* owner, const std::string& itemName, const std::string& kindName,
                       const std::string& extension, const std::string& folder, const std::string& fileName) {
    const std::string filter =
        kindName + " Files (*." + extension + ")|*." + extension + "|All Files (*.*)|*.*";
    int filterIndex = 0;
    return ui::ShowSaveDialog(owner, filter, "Save " + itemName + " As...", folder, extension, fileName,
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
    const std::string path = AskForFile(this, "Image", "Bitmap", "bmp", ThisProgram.Folder, name);
    if (!path.empty()) WriteByteArray(path, CurrentImageFile, true);
}

void frmMain::ExportSound() {
    if (lstSound->ListIndex() < 0) return;
    const int number = lstSound->SelectedData();
    const SoundEntry& entry = Game.SoundEntries.at(static_cast<std::size_t>(number));
    if (entry.Kind == SoundKind::None) return;
    const SoundKindRow& row = RowOf(entry.Kind);
    const std::string path = AskForFile(this, row.DialogName, row.DialogName, row.Extension,
                                        ThisProgram.Folder, SoundFileName(entry.Kind, number));
    if (!path.empty()) WriteByteArray(path, ReadSoundEntry(Game.Folder, entry), true);
}

void frmMain::mnuFileExportAll_Click() {
    const std::string folder = ui::BrowseForFolder(ThisProgram.Folder, this, "Export Path", true);
    if (folder.empty()) return;
    QApplication::processEvents();
    // What was pending may have closed the window, or failed to open another game.
    if (!SettingsFile || !mnuFileExportAll->isEnabled()) return;
    const auto busy = ui::ShowBusyPointer();
    if (CurrentView == 1)
        ExportAllImages(Game, folder);
    else if (CurrentView == 2)
        ExportAllSounds(Game, folder);
    else
        return;
    ui::ShowMessageBox(this, "Morvane Extractor", "Done", QMessageBox::NoIcon);
}

} // namespace morvane
