#pragma once

// A lane of the chart: its background, its curve and the markers of its steps. User interface thread.

#include <cstdint>

#include "chart/canvas.h"
#include "chart/figure.h"
#include "chart/renderer_base.h"

namespace UX {

/// Replaces `grid` by the grid of a lane of this size at the origin: every ten percent, every full hour, and
/// the outline. Hours outside the view have their lines outside the lane.
void BuildGrid(Figure& grid, std::int32_t width, std::int32_t height,
               const TCBase::Program::ModeListView& view);

/// Each operation begins and ends with the identity for the canvas's transform.
class LaneDrawing {
 public:
  /// What the scene refers to outlives the drawing.
  explicit LaneDrawing(const ChartScene& scene) : scene_(scene) {}

  /// Grid, frame of the current channel, axis labels and name.
  void DrawBackground(Canvas& canvas, std::int32_t lane);
  /// The thin line of the mode that this one is compared with, if there is one.
  void DrawComparedCurve(Canvas& canvas, std::int32_t lane);
  /// The line and the area under it. A channel of fewer than two steps has neither.
  void DrawCurve(Canvas& canvas, std::int32_t lane);
  /// A circle for a step that fades, a square for one that jumps. Those out of sight are left out, and of
  /// more than two in a row that lie exactly on one another those between the first and the last.
  void DrawSteps(Canvas& canvas, std::int32_t lane);

 private:
  const ChartScene scene_;
  // Kept for their memory.
  Figure grid_;
  Figure line_;
  Figure area_;
};

}  // namespace UX
