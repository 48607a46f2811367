#pragma once

#include <QFileDialog>
#include <QLineEdit>

#include <string>

namespace ui {

/// The platform's file dialog: the toolkit's own, which stays open while the user is asked or told something
/// about the choice; or the system's, which has closed by then and is shown again as it was left.
class FileDialog : public QFileDialog {
  public:
    /// Opens in a folder, or the nearest one above it that exists and whose name is text; in the home folder
    /// when there is none to begin with.
    FileDialog(QWidget* owner, const std::string& title, const QString& folder);

    /// Shows the dialog until the user cancels it or makes a choice that is agreed on. True for the latter.
    bool Run();

    void accept() override;

  protected:
    /// Judges the choice: asks and tells the user what there is to be asked and told, in boxes over the
    /// owner. False leads back into the dialog.
    virtual bool Agrees(QWidget* owner) = 0;

    /// The field for a name; nullptr in a dialog of the system's.
    [[nodiscard]] QLineEdit* Field() const;
};

} // namespace ui
