#pragma once

#include <string>

class QWidget;

namespace ui {

/// Asks for the name of a file to write in the platform's modal dialog and waits. Returns the full path, or
/// an empty text when the dialog was cancelled.
///
/// The filter alternates descriptions and patterns: "Description|pattern|Description|pattern". A name typed
/// without an extension gets the default one, which is given without a dot. Before a file is replaced, and
/// before a new one is created, the user is asked; "No" leads back to the dialog as it was. A folder typed as
/// the name is entered.
///
/// filterIndex: in, the filter to preselect, from 1; 0 means the first. Out, the filter chosen.
std::string ShowSaveDialog(QWidget* owner, const std::string& filter, const std::string& title,
                           const std::string& initialFolder, const std::string& defaultExtension,
                           const std::string& defaultFileName, int& filterIndex);

} // namespace ui
