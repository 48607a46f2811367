#pragma once

#include <string>

class QWidget;

namespace ui {

/// Asks for a folder in the platform's modal dialog and waits. Returns the folder's full path, or an empty
/// text when the dialog was cancelled.
///
/// The title is the dialog's caption. The dialog opens inside the start folder, or the nearest one above it
/// that exists. In the new style it can make folders. Folders whose names are no text in the platform's
/// encoding are not offered.
std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle);

} // namespace ui
