#include "FileDialog.h"

#include "MessageBox.h"
#include "Text.h"

#include <QSettings>

namespace ui {

FileDialog::FileDialog(QWidget* owner, const std::string& title)
    : QFileDialog(ShownOwner(owner), FromBytes(title)) {
    // Where the toolkit keeps settings in files, there is no place for this one.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

void FileDialog::ShowNearest(const QString& folder) {
    QFileInfo nearest(folder.isEmpty() ? QDir::homePath() : folder);
    while (!nearest.isDir() && !nearest.isRoot()) nearest = QFileInfo(nearest.path());
    setDirectory(nearest.filePath());
}

void FileDialog::accept() {
    try {
        const QString complaint = Complaint();
        if (complaint.isEmpty())
            QFileDialog::accept();
        else
            Tell(complaint);
    } catch (...) { // short of memory; nothing may pass through Qt, so the dialog stays
    }
}

void FileDialog::Tell(const QString& text) {
    ShowMessageBox(this, ToBytes(windowTitle()), ToBytes(text), BoxIcon::Warning);
}

} // namespace ui
