#include "FileDialog.h"

#include "MessageBox.h"
#include "Text.h"

#include <QCompleter>
#include <QFileSystemModel>
#include <QShortcut>

namespace ui {

static QString Nearest(const QString& folder) {
    QFileInfo nearest(folder.isEmpty() ? QDir::homePath() : folder);
    while (!nearest.isDir() && !nearest.isRoot()) nearest = QFileInfo(nearest.path());
    return nearest.filePath();
}

FileDialog::FileDialog(QWidget* owner, const std::string& title, const QString& folder)
    : QFileDialog(ShownOwner(owner), FromBytes(title), Nearest(folder)) {
    if (Field() == nullptr) return; // the system's dialog sees to all below
    // In the lists Enter chooses, as in the field; while a new folder is being named there, it ends that.
    for (const char* list : {"listView", "treeView"})
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
            new QShortcut(enter, findChild<QWidget*>(list), this, &FileDialog::accept, Qt::WidgetShortcut);
    // Completions of what was typed would pop up once another folder has been entered and read.
    QCompleter* completer = Field()->completer();
    connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
            [completer] { completer->setWidget(nullptr); });
    connect(Field(), &QLineEdit::textEdited, this, [this, completer] { completer->setWidget(Field()); });
}

bool FileDialog::Run() {
    while (exec() == Accepted) {
        const bool ofTheSystem = testAttribute(Qt::WA_DontShowOnScreen);
        if (!ofTheSystem || Agrees(parentWidget())) return true;
        // Without being told what it held, the dialog would come back as it first was.
        const QString chosen = selectedFiles().value(0), filter = selectedNameFilter();
        setDirectory(Nearest(chosen.isEmpty() ? directory().path() : QFileInfo(chosen).path()));
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
