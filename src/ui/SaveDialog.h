#pragma once

#include <QStringList>

#include <string>

class QWidget;

namespace ui {

/// A filter "Description|pattern|Description|pattern" as the toolkit's list: each description with its
/// pattern in parentheses behind. "*.*" becomes "*", for it means every file; a description without a pattern
/// is left out.
QStringList NameFilters(const std::string& filter);

/// Asks for the name of a file to write in a modal dialog and waits; the full path, or an empty text when the
/// dialog was cancelled. The default extension (without a dot) is added to a typed name that has none. The
/// dialog asks before a file is replaced and before a new one is made; a "No" goes back to it. filterIndex is
/// the filter chosen, counted from 1 (0 leaves the first to be it), on the way in and out.
std::string ShowSaveDialog(QWidget* owner, const std::string& filter, const std::string& title,
                           const std::string& initialFolder, const std::string& defaultExtension,
                           const std::string& defaultFileName, int& filterIndex);

} // namespace ui
