#include "app/main_loop.h"

namespace app {

namespace {

constexpr double kIdleSeconds = 1.0;
constexpr int kIdleMilliseconds = 5;

// Seconds since the user touched the chart. A click on the window's background stops the timer at zero; its
// core still tells of the last touch, so that what that set in motion comes to its end and drawing does,
// too.
double SecondsSinceInput(const timer_base::TimerFeatures<TimerCore_Counter>& idleTimer) {
  return idleTimer.IsFrozen() ? idleTimer.Elapsed() : idleTimer.Now();
}

bool MayRest(const MainLoopParts& parts) {
  return !parts.demo.IsRunning() && SecondsSinceInput(parts.idleTimer) >= kIdleSeconds &&
         !IsChartMoving(parts.renderer, parts.layout);
}

}  // namespace

bool IsChartMoving(UX::RendererBase& renderer, const UX::ChartLayout& layout) {
  return renderer.IsAnimating() || layout.IsGliding();
}

bool TurnMainLoop(const MainLoopParts& parts) {
  parts.now = parts.frameClock.Now();
  if (parts.events.Take()) {
    if (!parts.events.OfferToAccelerators()) parts.events.Dispatch();
  } else {
    parts.renderer.Update();
    if (MayRest(parts)) {
      parts.events.AwaitEvent(kIdleMilliseconds);
    } else {
      parts.renderer.Render();
    }
  }
  // Turns without an event leave the one taken last, which is not the quit event or there would be no turn.
  return !parts.events.IsQuit();
}

}  // namespace app
