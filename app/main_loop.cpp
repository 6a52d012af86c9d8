#include "app/main_loop.h"

#include "app/demo_control.h"
#include "chart/bumper.h"
#include "common/platform.h"

namespace app {

namespace {

constexpr double kIdleSeconds = 1.0;
constexpr int kIdleMilliseconds = 5;

bool MayRest(UX::RendererBase& renderer) {
  return !IsDemoRunning() && idleTimer.Now() >= kIdleSeconds && !renderer.IsAnimating();
}

}  // namespace

bool TurnMainLoop(EventSource& events, UX::RendererBase& renderer) {
  now = frameClock.Now();
  if (events.Take()) {
    if (!events.OfferToAccelerators()) events.Dispatch();
  } else {
    renderer.Update();
    if (MayRest(renderer)) {
      platform::SleepMilliseconds(kIdleMilliseconds);
    } else {
      renderer.Render();
    }
  }
  // Turns without an event leave the one taken last, which is not the quit event or there would be no turn.
  return !events.IsQuit();
}

}  // namespace app
