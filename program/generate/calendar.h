#pragma once

// Days of the calendar, as those who make days of light count them. Nothing here knows of clocks or zones.

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "common/date_time.h"

namespace TCBase::Program::Generate {

/// A day of the Gregorian calendar. Whatever takes one takes any; of what is not InReach the answer is that
/// of the nearest day that is.
using Date = std::chrono::year_month_day;

/// The years for which the equations of sun and moon are good to what is promised of them.
inline constexpr int kFirstYear = 1950;
inline constexpr int kLastYear = 2099;

/// Whether the calendar has the day, in one of these years.
bool IsInReach(const Date& date);
/// The day itself, or the nearest one that is in reach: of what is no day of its month the month's last.
Date NearestInReach(const Date& date);

/// "2026-11-23", to the letter; nothing for any other text, nor for a day that is not in reach.
std::optional<Date> ParseDate(std::string_view text);
std::string DateText(const Date& date);
/// The day that a clock shows.
Date DateOf(const DateTime& moment);

/// So many days later, earlier if negative.
Date PlusDays(const Date& date, int days);
/// From one day to another; negative if that is earlier.
int DaysBetween(const Date& from, const Date& to);
/// 1 for the first of January.
int DayOfYear(const Date& date);

/// The Julian day at 00:00 of the day in UTC.
double JulianDayOf(const Date& date);

/// What a Julian day is in UTC, to the second.
DateTime DateTimeOf(double julianDay);

}  // namespace TCBase::Program::Generate
