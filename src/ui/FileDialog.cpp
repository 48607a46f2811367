#include "FileDialog.h"

#include "MessageBox.h"
#include "Text.h"

#include <QComboBox>
#include <QInputDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <memory>

namespace ui {

namespace {

QString Nearest(const QString& folder) {
    QFileInfo nearest(folder.isEmpty() ? QDir::homePath() : folder);
    while (!nearest.isDir() && !nearest.isRoot()) nearest = QFileInfo(nearest.path());
    return nearest.filePath();
}

/// True for a text that can only mean a folder.
bool NamesFolder(const QString& text) { return QStringList{"", ".", ".."}.contains(text.section('/', -1)); }

/// Takes the line ends out of what is pasted into a field. What the program sets keeps them.
void TakeOutPastedLineEnds(QLineEdit* field) {
    const auto before = std::make_shared<QString>();
    QObject::connect(field, &QLineEdit::textChanged, field, [=] { *before = field->text(); });
    QObject::connect(field, &QLineEdit::textEdited, field, [=](const QString& text) {
        const auto cursor = text.begin() + field->cursorPosition(); // where the new part ends
        const auto start = std::mismatch(before->begin(), before->end(), text.begin(), cursor).second;
        const QString pasted(start, cursor - start), plain = QString(pasted).remove('\n').remove('\r');
        if (plain == pasted) return;
        field->setSelection(static_cast<int>(start - text.begin()), static_cast<int>(pasted.size()));
        field->insert(plain);
    });
}

} // namespace

FileDialog::FileDialog(QWidget* owner, const std::string& title, const QString& folder, FileMode mode)
    : QFileDialog(ShownOwner(owner), FromBytes(title), Nearest(folder)),
      Names(findChild<QAbstractItemView*>("listView")), Details(findChild<QAbstractItemView*>("treeView")),
      Model(findChild<QFileSystemModel*>()), Buttons(findChild<QDialogButtonBox*>("buttonBox")),
      UpButton(findChild<QToolButton*>("toParentButton")),
      NewFolderButton(findChild<QToolButton*>("newFolderButton")) {
    setFileMode(mode);
    // All are missing in a dialog of the system's; some could be in that of a newer toolkit.
    if (Names && Details && Model && Buttons && UpButton && NewFolderButton)
        Field = findChild<QLineEdit*>("fileNameEdit");
    if (Field == nullptr) return;
    Selection = Names->selectionModel();
    TameLists();
    TameActions();
    // The toolkit would select what is typed in lists that do not show it, and choose that.
    disconnect(Field, nullptr, this, nullptr);
    Field->setCompleter(nullptr);
    TakeOutPastedLineEnds(Field);
    connect(Field, &QLineEdit::returnPressed, this, &FileDialog::AcceptField);
    connect(Field, &QLineEdit::textChanged, this, &FileDialog::FollowField);
    connect(Field, &QLineEdit::textEdited, this, [this] { Selection->clearSelection(); });
    connect(Model, &QFileSystemModel::rootPathChanged, this, [this] {
        // Whichever way another folder is entered, a name left in the field would be taken as one in there.
        if (acceptMode() == AcceptOpen) Field->clear();
        FollowField();
    });
}

/// Leaves the lists nothing to do but to show, to highlight and to enter folders.
void FileDialog::TameLists() {
    for (QAbstractItemView* list : {Names, Details}) {
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list->setDragDropMode(QAbstractItemView::NoDragDrop);
        // With single selection the neighbour of an entry that vanishes would be selected.
        list->setSelectionMode(QAbstractItemView::ContiguousSelection);
        qDeleteAll(list->findChildren<QShortcut*>()); // Delete
        // Enter chooses, as in the field.
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
            new QShortcut(enter, list, this, &FileDialog::accept, Qt::WidgetShortcut);
    }
    disconnect(Selection, nullptr, this, nullptr);
    connect(Selection, &QItemSelectionModel::currentChanged, this, &FileDialog::FollowHighlight);
    connect(Selection, &QItemSelectionModel::selectionChanged, this, &FileDialog::FollowHighlight);
    // Highlights one entry of several, and nothing that the toolkit selects because it was selected before.
    const auto highlightOne = [this] {
        Selection->select(Highlighted(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    };
    connect(Selection, &QItemSelectionModel::selectionChanged, this, highlightOne, Qt::QueuedConnection);
}

/// Sees to the entries of the lists' menu, and to what can be done by keys wherever the keyboard is.
void FileDialog::TameActions() {
    for (const char* name : {"qt_rename_action", "qt_delete_action"})
        if (auto* action = findChild<QAction*>(name)) action->setVisible(false);
    if (auto* showHidden = findChild<QAction*>("qt_show_hidden_action")) {
        showHidden->setShortcut(QKeySequence("Ctrl+H"));
        addAction(showHidden);
    }
    if (auto* newFolder = findChild<QAction*>("qt_new_folder_action")) {
        disconnect(newFolder, nullptr, this, nullptr);
        connect(newFolder, &QAction::triggered, this, &FileDialog::MakeFolder);
    }
    disconnect(NewFolderButton, nullptr, this, nullptr);
    connect(NewFolderButton, &QToolButton::clicked, this, &FileDialog::MakeFolder);
    new QShortcut(QKeySequence("Ctrl+Down"), this, this, &FileDialog::EnterHighlighted);
}

bool FileDialog::Run() {
    while (RunModal(*this) == Accepted) {
        if (Field != nullptr || Agrees(parentWidget())) return true;
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
    if (Field == nullptr) return QFileDialog::accept();
    if (EntersHighlighted()) return EnterHighlighted();
    AcceptField();
}

/// Enter in the field, which alone decides then.
void FileDialog::AcceptField() {
    try {
        const bool nothing = Choice().isEmpty();
        if (nothing && ShowsDrives())
            Tell(this, "", "Choose a drive or folder first.");
        else if (GoesUp())
            UpButton->click();
        else if (!nothing && Agrees(this))
            done(Accepted);
    } catch (...) { // short of memory; nothing may pass through Qt, so the dialog stays
    }
}

/// Asks for the name of a new folder, makes it in the folder on display and enters it.
void FileDialog::MakeFolder() {
    QInputDialog question(this);
    question.setWindowTitle("New Folder");
    question.setLabelText("Name of the new folder:");
    question.setTextValue(""); // makes the field
    TakeOutPastedLineEnds(question.findChild<QLineEdit*>());
    while (RunModal(question) == Accepted && !question.textValue().isEmpty()) {
        const QString name = question.textValue(), path = Model->rootPath() + '/' + name;
        const bool isName = !name.contains('/') && !NamesFolder(name), isTaken = QFileInfo::exists(path);
        if (isName && QDir().mkdir(path)) {
            setDirectory(path);
            return Field->setFocus();
        }
        Tell(this, name,
             !isName   ? "This is not a name for a folder."
             : isTaken ? "There is a file or folder of this name already."
                       : "No folder of this name can be made here.");
    }
}

void FileDialog::EnterHighlighted() {
    if (Highlighted().isValid() && Model->isDir(Highlighted())) setDirectory(Model->filePath(Highlighted()));
}

/// Writes what is highlighted into the field, except for a folder to enter.
void FileDialog::FollowHighlight() {
    if (Highlighted().isValid() && !EntersHighlighted()) Field->setText(Highlighted().data().toString());
    FollowField();
}

/// Lets the button say what it does, and the list of a chooser highlight nothing but what the field says.
void FileDialog::FollowField() {
    const bool saves = acceptMode() == AcceptSave;
    if (!saves && Highlighted().data().toString() != Field->text()) Selection->clearSelection();
    const bool enters = EntersHighlighted() || GoesUp() || (saves && QFileInfo(Choice()).isDir());
    setLabelText(Accept, enters ? "&Open" : saves ? "&Save" : "&Choose");
    Buttons->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)
        ->setEnabled(enters || ShowsDrives() || !Choice().isEmpty());
}

/// Tab adds a completion when there is one, and the field keeps the keyboard.
bool FileDialog::focusNextPrevChild(bool next) {
    const QString completion = next && Field != nullptr && Field->hasFocus() ? Completion() : QString();
    if (completion.isEmpty()) return QFileDialog::focusNextPrevChild(next);
    Field->insert(completion);
    return true;
}

/// What can be added to a path or name that was typed: what the entries that begin like it have in common,
/// and a "/" behind the only one when that is a folder.
QString FileDialog::Completion() const {
    const QString text = Field->text(), name = text.section('/', -1);
    const bool typed = Field->isModified() && Field->cursorPosition() == text.size();
    if (!typed || Field->hasSelectedText() || NamesFolder(text) || text == "~" || Choice().isEmpty())
        return {};
    const QDir folder = QFileInfo(Choice()).dir();
    QDir::Filters listed = QDir::AllDirs | QDir::NoDotAndDotDot;
    if (acceptMode() == AcceptSave) listed |= QDir::Files;
    if (name.startsWith('.')) listed |= QDir::Hidden;
    QStringList entries = folder.entryList(Model->nameFilters(), listed);
    entries.removeIf([&](const QString& entry) { return !entry.startsWith(name); });
    QString common = entries.value(0);
    for (const QString& entry : entries)
        while (!entry.startsWith(common) || common.back().isHighSurrogate()) common.chop(1);
    const bool isFolder = entries.size() == 1 && QFileInfo(folder, common).isDir();
    return common.mid(name.size()) + (isFolder ? "/" : "");
}

/// Enter does what has the keyboard. It comes here from all but the field, the lists and the buttons below.
void FileDialog::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QWidget* focus = isEnter && Field != nullptr ? focusWidget() : nullptr;
    if (auto* button = qobject_cast<QToolButton*>(focus)) return button->click();
    if (auto* box = qobject_cast<QComboBox*>(focus)) return box->showPopup();
    // The side bar has gone to its place already, when that was highlighted.
    if (qobject_cast<QAbstractItemView*>(focus) == nullptr) QFileDialog::keyPressEvent(event);
}

/// A "~" that is typed is the home folder, one that was highlighted is a name. The folder above is the one
/// whose name stands in front, behind a link too.
QString FileDialog::Choice() const {
    if (Field == nullptr) return selectedFiles().value(0);
    const QString text = Field->text();
    const bool atHome = text.startsWith("~/") || (text == "~" && Field->isModified());
    QString path = atHome ? QDir::homePath() + text.mid(1) : text;
    if (!path.startsWith('/')) {
        if (ShowsDrives() || (text.isEmpty() && acceptMode() == AcceptSave)) return {};
        path.prepend(Model->rootPath() + '/');
    }
    path = QDir::cleanPath(path);
    return NamesFolder(text) && !path.endsWith('/') ? path + '/' : path;
}

QString FileDialog::Shown(const QString& path) {
    constexpr qsizetype Longest = 1000;
    const QString whole = QDir::toNativeSeparators(path);
    return whole.size() <= Longest ? whole : whole.left(Longest / 2) + " ... " + whole.right(Longest / 2);
}

bool FileDialog::Tell(QWidget* owner, const QString& path, const QString& complaint) const {
    const QString text = path.isEmpty() ? complaint : Shown(path) + '\n' + complaint;
    ShowMessageBox(owner, ToBytes(windowTitle()), ToBytes(text), QMessageBox::Warning);
    return false;
}

/// The entry that the user has highlighted, in the first column, or none.
QModelIndex FileDialog::Highlighted() const {
    const QModelIndex current = Selection->currentIndex();
    return Selection->isSelected(current) ? current.siblingAtColumn(0) : QModelIndex();
}

/// True while a folder is highlighted that the button, or Enter in the list, enters.
bool FileDialog::EntersHighlighted() const {
    return acceptMode() == AcceptSave && Highlighted().isValid() && Model->isDir(Highlighted());
}

/// True when the field asks for the folder above. In the save dialog that is a folder typed like any other.
bool FileDialog::GoesUp() const {
    return acceptMode() == AcceptOpen && (Field->text() == ".." || Field->text() == "../");
}

/// True while the list holds drives, and no folder is on display.
bool FileDialog::ShowsDrives() const { return Model->rootPath().isEmpty(); }

} // namespace ui
