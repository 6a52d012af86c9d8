#pragma once

// The words of dialogs/control.h as Qt's widgets.

#include <QFont>
#include <QString>

#include <vector>

#include "dialogs/control.h"

class QWidget;

namespace qt {

/// Makes a control of any kind but Chart as a child of `parent`, with its traits, but without text and place,
/// shown with the parent unless it is hidden. The parent owns it.
QWidget* MakeControl(const dialogs::ControlTemplate& control, QWidget* parent);

/// Labels, buttons, headings and fields; others have none. Sends nothing, but for an edit field of one line.
void SetControlText(QWidget& control, const dialogs::ControlTemplate& row, const QString& text);

/// The font of all controls: the desktop's own, in the size of the told places.
QFont ControlFont();

}  // namespace qt
