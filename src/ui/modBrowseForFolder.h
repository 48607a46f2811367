#pragma once

#include <string>

class QWidget;

namespace ui {

/// Asks for a folder in the toolkit's modal dialog and waits. Returns the folder's full path, or an empty
/// text when the dialog was cancelled.
///
/// The title is the dialog's caption. A start folder that exists is selected when the dialog opens. In the
/// new style the dialog can make folders. Folders whose names are no text in the platform's encoding are not
/// offered.
std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle);

} // namespace ui
