#pragma once

// The balloons that grow out of steps and tell their time and value: one for each step that is or was under
// the mouse or selected. A popup goes by its step's id, so it follows when the step is moved or sorted. User
// interface thread.

#include <cstdint>
#include <list>

#include "chart/bumper.h"
#include "chart/canvas.h"
#include "chart/figure.h"
#include "chart/renderer_base.h"

namespace UX {

class StepPopups {
 public:
  /// What the scene refers to outlives the popups.
  explicit StepPopups(const ChartScene& scene);

  /// Removes those that have faded, and keeps up those of the hovered and the selected step.
  void Update();
  /// Whether any popup moved less than a second ago.
  bool IsAnimating();
  /// Draws the popups of a lane's steps and aims their balloons. Leaves white and black opaque.
  void Draw(Canvas& canvas, std::int32_t lane);

 private:
  const ChartScene scene_;
};

}  // namespace UX
