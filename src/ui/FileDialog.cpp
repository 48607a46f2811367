#include "FileDialog.h"

#include "MessageBox.h"
#include "Text.h"

namespace ui {

FileDialog::FileDialog(QWidget* owner, const std::string& title)
    : QFileDialog(ShownOwner(owner), FromBytes(title)) {}

void FileDialog::ShowNearest(const QString& folder) {
    QFileInfo nearest(folder.isEmpty() ? QDir::homePath() : folder);
    while (!nearest.isDir() && !nearest.isRoot()) nearest = QFileInfo(nearest.path());
    setDirectory(nearest.filePath());
}

bool FileDialog::Run() {
    while (exec() == Accepted) {
        const bool ofTheSystem = testAttribute(Qt::WA_DontShowOnScreen);
        if (!ofTheSystem || Agrees(parentWidget())) return true;
        // Without being told what it held, the dialog would come back as it first was.
        const QString chosen = selectedFiles().value(0), filter = selectedNameFilter();
        ShowNearest(chosen.isEmpty() ? directory().path() : QFileInfo(chosen).path());
        selectFile(chosen);
        selectNameFilter(filter);
    }
    return false;
}

void FileDialog::accept() {
    // A dialog of the system's has gone from the screen by now. It must end here, or it would go on blocking
    // the window.
    if (testAttribute(Qt::WA_DontShowOnScreen)) return done(Accepted);
    try {
        if (Agrees(this)) QFileDialog::accept();
    } catch (...) { // short of memory; nothing may pass through Qt, so the dialog stays
    }
}

QLineEdit* FileDialog::Field() const { return findChild<QLineEdit*>("fileNameEdit"); }

} // namespace ui
