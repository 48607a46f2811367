#pragma once

#include <QActionGroup>
#include <QMenuBar>

#include <functional>

namespace ui {

/// A menu of a menu bar. While it is disabled its items are dead, shortcuts included; enabled again, each
/// item has the state of its own back.
class Menu {
  public:
    /// An "&" in a caption marks the access key. Names are those of the objects, as everywhere below.
    Menu(QMenuBar* bar, const char* name, const char* caption);

    /// Adds an item that runs a command, which must not throw. Qt toggles a checkable item when it is
    /// triggered; the command must then set the right mark.
    QAction* AddItem(const QString& name, const QString& caption, const QString& shortcut,
                     std::function<void()> command);
    void AddSeparator() { Items->addSeparator(); }

    void SetEnabled(bool enabled);

  private:
    QMenu* Items;
    QActionGroup* Group; ///< disabling it disables the shortcuts, too
};

} // namespace ui
