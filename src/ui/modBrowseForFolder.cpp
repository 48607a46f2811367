#include "modBrowseForFolder.h"

#include "FileDialog.h"
#include "Text.h"

namespace ui {

namespace {

class FolderDialog : public FileDialog {
  public:
    using FileDialog::FileDialog;

  protected:
    [[nodiscard]] QString Complaint() const override {
        const QFileInfo folder(selectedFiles().value(0));
        const QFileInfo parent(folder.path());
        if (folder.isDir()) return {};
        return QDir::toNativeSeparators(folder.filePath()) +
               (parent.isDir() && !parent.isExecutable() ? "\nThe folder that holds it cannot be entered."
                                                         : "\nThere is no such folder.");
    }
};

} // namespace

std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle) {
    FolderDialog dialog(owner, title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::ReadOnly, !newStyle);
    const QString start = startFolder.empty()
                              ? QDir::homePath()
                              : QDir::cleanPath(QDir().absoluteFilePath(FromBytes(startFolder)));
    dialog.ShowNearest(start);
    if (!startFolder.empty() && QFileInfo(start).isDir()) dialog.selectFile(start);
    if (dialog.exec() != QDialog::Accepted) return {};
    return ToBytes(QDir::toNativeSeparators(dialog.selectedFiles().front()));
}

} // namespace ui
