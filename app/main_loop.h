#pragma once

#include "app/window/ports.h"
#include "chart/renderer_base.h"
#include "common/timer.h"
#include "program/demo_state.h"

namespace app {

/// Whether something on the chart moves by itself: balloons, or lanes on their way to other places.
bool IsChartMoving(UX::RendererBase& renderer, const UX::ChartLayout& layout);

/// What a turn of the main loop works on.
struct MainLoopParts {
  EventSource& events;
  UX::RendererBase& renderer;
  const UX::ChartLayout& layout;
  const TCBase::DemoState& demo;
  const timer_base::TimerFeatures<TimerCore_Counter>& frameClock;
  const timer_base::TimerFeatures<TimerCore_Counter>& idleTimer;  // since the user touched the chart
  double& now;                                                    // takes the frame clock's time
};

/// One turn of the main loop: takes an event, or else animates, and draws or rests. Draws in every turn while
/// the user touches the chart, something moves by itself or a demo plays, and rests for 5 ms otherwise, or
/// until an event comes.
/// False once the quit event was taken.
///
/// Each turn moves `now` on. Where this loop does not turn, the main window does that: in OnSizing while the
/// user drags its edge, and in OnTimer, which also comes while a menu or a dialog stands open.
bool TurnMainLoop(const MainLoopParts& parts);

}  // namespace app
