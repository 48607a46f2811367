#include "FileDialog.h"

#include "MessageBox.h"
#include "Text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

#include <functional>

namespace ui {

namespace {

QString Nearest(const QString& folder) {
    QFileInfo nearest(folder.isEmpty() ? QDir::homePath() : folder);
    while (!nearest.isDir() && !nearest.isRoot()) nearest = QFileInfo(nearest.path());
    return nearest.filePath();
}

/// Completes a path, or a name in the folder on display. The toolkit's own completer takes a folder for the
/// one on display when their names merely begin alike.
class PathCompleter : public QCompleter {
  public:
    using QCompleter::QCompleter;

    [[nodiscard]] QString pathFromIndex(const QModelIndex& index) const override {
        const QString path = QCompleter::pathFromIndex(index), typed = completionPrefix();
        const bool isName = !typed.startsWith('/') && !typed.startsWith('~');
        return isName ? QDir(FullPath("")).relativeFilePath(path) : path;
    }
    [[nodiscard]] QStringList splitPath(const QString& path) const override {
        const QString full = QDir::cleanPath(FullPath(path));
        return QCompleter::splitPath(path.endsWith('/') && full != "/" ? full + '/' : full);
    }

    std::function<QString(const QString&)> FullPath; ///< tells what is typed in full
};

} // namespace

FileDialog::FileDialog(QWidget* owner, const std::string& title, const QString& folder, FileMode mode)
    : QFileDialog(ShownOwner(owner), FromBytes(title), Nearest(folder)) {
    setFileMode(mode);
    if (Field() == nullptr) return; // the system's dialog sees to all below
    TameLists();
    // The toolkit would select what is typed in lists that do not show it, and choose that.
    disconnect(Field(), nullptr, this, nullptr);
    connect(Field(), &QLineEdit::returnPressed, this, [this] {
        if (!TakesCompletion()) AcceptField();
    });
    connect(Field(), &QLineEdit::textChanged, this, &FileDialog::FollowField);
    connect(Field(), &QLineEdit::textEdited, this, [this] { Selection()->clearSelection(); });
    connect(Model(), &QFileSystemModel::rootPathChanged, this, [this] {
        // Whichever way another folder is entered, a name left in the field would be taken as one in there.
        if (acceptMode() == AcceptOpen) Field()->clear();
        FollowField();
    });
    auto* completer = new PathCompleter(Model(), this);
    completer->FullPath = [this](const QString& typed) { return FullPath(typed); };
    Field()->setCompleter(completer);
    // The toolkit completes full paths alone once their folder has been read.
    connect(Model(), &QFileSystemModel::directoryLoaded, this, [this, completer](const QString& read) {
        const bool typed = Field()->hasFocus() && IsTyped() && !Field()->text().isEmpty();
        if (typed && QDir::cleanPath(QFileInfo(Choice()).path()) == read) completer->complete();
    });
}

/// Leaves the lists nothing to do but to show, to highlight and to enter folders.
void FileDialog::TameLists() {
    for (const char* name : {"listView", "treeView"}) {
        auto* list = findChild<QAbstractItemView*>(name);
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list->setDragDropMode(QAbstractItemView::NoDragDrop);
        // With single selection the neighbour of an entry that vanishes would be selected.
        list->setSelectionMode(QAbstractItemView::ContiguousSelection);
        qDeleteAll(list->findChildren<QShortcut*>()); // Delete
        // Enter chooses, as in the field; while a new folder is being named there, it ends that.
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
            new QShortcut(enter, list, this, &FileDialog::accept, Qt::WidgetShortcut);
    }
    for (const char* action : {"qt_rename_action", "qt_delete_action"})
        findChild<QAction*>(action)->setVisible(false);
    disconnect(Selection(), nullptr, this, nullptr);
    connect(Selection(), &QItemSelectionModel::currentChanged, this, &FileDialog::FollowHighlight);
    connect(Selection(), &QItemSelectionModel::selectionChanged, this, &FileDialog::FollowHighlight);
    // Highlights one entry of several, and nothing that the toolkit selects because it was selected before.
    const auto highlightOne = [this] {
        Selection()->select(Highlighted(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    };
    connect(Selection(), &QItemSelectionModel::selectionChanged, this, highlightOne, Qt::QueuedConnection);
}

bool FileDialog::Run() {
    while (RunModal(*this) == Accepted) {
        const bool ofTheSystem = testAttribute(Qt::WA_DontShowOnScreen);
        if (!ofTheSystem || Agrees(parentWidget())) return true;
        // Without being told what it held, the dialog would come back as it first was.
        const QString chosen = Choice(), filter = selectedNameFilter();
        setDirectory(Nearest(chosen.isEmpty() ? directory().path() : QFileInfo(chosen).path()));
        selectFile(chosen);
        selectNameFilter(filter);
    }
    return false;
}

/// The button, Enter in a list, or a double click on a file.
void FileDialog::accept() {
    // A dialog of the system's has gone from the screen by now. It must end here, or it would go on blocking
    // the window.
    if (testAttribute(Qt::WA_DontShowOnScreen)) return done(Accepted);
    if (EntersHighlighted()) return setDirectory(Model()->filePath(Highlighted()));
    AcceptField();
}

/// Enter in the field, which alone decides then.
void FileDialog::AcceptField() {
    try {
        const bool nothing = Choice().isEmpty();
        if (nothing && ShowsDrives())
            Tell(this, "", "Choose one of these first.");
        else if (GoesUp())
            findChild<QToolButton*>("toParentButton")->click();
        else if (!nothing && Agrees(this))
            done(Accepted);
    } catch (...) { // short of memory; nothing may pass through Qt, so the dialog stays
    }
}

/// Writes what is highlighted into the field, except for a folder to enter.
void FileDialog::FollowHighlight() {
    if (Highlighted().isValid() && !EntersHighlighted()) Field()->setText(Highlighted().data().toString());
    FollowField();
}

/// Lets the button say what it does.
void FileDialog::FollowField() {
    const bool saves = acceptMode() == AcceptSave;
    const bool enters = EntersHighlighted() || GoesUp() || (saves && QFileInfo(Choice()).isDir());
    setLabelText(Accept, enters ? "&Open" : saves ? "&Save" : "&Choose");
    auto* button = findChild<QDialogButtonBox*>("buttonBox")
                       ->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    button->setEnabled(enters || ShowsDrives() || !Choice().isEmpty());
}

/// Tab on a completion leaves it in the field, which keeps the keyboard.
bool FileDialog::focusNextPrevChild(bool next) {
    return TakesCompletion() || QFileDialog::focusNextPrevChild(next);
}

/// Closes the list of completions. True when one of them had been written into the field by the arrow keys.
bool FileDialog::TakesCompletion() const {
    QAbstractItemView* completions = Field()->completer()->popup();
    const bool reached = completions->isVisible() && !IsTyped();
    completions->hide();
    return reached;
}

QString FileDialog::Choice() const {
    if (Field() == nullptr) return selectedFiles().value(0);
    return Text().isEmpty() && acceptMode() == AcceptSave ? QString() : FullPath(Text());
}

/// True for a text that stands as it was typed, not completed or highlighted.
bool FileDialog::IsTyped() const {
    return Field()->isModified() || Field()->text() == Field()->completer()->completionPrefix();
}

/// What stands in the field, without the line ends that come with what is pasted.
QString FileDialog::Text() const {
    QString text = Field()->text();
    while (IsTyped() && (text.endsWith('\n') || text.endsWith('\r'))) text.chop(1);
    return text;
}

/// The full path of a path, or of a name in the folder on display; empty for a name among the drives. A "~"
/// that is typed is the home folder, one that was highlighted is a name.
QString FileDialog::FullPath(const QString& text) const {
    const bool atHome = text.startsWith("~/") || (text == "~" && IsTyped());
    const QString path = atHome ? QDir::homePath() + text.mid(1) : text;
    const QString folder = Model()->rootPath(), between = folder.endsWith('/') ? "" : "/";
    return path.startsWith('/') ? path : ShowsDrives() ? "" : folder + between + path;
}

bool FileDialog::Tell(QWidget* owner, const QString& path, const QString& complaint) const {
    const QString text = path.isEmpty() ? complaint : QDir::toNativeSeparators(path) + '\n' + complaint;
    ShowMessageBox(owner, ToBytes(windowTitle()), ToBytes(text), QMessageBox::Warning);
    return false;
}

QLineEdit* FileDialog::Field() const { return findChild<QLineEdit*>("fileNameEdit"); }
QFileSystemModel* FileDialog::Model() const { return findChild<QFileSystemModel*>(); }
QItemSelectionModel* FileDialog::Selection() const {
    return findChild<QAbstractItemView*>("listView")->selectionModel();
}

/// The entry that the user has highlighted, in the first column, or none.
QModelIndex FileDialog::Highlighted() const {
    const QModelIndex current = Selection()->currentIndex();
    return Selection()->isSelected(current) ? current.siblingAtColumn(0) : QModelIndex();
}

/// True while a folder is highlighted that the button, or Enter in the list, enters.
bool FileDialog::EntersHighlighted() const {
    return acceptMode() == AcceptSave && Highlighted().isValid() && Model()->isDir(Highlighted());
}

/// True when the field asks for the folder above. In the save dialog that is a folder typed like any other.
bool FileDialog::GoesUp() const { return acceptMode() == AcceptOpen && Text() == ".."; }

/// True while the list holds drives, and no folder is on display.
bool FileDialog::ShowsDrives() const { return Model()->rootPath().isEmpty(); }

} // namespace ui
