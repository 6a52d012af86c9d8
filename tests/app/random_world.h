#pragma once

// What goes on around a random user of the headless shell: controllers and networks that come, go and
// misbehave, and what no menu or key of his gives.

#include <vector>

#include "tests/support/headless_user.h"
#include "tests/support/random_user.h"

/// Nobody is there, nothing is wrong. No program may run.
void ResetWorld();

/// The user outlives the deeds.
std::vector<DeedRow> WorldDeeds(headless::HeadlessUser& user);

/// A step of the chart or something else there that one would aim at.
std::optional<std::pair<int, int>> PointOfInterest(headless::HeadlessUser& user, Dice& dice);
