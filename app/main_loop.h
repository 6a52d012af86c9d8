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
/// the user touches the chart, something moves by itself or a demo plays, and sleeps for 5 ms otherwise. The
/// only place that moves `now` on, but for the main window while a loop of the platform's own turns. False
/// once the quit event was taken.
bool TurnMainLoop(const MainLoopParts& parts);

}  // namespace app
