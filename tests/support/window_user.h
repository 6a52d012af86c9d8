#pragma once

// What a user can do to a window and see of it, beyond the words of user.h: for scripts that only a real
// window can run.

#include <string>
#include <utility>

#include "tests/support/pixel_picture.h"
#include "tests/support/user.h"

class WindowUser : public User {
 public:
  // The sliders and the scroll bar by the mouse.

  /// Clicks in the middle between the thumb and an end of the control.
  enum class Side { Before, Behind };
  virtual void ClickBesideThumb(app::Control bar, Side side) = 0;
  /// Drags the thumb to that point of the control, by way of the points between.
  virtual void DragThumb(app::Control bar, int toX) = 0;
  /// Page and position that the scroll bar shows, in minutes.
  virtual std::pair<int, int> ScrollBar() = 0;

  /// Clicks into the first line that the log pane shows.
  virtual void ClickLog() = 0;
  /// Colour of the first letter of `line`, which the log pane holds once.
  virtual UX::Color LogColor(const std::string& line) = 0;

  /// Clicks with the right button on the chart and leaves the menu open; false if none comes up.
  virtual bool OpenChartMenu(int x, int y) = 0;
  /// Leaves the menu that stands open.
  virtual void LeaveMenu() = 0;
  /// Goes to the first menu of the bar with the keyboard. The arrow keys and Enter go on from there.
  virtual void EnterMenuBar() = 0;
  /// Presses Alt and the slash, or the question mark above it.
  virtual void PressAltSlash(bool shift) = 0;
  /// The mouse's capture is taken from the chart, as by a window that comes up.
  virtual void TakeCapture() = 0;

  /// What the screen shows of the chart, in the chart's coordinates.
  virtual PixelPicture ChartPicture() = 0;
};
