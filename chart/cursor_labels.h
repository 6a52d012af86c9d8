#pragma once

// What stands at the point that trails the mouse: its time and percentage, the value of each curve at its
// time, and the crosshair. User interface thread.

#include <cstdint>

#include "chart/canvas.h"
#include "chart/renderer_base.h"

namespace UX {

/// Each operation begins and ends with the identity for the canvas's transform. `at` is where the point is.
class CursorLabels {
 public:
  /// What the scene refers to outlives the labels.
  explicit CursorLabels(const ChartScene& scene) : scene_(scene) {}

  /// Time and percentage. Nothing while a step is under the mouse, whose own label tells them.
  void DrawCursorLabels(Canvas& canvas, Point at);
  /// The value of a lane's curve. Leaves white with an opacity of its own.
  void DrawValueLabel(Canvas& canvas, std::int32_t lane, Point at);
  /// Draws the lines across all lanes and down the whole chart window.
  void DrawCrosshair(Canvas& canvas, Point at);

 private:
  /// The second of the day under the point; not on the day (see IsOnDay) if the point is beside it.
  std::int32_t TimeAt(std::int32_t lane, Point at);

  const ChartScene scene_;
};

}  // namespace UX
