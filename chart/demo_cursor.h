#pragma once

// The cursor of a running demo, and on each lane a dot that rides on the curve, with a halo that grows and
// brightens with the light. User interface thread.

#include <array>

#include "chart/bumper.h"
#include "chart/canvas.h"
#include "chart/renderer_base.h"

namespace UX {

class DemoCursor {
 public:
  /// What the scene refers to outlives the cursor.
  explicit DemoCursor(const ChartScene& scene) : scene_(scene) {}

  /// Nothing while no demo plays. Leaves the channels' brushes with opacities of its own.
  void Draw(Canvas& canvas);

 private:
  const ChartScene scene_;
  bumper_base::CounterBumper demoCursorX_;
  std::array<bumper_base::CounterBumper, TCBase::Program::kChannelCount> demoDotY_;
};

}  // namespace UX
