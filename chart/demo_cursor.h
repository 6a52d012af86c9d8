#pragma once

// The cursor of a running demo, and on each lane a dot that rides on the curve, with a halo that grows and
// brightens with the light. User interface thread.

#include <array>
#include <cstdint>

#include "chart/bumper.h"
#include "chart/canvas.h"
#include "chart/renderer_base.h"

namespace UX {

/// The second of the day at which the cursor stands while the demo is at `position`. The demo advances by the
/// second, its cursor by the whole minute.
std::int32_t CursorSecond(std::int32_t position);

class DemoCursor {
 public:
  /// What the scene refers to outlives the cursor.
  explicit DemoCursor(const ChartScene& scene) : scene_(scene) {}

  /// Draws the cursor and the dots of a running demo; nothing while none runs. Each frame sends them anew to
  /// where the demo is, and they take a tenth of a second to get there. The channels' brushes have other
  /// opacities afterwards.
  void DrawDemoCursor(Canvas& canvas);

 private:
  void DrawBand(Canvas& canvas, float x) const;
  void DrawDot(Canvas& canvas, float x, int lane, std::int32_t intensity);

  const ChartScene scene_;
  bumper_base::CounterBumper demoCursorX_;
  std::array<bumper_base::CounterBumper, TCBase::Program::kChannelCount> demoDotY_;
};

}  // namespace UX
