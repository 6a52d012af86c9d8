#pragma once

// Where the thumbs of sliders and scroll bars are. Windows' thread.

#include <QAbstractSlider>
#include <QPoint>
#include <QRect>

namespace qt_desktop::bars {

/// The thumb, in the control's coordinates.
QRect ThumbOf(const QAbstractSlider& bar);
/// The room that the thumb moves in.
QRect GrooveOf(const QAbstractSlider& bar);
/// The arrow at the end of a scroll bar that goes on, or back.
QRect ArrowOf(const QAbstractSlider& bar, bool forward);
/// Where the middle of the thumb stands at a position, in the control's coordinates.
QPoint ThumbPointAt(const QAbstractSlider& bar, int position);

}  // namespace qt_desktop::bars
