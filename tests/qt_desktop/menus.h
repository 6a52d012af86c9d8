#pragma once

// Menus of the bar and over the chart, opened and left as a user does. User's thread.

#include <QAction>
#include <QWidget>
#include <functional>

#include "tests/support/user.h"

namespace qt_desktop {

/// The way through the menus to the item of a command.
class MenuPath {
 public:
  /// `findRoot` tells the bar, or the menu that stands open; in the windows' thread.
  MenuPath(int command, const std::function<QWidget*()>& findRoot);

  /// Opens all menus on the way, one after the other. False if one is greyed or there is no such item.
  bool Open();
  /// The item as it stands now.
  User::Item Look() const;
  /// Clicks on the item; all menus on the way stand open.
  void Click() const;

 private:
  void Click(int place) const;

  QWidget* root_ = nullptr;
  QList<QAction*> actions_;  // the item comes last
};

namespace menus {

/// Leaves all menus that stand open with Escape, and the bar behind them. False if they stay.
bool Leave();

}  // namespace menus

}  // namespace qt_desktop
