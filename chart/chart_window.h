#pragma once

#include "common/geometry.h"

namespace UX {

/// The chart's window, as the logic speaks to it. Implemented by the shells; user interface thread.
class ChartWindowPort {
 public:
  virtual ~ChartWindowPort() = default;

  /// Asks for a paint event for a part of the window, in its own coordinates. It comes when no other event
  /// waits, once for all parts; what is drawn then is the whole chart.
  virtual void Invalidate(const Rect& area) = 0;
  /// Takes the keyboard focus.
  virtual void TakeFocus() = 0;
  /// Whether keys go to this window, and so will their releases.
  virtual bool HasFocus() const = 0;
  /// From now on mouse events come here wherever the mouse is, until the capture is released or another
  /// window takes it. app::ChartWindow::OnCaptureLost comes in both cases, within ReleaseCapture, too.
  virtual void Capture() = 0;
  virtual void ReleaseCapture() = 0;
  /// Within what time a second press makes a double click: the user's setting of the system.
  virtual double DoubleClickSeconds() const = 0;
};

}  // namespace UX
