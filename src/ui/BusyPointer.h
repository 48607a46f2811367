#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <QScopeGuard>

namespace ui {

/// Shows the busy pointer over the whole program until what it returns goes out of scope.
[[nodiscard]] inline auto ShowBusyPointer() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    return qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
}

} // namespace ui
