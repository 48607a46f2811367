#pragma once

#include <QFileDialog>

#include <string>

namespace ui {

/// The toolkit's file dialog. Leaves no settings file of the toolkit's own in the user's home.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget* owner, const std::string& title);

    /// Shows a folder, or the nearest one above it that exists and whose name is text; the home folder when
    /// there is none to begin with.
    void ShowNearest(const QString& folder);

    /// Closes the dialog, or tells what is wrong with the choice and stays.
    void accept() override;

  protected:
    /// What is wrong with the path chosen; an empty text when nothing is.
    [[nodiscard]] virtual QString Complaint() const = 0;

    /// Shows a message over the dialog.
    void Tell(const QString& text);
};

} // namespace ui
