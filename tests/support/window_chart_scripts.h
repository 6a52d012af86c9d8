#pragma once

// The chart of a real window, for window_scripts.h: what it shows, and what mouse and keyboard do to it. Each
// leaves a picture.

#include <span>

#include "tests/support/window_scripts.h"

namespace scripts {

std::span<const WindowScript> OfTheChart();

}  // namespace scripts
