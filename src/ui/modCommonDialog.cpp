#include "modCommonDialog.h"

#include "FileDialog.h"
#include "MessageBox.h"
#include "Text.h"
#include "Toolkit.h"

#include <QListView>

namespace ui {

namespace {

/// A filter "Description|pattern|..." as the toolkit's list: each description with its pattern in parentheses
/// behind it. "*.*" becomes "*", for it means every file.
QStringList NameFilters(const std::string& filter) {
    const QStringList parts = FromBytes(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters += parts[i] + " (" + (parts[i + 1] == "*.*" ? "*" : parts[i + 1]) + ")";
    return filters;
}

class SaveDialog : public FileDialog {
  public:
    SaveDialog(QWidget* owner, const std::string& title, const QString& folder, QStringList filters,
               QString extension)
        : FileDialog(owner, title, folder), Filters(std::move(filters)), Extension(std::move(extension)) {
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        // The questions are our own, so that they are the same on every desktop.
        setOptions(DontConfirmOverwrite | HideNameFilterDetails);
        setNameFilters(Filters);
    }

    /// The path chosen. A name without an extension gets the default one; a leading dot begins none.
    [[nodiscard]] QString Path() const {
        const QString path = selectedFiles().value(0);
        const QFileInfo file(path);
        const bool extended =
            file.fileName().isEmpty() || file.isDir() || file.fileName().lastIndexOf('.') > 0;
        return extended ? path : path + "." + Extension;
    }

    /// Number of the chosen filter from 1. The dialog may tell it by the description alone.
    [[nodiscard]] int FilterIndex() const {
        const QString chosen = selectedNameFilter();
        for (qsizetype i = 0; i < Filters.size(); ++i)
            if (Filters[i] == chosen || Filters[i].startsWith(chosen + " (")) return static_cast<int>(i) + 1;
        return 0;
    }

    /// Proposes a file name.
    void Propose(const QString& name) {
        Name = name;
        selectFile(name);
    }

  protected:
    bool Agrees(QWidget* owner) override {
        const QFileInfo file(Path());
        if (file.isDir()) {
            Enter(file.filePath());
            return false;
        }
        const QString name = QFileInfo(selectedFiles().value(0)).fileName();
        if (!name.isEmpty()) Name = name;
        if (!file.dir().exists()) return Tell(owner, file.path(), "\nThere is no such folder.");
        if (IsTooLongName(file.fileName())) return Tell(owner, file.filePath(), "\nThe name is too long.");
        const bool exists = file.exists() || file.isSymLink();
        const QString question = exists ? " already exists.\nDo you want to replace it?"
                                        : " does not exist.\nDo you want to create it?";
        return AskInBox(owner, "Confirm Save As",
                        ToBytes(QDir::toNativeSeparators(file.filePath()) + question),
                        exists ? QMessageBox::Warning : QMessageBox::Question, !exists);
    }

  private:
    /// Enters a folder, chosen in the list or typed. A typed one makes room for the name that stood there
    /// before.
    void Enter(const QString& folder) {
        if (auto* list = findChild<QListView*>("listView")) list->clearSelection(); // leaves what is typed
        const bool typed = Field() != nullptr && !Field()->text().isEmpty() && QFileInfo(Path()).isDir();
        setDirectory(folder);
        if (typed) Field()->setText(Name);
    }

    /// Tells what is wrong with a path; false, for that is what it leads to.
    bool Tell(QWidget* owner, const QString& path, const QString& complaint) {
        ShowMessageBox(owner, ToBytes(windowTitle()), ToBytes(QDir::toNativeSeparators(path) + complaint),
                       QMessageBox::Warning);
        return false;
    }

    QString Name; ///< the file name proposed, or chosen last
    QStringList Filters;
    QString Extension;
};

} // namespace

std::string ShowSaveDialog(QWidget* owner, const std::string& filter, const std::string& title,
                           const std::string& initialFolder, const std::string& defaultExtension,
                           const std::string& defaultFileName, int& filterIndex) {
    const QStringList filters = NameFilters(filter);
    SaveDialog dialog(owner, title, FromBytes(initialFolder), filters, FromBytes(defaultExtension));
    dialog.selectNameFilter(filters.value(filterIndex - 1));
    dialog.Propose(FromBytes(defaultFileName));
    const bool accepted = dialog.Run();
    filterIndex = dialog.FilterIndex();
    return accepted ? ToBytes(QDir::toNativeSeparators(dialog.Path())) : std::string();
}

} // namespace ui
