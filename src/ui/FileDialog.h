#pragma once

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QToolButton>

#include <string>

namespace ui {

/// The platform's file dialog: the toolkit's own, which stays open while the user is asked or told something
/// about the choice; or the system's, which has closed by then and is shown again as it was left.
///
/// In the toolkit's dialog the field says what is chosen. A folder highlighted in the list of a save dialog
/// can be entered, but is no choice. Enter does what has the keyboard, and Tab behind what was typed
/// completes it, as in a shell; nothing pops up. A toolkit whose dialog lacks a part that is needed for this
/// shows it as it is, and the user is asked and told as behind a dialog of the system's.
class FileDialog : public QFileDialog {
  public:
    /// Opens in a folder, or the nearest one above it that exists and whose name is text; in the home folder
    /// when there is none to begin with.
    FileDialog(QWidget* owner, const std::string& title, const QString& folder, FileMode mode);

    /// Shows the dialog until the user cancels it or makes a choice that is agreed on. True for the latter.
    bool Run();

    void accept() override;

  protected:
    /// Judges the choice, of which the toolkit's dialog has one: asks and tells the user what there is to be
    /// asked and told, in boxes over the owner. False leads back into the dialog.
    virtual bool Agrees(QWidget* owner) = 0;

    /// The full path chosen, with a "/" at its end when the text asks for a folder; empty when nothing is
    /// chosen, as when a name is to be chosen among the drives.
    [[nodiscard]] QString Choice() const;

    /// A path as boxes show it: the middle of a very long one is left out, so that the box fits the screen.
    [[nodiscard]] static QString Shown(const QString& path);

    /// Tells what is wrong with a path; returns false, for that is what it leads to.
    bool Tell(QWidget* owner, const QString& path, const QString& complaint) const;

    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

    QLineEdit* Field = nullptr; ///< for a name; nullptr in a dialog that is not ours to change

  private:
    void TameLists();
    void TameActions();
    void AcceptField();
    void MakeFolder();
    void EnterHighlighted();
    void FollowHighlight();
    void FollowField();
    [[nodiscard]] QString Completion() const;
    [[nodiscard]] QModelIndex Highlighted() const;
    [[nodiscard]] bool EntersHighlighted() const;
    [[nodiscard]] bool GoesUp() const;
    [[nodiscard]] bool ShowsDrives() const;

    QAbstractItemView *Names, *Details; ///< the two lists, of which one is shown
    QFileSystemModel* Model;
    QDialogButtonBox* Buttons;
    QToolButton *UpButton, *NewFolderButton;
    QItemSelectionModel* Selection = nullptr; ///< of both lists
};

} // namespace ui
