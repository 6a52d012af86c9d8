#pragma once

// How far the clocks of a place are from UTC, by a rule such as "CET-1CEST,M3.5.0,M10.5.0/3": the form that
// POSIX gives the environment variable TZ, and in which each zone of the time zone database tells its present
// rule.

#include <optional>
#include <string_view>

#include "program/generate/calendar.h"

namespace TCBase::Program::Generate {

/// Farthest that clocks may be from UTC, in minutes; more than any that are.
inline constexpr int kMostUtcOffset = 15 * 60;

/// Minutes that clocks are before UTC at noon of the day, negative for those behind it: 120 for a summer's
/// day in Berlin. The rule counts for all years, also those before it was made. Nothing for a text that is no
/// rule.
std::optional<int> UtcOffsetAtNoon(std::string_view rule, const Date& date);

}  // namespace TCBase::Program::Generate
