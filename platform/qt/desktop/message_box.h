#pragma once

#include <QMessageBox>

#include <string_view>

#include "dialogs/control.h"

namespace qt {

/// Shows a message over `owner` and returns the button that was pressed. The Escape key and the frame's own
/// button press Cancel where there is one, the one button where there is no other, and otherwise nothing.
/// `enter` is the button that the Enter key presses; NoButton for the first one.
QMessageBox::StandardButton ShowMessage(QWidget* owner, std::u16string_view title, std::u16string_view text,
                                        dialogs::Icon icon, QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton enter = QMessageBox::NoButton);

}  // namespace qt
