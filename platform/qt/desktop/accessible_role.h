#pragma once

// What a screen reader says a widget is, where the toolkit has no class that says so.

#include <QAccessible>
#include <QWidget>

namespace qt {

/// Is to be called before anybody has looked at the widget, best where it is made. User interface thread.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace qt
