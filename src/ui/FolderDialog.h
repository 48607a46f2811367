#pragma once

#include <string>

class QWidget;

namespace ui {

/// Asks for a folder in a modal dialog and waits; the folder's full path, byte for byte as the file system
/// has it, or an empty text when the dialog was cancelled.
///
/// The title stands above the tree of folders; none when it is empty. A start folder that exists is selected
/// when the dialog opens. In the new style the dialog can be resized and has a button that makes a new
/// folder. The dialog is our own since the toolkit's leaves out folders whose names are no text.
std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle);

} // namespace ui
