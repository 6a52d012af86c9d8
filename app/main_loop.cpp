#include "app/main_loop.h"

#include "app/demo_control.h"
#include "chart/bumper.h"
#include "common/platform.h"

namespace app {

namespace {

constexpr double kIdleSeconds = 1.0;
constexpr int kIdleMilliseconds = 5;

/// Seconds since the user touched the chart. A click on the window's background stops the timer at zero; its
/// core still tells of the last touch, so that what that set in motion comes to its end and drawing does,
/// too.
double SecondsSinceInput() {
  return idleTimer.IsFrozen() ? idleTimer.Elapsed() : idleTimer.Now();
}

bool MayRest(UX::RendererBase& renderer, const UX::ChartLayout& layout) {
  return !IsDemoRunning() && SecondsSinceInput() >= kIdleSeconds && !IsChartMoving(renderer, layout);
}

}  // namespace

bool IsChartMoving(UX::RendererBase& renderer, const UX::ChartLayout& layout) {
  return renderer.IsAnimating() || layout.IsGliding();
}

bool TurnMainLoop(EventSource& events, UX::RendererBase& renderer, const UX::ChartLayout& layout) {
  now = frameClock.Now();
  if (events.Take()) {
    if (!events.OfferToAccelerators()) events.Dispatch();
  } else {
    renderer.Update();
    if (MayRest(renderer, layout)) {
      platform::SleepMilliseconds(kIdleMilliseconds);
    } else {
      renderer.Render();
    }
  }
  // Turns without an event leave the one taken last, which is not the quit event or there would be no turn.
  return !events.IsQuit();
}

}  // namespace app
