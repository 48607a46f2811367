#pragma once

#include <QFont>

namespace ui {

/// The fonts of the fixed layout. Their sizes are in pixels, so that the layout holds whatever the desktop's
/// settings.
QFont WindowFont(); ///< what widgets without a font of their own use
QFont CodesFont();  ///< fixed pitch

} // namespace ui
