#pragma once

// Moments as clocks here show them, and the time between them.

#include <cstdint>
#include <string>

#include "common/date_time.h"

namespace doctor {

/// The moment that many seconds before `time`, on a clock that nobody sets.
DateTime Earlier(const DateTime& time, std::int64_t seconds);

/// Whole days from the day of `from` to that of `to`.
std::int64_t DaysBetween(const DateTime& from, const DateTime& to);

/// Whether the calendar and the clock have it.
bool IsMoment(const DateTime& time);

/// "UTC+01:00"
std::string OffsetText(int minutes);

}  // namespace doctor
