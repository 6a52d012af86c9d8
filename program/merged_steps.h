#pragma once

// What the merged step list (CollectModeSteps) counts; for those who keep such a count themselves.

#include <cstddef>

#include "program/program.h"

namespace TCBase::Program {

/// Whether a step stands on a minute of the day. Hour and minute must each be in range: 00:75 is on none,
/// even though 75 minutes after midnight exist.
constexpr bool IsOnTheDay(const Step& step) {
  return step.hour >= 0 && step.hour < kHoursPerDay && step.minute >= 0 && step.minute < kMinutesPerHour;
}

/// The minute of such a step, 0 to 1439.
constexpr std::size_t MinuteOnTheDay(const Step& step) {
  return static_cast<std::size_t>(MinuteOfDay(step));
}

}  // namespace TCBase::Program
