#pragma once

class QString;

namespace ui {

/// Makes the choices that hold for the whole process: which file dialogs are shown (the toolkit's own, on
/// Windows the system's), and that the toolkit leaves no settings file in the user's home. Every `main` calls
/// it once, before it makes the application object.
void PrepareToolkit();

/// True for a file name that is longer than any file system of the platform takes: 255 bytes, on Windows 255
/// UTF-16 units.
bool IsTooLongName(const QString& name);

} // namespace ui
