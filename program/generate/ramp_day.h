#pragma once

// A plain day of light: up at sunrise, down before sunset, in between full, with a break at midday if one
// likes.

#include <optional>

#include "program/generate/calendar.h"
#include "program/generate/fit.h"
#include "program/generate/moonlight.h"

namespace TCBase::Program::Generate {

/// A stretch of weaker light in the middle of the day, as a part of each channel's level, in percent. Its
/// ramps are as long as those of the day, and within it.
struct MiddayBreak {
  Hours hours = {13 * 60, 15 * 60};
  float percent = 40.0F;
};

/// What a ramp day is made from. A day may go over midnight.
struct RampDay {
  Hours day = {10 * 60, 21 * 60};  // the first channel's first light, and its last
  int ramp = 60;  // minutes up, and minutes down; in a day that is too short for both half of it
  Levels levels = {100, 100, 100, 100, 100};
  std::optional<MiddayBreak> middayBreak;  // as far as it is within full light
  // Minutes by which each channel comes later than the one before it, and goes earlier; negative, than the
  // one behind it. A channel for which no time is left stays dark.
  int stagger = 0;
  // In the dark between sunset and sunrise, in the night that follows `date`.
  std::optional<Moonlight> moonlight;
  Date date = {};
  int utcOffset = 0;
};

/// A mode without a name. Its steps are those that the day is told by, so its error is that of rounding.
Generated MakeRampDay(const RampDay& day, int mostRows = kMaxModeSteps);

}  // namespace TCBase::Program::Generate
