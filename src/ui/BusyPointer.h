#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace ui {

/// Shows the busy pointer over the whole program from its making until Restore or the end of its scope.
class BusyPointer {
  public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { Restore(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    void Restore() {
        if (Busy) QGuiApplication::restoreOverrideCursor();
        Busy = false;
    }

  private:
    bool Busy = true;
};

} // namespace ui
