#pragma once

#include "app/ports.h"
#include "chart/renderer_base.h"

namespace app {

/// One turn of the main loop: takes an event, or else animates, and draws or rests. Draws in every turn while
/// the user touches the chart, something moves by itself or a demo plays, and sleeps for 5 ms otherwise. The
/// only place that moves `now` on, but for a window that is being sized. False once the quit event was taken.
bool TurnMainLoop(EventSource& events, UX::RendererBase& renderer);

}  // namespace app
