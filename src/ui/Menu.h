#pragma once

#include <QActionGroup>
#include <QMenuBar>

#include <functional>

namespace ui {

/// A menu of a menu bar. While it is disabled its items are dead, shortcuts included; enabled again, each
/// item has the state of its own back.
class Menu {
  public:
    /// An "&" in a caption marks the access key.
    Menu(QMenuBar* bar, const char* caption);

    /// Adds an item that runs a command, which must not throw. Checkable items do not toggle by themselves
    /// for long: the command sets their marks.
    QAction* AddItem(const char* caption, const char* shortcut, std::function<void()> command);
    void AddSeparator() { Items->addSeparator(); }

    void SetEnabled(bool enabled);
    [[nodiscard]] bool IsEnabled() const { return Items->menuAction()->isEnabled(); }

  private:
    QMenu* Items;
    QActionGroup* Group;
};

} // namespace ui
