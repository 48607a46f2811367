#include "modBrowseForFolder.h"

#include "FileDialog.h"
#include "Text.h"

namespace ui {

namespace {

/// Chooses the folder on display, or the one selected in it.
class FolderDialog : public FileDialog {
  public:
    FolderDialog(QWidget* owner, const std::string& title, const QString& folder, bool makesFolders)
        : FileDialog(owner, title, folder, Directory) {
        setOption(ShowDirsOnly);
        setOption(ReadOnly, !makesFolders);
        setLabelText(FileName, "Folder:");
        for (const char* ofTheOnlyType : {"fileTypeLabel", "fileTypeCombo"})
            if (auto* part = findChild<QWidget*>(ofTheOnlyType)) part->hide();
    }

    [[nodiscard]] QString Path() const { return QDir::cleanPath(Choice()); } ///< of the folder chosen

  protected:
    bool Agrees(QWidget* owner) override {
        const QFileInfo folder(Path());
        if (folder.isDir()) return true;
        const QFileInfo parent(folder.path());
        const bool closed = parent.isDir() && !parent.isExecutable();
        return Tell(owner, folder.filePath(),
                    closed ? "The folder that holds it cannot be entered." : "There is no such folder.");
    }
};

} // namespace

std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle) {
    const QString start =
        startFolder.empty() ? QString() : QDir::cleanPath(QDir().absoluteFilePath(FromBytes(startFolder)));
    FolderDialog dialog(owner, title, start, newStyle);
    return dialog.Run() ? ToBytes(QDir::toNativeSeparators(dialog.Path())) : std::string();
}

} // namespace ui
