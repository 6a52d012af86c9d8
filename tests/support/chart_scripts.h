#pragma once

// The scripts of scripts.h that are about the chart.

#include "tests/support/scripts.h"

namespace scripts {

/// A day's curve from mouse clicks, a drag, zoomed in, nudged with the arrows, saved, and all undone.
/// As docs/guide/first-program.md tells them.
void TheFirstFiveMinutes(User& user, const Folders& folders);
void DrawADay(User& user, const Folders& folders);
/// Steps deleted with the key and from the chart's menu, and what is saved of it.
void DeleteSteps(User& user, const Folders& folders);
/// Steps chosen with Ctrl, in a frame and with Ctrl+A, and moved, nudged and deleted together.
void MoveSeveralSteps(User& user, const Folders& folders);
/// The mouse made a careful one: nothing moves or appears at a touch.
void WorkWithACarefulMouse(User& user, const Folders& folders);

}  // namespace scripts
