#include "modCommonDialog.h"

#include "FileDialog.h"
#include "Text.h"

#include <QMessageBox>

namespace ui {

namespace {

// A filter "Description|pattern|..." as the toolkit's list: each description with its pattern in parentheses
// behind it. "*.*" becomes "*", for it means every file.
QStringList NameFilters(const std::string& filter) {
    const QStringList parts = FromBytes(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters += parts[i] + " (" + (parts[i + 1] == "*.*" ? "*" : parts[i + 1]) + ")";
    return filters;
}

class SaveDialog : public FileDialog {
  public:
    SaveDialog(QWidget* owner, const std::string& title, QStringList filters, QString extension)
        : FileDialog(owner, title), Filters(std::move(filters)), Extension(std::move(extension)) {
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        // The questions are our own, so that they are the same on every desktop.
        setOptions(DontConfirmOverwrite | HideNameFilterDetails);
        setNameFilters(Filters);
    }

    /// The path chosen. A name without an extension gets the default one; a leading dot begins none.
    [[nodiscard]] QString Path() const {
        const QString path = selectedFiles().value(0);
        const bool extended =
            path.isEmpty() || QFileInfo(path).isDir() || QFileInfo(path).fileName().lastIndexOf('.') > 0;
        return extended ? path : path + "." + Extension;
    }

    /// Number of the chosen filter from 1. The dialog may tell it by the description alone.
    [[nodiscard]] int FilterIndex() const {
        const QString chosen = selectedNameFilter();
        for (qsizetype i = 0; i < Filters.size(); ++i)
            if (Filters[i] == chosen || Filters[i].startsWith(chosen + " (")) return static_cast<int>(i) + 1;
        return 0;
    }

    /// Asks whether the chosen file shall be written. A folder is entered instead.
    bool Confirmed() {
        const QFileInfo file(Path());
        if (file.isDir()) {
            setDirectory(file.filePath());
            return false;
        }
        const QString path = QDir::toNativeSeparators(file.filePath());
        const bool exists = file.exists() || file.isSymLink();
        QMessageBox box(exists ? QMessageBox::Warning : QMessageBox::Question, "Confirm Save As",
                        exists ? path + " already exists.\nDo you want to replace it?"
                               : path + " does not exist.\nDo you want to create it?",
                        QMessageBox::Yes | QMessageBox::No, parentWidget());
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(exists ? QMessageBox::No : QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes;
    }

  protected:
    [[nodiscard]] QString Complaint() const override {
        const QFileInfo file(Path());
        QString complaint;
        if (file.filePath().isEmpty() || !file.dir().exists()) complaint = "\nThere is no such folder.";
        if (QFile::encodeName(file.fileName()).size() > LongestName) complaint = "\nThe name is too long.";
        return complaint.isEmpty() ? complaint : QDir::toNativeSeparators(file.filePath()) + complaint;
    }

  private:
    static constexpr qsizetype LongestName = 255; // in bytes; more is too long for any file system

    QStringList Filters;
    QString Extension;
};

} // namespace

std::string ShowSaveDialog(QWidget* owner, const std::string& filter, const std::string& title,
                           const std::string& initialFolder, const std::string& defaultExtension,
                           const std::string& defaultFileName, int& filterIndex) {
    const QStringList filters = NameFilters(filter);
    SaveDialog dialog(owner, title, filters, FromBytes(defaultExtension));
    dialog.ShowNearest(FromBytes(initialFolder));
    dialog.selectNameFilter(filters.value(filterIndex - 1));
    dialog.selectFile(FromBytes(defaultFileName));
    bool accepted = false;
    do accepted = dialog.exec() == QDialog::Accepted;
    while (accepted && !dialog.Confirmed());
    filterIndex = dialog.FilterIndex();
    return accepted ? ToBytes(QDir::toNativeSeparators(dialog.Path())) : std::string();
}

} // namespace ui
