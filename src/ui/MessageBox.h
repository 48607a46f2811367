#pragma once

#include <QMessageBox>

#include <string>

namespace ui {

/// The owner of a dialog: the window given, or none while it is not shown yet, which puts the dialog into the
/// middle of the screen.
QWidget* ShownOwner(QWidget* owner);

/// Runs a modal dialog and gives the keyboard back to its owner when it has gone, which window managers may
/// forget. Returns the dialog's result.
int RunModal(QDialog& dialog);

/// Shows a modal message box with an OK button and waits until it is closed. Line breaks in the text may be
/// CR LF or LF; names too long for a line are broken as well.
void ShowMessageBox(QWidget* owner, const std::string& title, const std::string& text,
                    QMessageBox::Icon icon);

/// Asks in such a box, with the buttons Yes and No, of which one is preset. Returns true for Yes.
bool AskInBox(QWidget* owner, const std::string& title, const std::string& text, QMessageBox::Icon icon,
              bool yesIsPreset);

} // namespace ui
