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
    }

    /// The folder chosen. Its path is without "..", unless a symbolic link makes that another folder.
    [[nodiscard]] QString Path() const {
        const QString path = Choice(), clean = QDir::cleanPath(path);
        return QFileInfo(clean) == QFileInfo(path) ? clean : path;
    }

  protected:
    bool Agrees(QWidget* owner) override {
        const QFileInfo folder(Choice());
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
