#pragma once

// A year of sun, a program for each week.

#include <string>
#include <vector>

#include "program/generate/sun_light.h"

namespace TCBase::Program::Generate {

/// Weeks are counted from the first of January, seven days each; the last one goes to the end of the year.
inline constexpr int kWeeks = 52;

/// 1 to kWeeks.
int WeekOfYear(const Date& date);
/// The fourth day of a week, which stands for all seven.
Date MiddleOfWeek(std::chrono::year year, int week);

/// "Week 7".
std::string WeekName(int week);
/// "week-07.xml", what the program of a week is called.
std::string WeekFileName(int week);

/// How far the clocks of a place are before UTC in the middle of each week, in minutes.
std::vector<int> WeeklyUtcOffsets(const Place& place, std::chrono::year year);

/// The 52 days of sun of the year of `light.date`, week 1 first, named "Week 1". `utcOffsets` has that of
/// each week.
std::vector<Generated> MakeSeason(const SunLight& light, const std::vector<int>& utcOffsets,
                                  int mostRows = kMaxModeSteps);

}  // namespace TCBase::Program::Generate
