#pragma once

// The point that trails the mouse. Crosshair, cursor labels and value labels stand at it. User interface
// thread.

#include <cstdint>

#include "chart/bumper.h"
#include "chart/figure.h"

namespace UX {

/// Covers 5,000 pixels a second, with a soft arrival. Stands at (0, 0) until the mouse has moved.
class CursorFollower {
 public:
  /// Sends it to a point of the chart window, from where it is now.
  void MouseMoved(std::int32_t x, std::int32_t y);
  /// The place of the cursor now, within kFarthest. When its run is over it is exactly where the mouse is.
  Point Position();

 private:
  Point followerPosition_;        // where the run began
  Point followerGoal_;            // where it ends
  float followerHeading_ = 0.0F;  // radians
  bumper_base::CounterBumper followerTravel_;
};

}  // namespace UX
