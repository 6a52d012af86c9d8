#include "platform/qt/desktop/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace qt {

namespace {

constexpr char kProperty[] = "accessible-role";

// Null leaves an object to Qt.
QAccessibleInterface* InterfaceOf(const QString&, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  const QVariant role = object->property(kProperty);
  if (widget == nullptr || !role.isValid()) return nullptr;
  return new QAccessibleWidget(widget,
                               static_cast<QAccessible::Role>(role.toInt()));  // Qt's own from then on
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  widget.setProperty(kProperty, static_cast<int>(role));
  QAccessible::installFactory(&InterfaceOf);  // once: Qt knows it the next time
}

}  // namespace qt
