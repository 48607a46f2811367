#include "modCommonDialog.h"

#include "FileDialog.h"
#include "MessageBox.h"
#include "Text.h"
#include "Toolkit.h"

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
    SaveDialog(QWidget* owner, const std::string& title, const QString& folder, QString name,
               QStringList filters, QString extension)
        : FileDialog(owner, title, folder, AnyFile), Name(std::move(name)), Filters(std::move(filters)),
          Extension(std::move(extension)) {
        setAcceptMode(AcceptSave);
        // The questions are our own, so that they are the same on every desktop.
        setOptions(DontConfirmOverwrite | HideNameFilterDetails);
        setNameFilters(Filters);
        selectFile(Name);
    }

    /// The path chosen. A name without an extension gets the default one; a leading dot begins none.
    [[nodiscard]] QString Path() const {
        const QString path = Choice();
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

  protected:
    bool Agrees(QWidget* owner) override {
        const QFileInfo file(Path());
        if (file.isDir()) { // typed, it makes room for the name that stood there before
            setDirectory(file.filePath());
            if (Field == nullptr) return false;
            Field->setText(Name);
            Field->selectAll();
            return false;
        }
        const QString name = QFileInfo(Choice()).fileName();
        if (!name.isEmpty()) Name = name;
        if (!file.dir().exists()) return Tell(owner, file.path(), "There is no such folder.");
        if (IsTooLongName(file.fileName())) return Tell(owner, file.filePath(), "The name is too long.");
        const bool exists = file.exists() || file.isSymLink();
        const QString question = exists ? " already exists.\nDo you want to replace it?"
                                        : " does not exist.\nDo you want to create it?";
        return AskInBox(owner, "Confirm Save As", ToBytes(Shown(file.filePath()) + question),
                        exists ? QMessageBox::Warning : QMessageBox::Question, !exists);
    }

  private:
    QString Name; ///< the file name proposed, or chosen last
    QStringList Filters;
    QString Extension;
};

} // namespace

std::string ShowSaveDialog(QWidget* owner, const std::string& filter, const std::string& title,
                           const std::string& initialFolder, const std::string& defaultExtension,
                           const std::string& defaultFileName, int& filterIndex) {
    const QStringList filters = NameFilters(filter);
    SaveDialog dialog(owner, title, FromBytes(initialFolder), FromBytes(defaultFileName), filters,
                      FromBytes(defaultExtension));
    dialog.selectNameFilter(filters.value(filterIndex - 1));
    const bool accepted = dialog.Run();
    filterIndex = dialog.FilterIndex();
    return accepted ? ToBytes(QDir::toNativeSeparators(dialog.Path())) : std::string();
}

} // namespace ui
