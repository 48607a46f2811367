#pragma once

#include <QFileDialog>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLineEdit>

#include <string>

namespace ui {

/// The platform's file dialog: the toolkit's own, which stays open while the user is asked or told something
/// about the choice; or the system's, which has closed by then and is shown again as it was left.
///
/// In the toolkit's dialog the field says what is chosen. A folder highlighted in the list of a save dialog
/// can be entered, but is no choice.
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

    /// The full path chosen; empty when nothing is, as when a name is to be chosen among the drives.
    [[nodiscard]] QString Choice() const;

    /// Tells what is wrong with a path; returns false, for that is what it leads to.
    bool Tell(QWidget* owner, const QString& path, const QString& complaint) const;

    /// The field for a name; nullptr in a dialog of the system's.
    [[nodiscard]] QLineEdit* Field() const;

    bool focusNextPrevChild(bool next) override;

  private:
    void TameLists();
    void AcceptField();
    void FollowHighlight();
    void FollowField();
    [[nodiscard]] bool TakesCompletion() const;
    [[nodiscard]] bool IsTyped() const;
    [[nodiscard]] QString Text() const;
    [[nodiscard]] QString FullPath(const QString& text) const;
    [[nodiscard]] QFileSystemModel* Model() const;
    [[nodiscard]] QItemSelectionModel* Selection() const; ///< of both lists, of which one is shown
    [[nodiscard]] QModelIndex Highlighted() const;
    [[nodiscard]] bool EntersHighlighted() const;
    [[nodiscard]] bool GoesUp() const;
    [[nodiscard]] bool ShowsDrives() const;
};

} // namespace ui
