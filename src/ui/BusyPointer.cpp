#include "BusyPointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace ui {

BusyPointer::BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }

void BusyPointer::Restore() {
    if (Busy) QGuiApplication::restoreOverrideCursor();
    Busy = false;
}

} // namespace ui
