#include "modBrowseForFolder.h"

#include "FileDialog.h"
#include "MessageBox.h"
#include "Text.h"

#include <QFileSystemModel>
#include <QKeyEvent>
#include <QToolButton>

namespace ui {

namespace {

/// Chooses the folder on display, or the one selected in it.
class FolderDialog : public FileDialog {
  public:
    FolderDialog(QWidget* owner, const std::string& title, bool makesFolders) : FileDialog(owner, title) {
        setFileMode(Directory);
        setOption(ShowDirsOnly);
        setOption(ReadOnly, !makesFolders);
        if (Field() == nullptr) return; // the system's dialog sees to all below
        // Whichever way another folder is entered, a name left in the field would be taken as one in there.
        connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, Field(),
                &QLineEdit::clear);
        for (const char* list : {"listView", "treeView"}) findChild<QWidget*>(list)->installEventFilter(this);
        // The dialog writes the name of a new folder into the field only when the field is not in use.
        findChild<QToolButton*>("newFolderButton")->setFocusPolicy(Qt::StrongFocus);
    }

    /// Enter chooses in the lists, too; the toolkit would enter the selected folder, as a double click does.
    /// While a new folder is being named, Enter ends that.
    bool eventFilter(QObject* list, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && list == focusWidget()) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                accept();
                return true;
            }
        }
        return FileDialog::eventFilter(list, event);
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
        ShowMessageBox(owner, ToBytes(windowTitle()), ToBytes(complaint), BoxIcon::Warning);
        return false;
    }
};

} // namespace

std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle) {
    FolderDialog dialog(owner, title, newStyle);
    dialog.ShowNearest(
        startFolder.empty() ? QString() : QDir::cleanPath(QDir().absoluteFilePath(FromBytes(startFolder))));
    if (!dialog.Run()) return {};
    return ToBytes(QDir::toNativeSeparators(dialog.selectedFiles().front()));
}

} // namespace ui
