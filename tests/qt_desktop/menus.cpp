#include "tests/qt_desktop/menus.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/input.h"
#include "tests/qt_desktop/texts.h"
#include "tests/support/patience.h"

namespace qt_desktop {

namespace {

// More than menus can stand within each other.
constexpr int kMostEscapes = 10;

// Null, if the command is not among these or in their menus.
QList<QAction*> PathTo(int command, const QList<QAction*>& actions) {
  for (QAction* const action : actions) {
    if (action->menu() == nullptr) {
      if (!action->isSeparator() && action->data().toInt() == command) return {action};
      continue;
    }
    const QList<QAction*> behind = PathTo(command, action->menu()->actions());
    if (!behind.isEmpty()) return QList<QAction*>{action} + behind;
  }
  return {};
}

QPoint PlaceOf(QWidget& menu, QAction* action) {
  if (const auto* const bar = qobject_cast<QMenuBar*>(&menu)) {
    return bar->mapToGlobal(bar->actionGeometry(action).center());
  }
  return menu.mapToGlobal(dynamic_cast<QMenu&>(menu).actionGeometry(action).center());
}

bool IsInMenu() {
  return QApplication::activePopupWidget() != nullptr ||
         qobject_cast<QMenuBar*>(QApplication::focusWidget()) != nullptr;
}

}  // namespace

MenuPath::MenuPath(int command, const std::function<QWidget*()>& findRoot) {
  InGui([&] {
    root_ = findRoot();
    actions_ = PathTo(command, root_->actions());
  });
}

bool MenuPath::Open() {
  for (int place = 0; place + 1 < actions_.size(); ++place) {
    if (!FromGui([&] { return actions_[place]->isEnabled(); })) return false;
    Click(place);
    // A menu within a menu takes a moment.
    if (!WaitUntil([&] { return FromGui([&] { return actions_[place]->menu()->isVisible(); }); }))
      return false;
  }
  return !actions_.isEmpty();
}

User::Item MenuPath::Look() const {
  if (actions_.isEmpty()) return {};
  return FromGui([this] {
    const QAction& item = *actions_.back();
    const bool isEnabled = std::ranges::all_of(actions_, &QAction::isEnabled);
    return User::Item{Utf8(item.text()), true, isEnabled, item.isChecked()};
  });
}

void MenuPath::Click() const {
  Click(static_cast<int>(actions_.size()) - 1);
}

void MenuPath::Click(int place) const {
  input::Click(
      FromGui([&] { return PlaceOf(place == 0 ? *root_ : *actions_[place - 1]->menu(), actions_[place]); }));
  AwaitGui();
}

bool menus::Leave() {
  for (int i = 0; i < kMostEscapes; ++i) {
    if (!FromGui(IsInMenu)) return true;
    input::PressKey(Qt::Key_Escape);
    AwaitGui();
  }
  return !FromGui(IsInMenu);
}

}  // namespace qt_desktop
