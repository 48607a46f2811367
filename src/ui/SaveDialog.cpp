#include "SaveDialog.h"

#include "Text.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>

namespace ui {

namespace {

class SaveDialog : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

    void accept() override {
        const QStringList chosen = selectedFiles();
        if (chosen.isEmpty()) return;
        const QFileInfo file(chosen.front());
        if (file.isDir() || Confirmed(file)) QFileDialog::accept(); // a folder is entered
    }

  private:
    bool Confirmed(const QFileInfo& file) {
        const QString path = QDir::toNativeSeparators(file.absoluteFilePath());
        if (!file.absoluteDir().exists()) {
            Ask(QMessageBox::Warning, path + "\nThere is no such folder.", QMessageBox::Ok, QMessageBox::Ok);
            return false;
        }
        const bool exists = file.exists() || file.isSymLink();
        const QString question = exists ? path + " already exists.\nDo you want to replace it?"
                                        : path + " does not exist.\nDo you want to create it?";
        return Ask(exists ? QMessageBox::Warning : QMessageBox::Question, question,
                   QMessageBox::Yes | QMessageBox::No,
                   exists ? QMessageBox::No : QMessageBox::Yes) == QMessageBox::Yes;
    }

    int Ask(QMessageBox::Icon icon, const QString& text, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton preset) {
        QMessageBox box(icon, "Confirm Save As", text, buttons, this);
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(preset);
        return box.exec();
    }
};

// The number of the chosen filter from 1. The dialog tells it by what it shows: the description alone.
int ChosenFilter(const QFileDialog& dialog) {
    const QString shown = dialog.selectedNameFilter();
    const QStringList filters = dialog.nameFilters();
    for (qsizetype i = 0; i < filters.size(); ++i)
        if (filters[i] == shown || filters[i].startsWith(shown + " (")) return static_cast<int>(i) + 1;
    return 0;
}

} // namespace

QStringList NameFilters(const std::string& filter) {
    const QStringList parts = FromBytes(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1] == "*.*" ? "*" : parts[i + 1];
        filters += parts[i] + " (" + patterns.replace(';', ' ') + ")";
    }
    return filters;
}

std::string ShowSaveDialog(QWidget* owner, const std::string& filter, const std::string& title,
                           const std::string& initialFolder, const std::string& defaultExtension,
                           const std::string& defaultFileName, int& filterIndex) {
    // The toolkit's dialog would keep a settings file of its own in the user's home; there it finds no place
    // for one.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
    SaveDialog dialog(owner, FromBytes(title), FromBytes(initialFolder));
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
                      QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QStringList filters = NameFilters(filter);
    dialog.setNameFilters(filters);
    if (filterIndex >= 1 && filterIndex <= filters.size())
        dialog.selectNameFilter(dialog.nameFilters()[filterIndex - 1]);
    dialog.setDefaultSuffix(FromBytes(defaultExtension));
    dialog.selectFile(FromBytes(defaultFileName));
    const bool accepted = dialog.exec() == QDialog::Accepted;
    filterIndex = ChosenFilter(dialog);
    return accepted ? ToBytes(QDir::toNativeSeparators(dialog.selectedFiles().front())) : std::string();
}

} // namespace ui
