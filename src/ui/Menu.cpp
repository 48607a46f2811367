#include "Menu.h"

#include <utility>

namespace ui {

Menu::Menu(QMenuBar* bar, const char* name, const char* caption)
    : Items(bar->addMenu(caption)), Group(new QActionGroup(bar)) {
    Items->setObjectName(name);
    Group->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
}

QAction* Menu::AddItem(const QString& name, const QString& caption, const QString& shortcut,
                       std::function<void()> command) {
    QAction* item = Items->addAction(caption);
    item->setObjectName(name);
    item->setShortcut(QKeySequence(shortcut));
    Group->addAction(item);
    QObject::connect(item, &QAction::triggered, item, [command = std::move(command)] { command(); });
    return item;
}

void Menu::SetEnabled(bool enabled) {
    Items->menuAction()->setEnabled(enabled);
    Group->setEnabled(enabled);
}

} // namespace ui
