#include "modBrowseForFolder.h"

#include "FileDialog.h"
#include "MessageBox.h"
#include "Text.h"

#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QPushButton>
#include <QToolButton>

namespace ui {

namespace {

/// Chooses the folder on display, or the one selected in it.
class FolderDialog : public FileDialog {
  public:
    FolderDialog(QWidget* owner, const std::string& title, const QString& folder, bool makesFolders)
        : FileDialog(owner, title, folder) {
        setFileMode(Directory);
        setOption(ShowDirsOnly);
        setOption(ReadOnly, !makesFolders);
        if (Field() == nullptr) return; // the system's dialog sees to all below
        auto* choose = findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open);
        connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this, [this, choose] {
            // Whichever way another folder is entered, a name left in the field would be taken as one in
            // there. The toolkit would look for the empty name, too, and find something to select.
            const QSignalBlocker quiet(Field());
            Field()->clear();
            choose->setEnabled(true);
        });
        // The dialog writes the name of a new folder into the field only when the field is not in use.
        findChild<QToolButton*>("newFolderButton")->setFocusPolicy(Qt::StrongFocus);
    }

    /// The folder chosen. Its path is without "..", unless a symbolic link makes that another folder.
    [[nodiscard]] QString Path() const {
        const QString path = selectedFiles().front(), clean = QDir::cleanPath(path);
        return QFileInfo(clean) == QFileInfo(path) ? clean : path;
    }

  protected:
    bool Agrees(QWidget* owner) override {
        const QFileInfo folder(selectedFiles().value(0));
        if (folder.isDir()) return true;
        const QFileInfo parent(folder.path());
        QString complaint = QDir::toNativeSeparators(folder.filePath());
        if (complaint.isEmpty()) // the list of drives
            complaint = "Choose one of these first.";
        else if (parent.isDir() && !parent.isExecutable())
            complaint += "\nThe folder that holds it cannot be entered.";
        else
            complaint += "\nThere is no such folder.";
        ShowMessageBox(owner, ToBytes(windowTitle()), ToBytes(complaint), QMessageBox::Warning);
        return false;
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
