#pragma once

// A slow start: a mode's light begins weak, and grows evenly from day to day until it is whole.

#include <string>

#include "program/generate/calendar.h"
#include "program/generate/fit.h"

namespace TCBase::Program::Generate {

/// The most days that an acclimation may take.
inline constexpr int kMostAcclimationDays = 366;

/// From `percent` of the mode's light on day 1 to all of it on the last day.
struct Acclimation {
  float percent = 40.0F;
  int days = 28;  // 1 to kMostAcclimationDays; on a single day the light is whole
};

/// How much of the light there is on a day, in percent: before day 1 as on day 1, behind the last day all.
float PercentOfDay(const Acclimation& acclimation, int day);

/// Which day of an acclimation that begins on `first` the date is: 1 on that day itself; less before it.
int DayOfAcclimation(const Date& first, const Date& date);

/// "day-003.xml", what the program of a day is called.
std::string DayFileName(int day);

/// The mode as it is on that day, its name as it was: all steps where they are, in whole percents.
Generated MakeAcclimationDay(const Mode& full, const Acclimation& acclimation, int day,
                             int mostRows = kMaxModeSteps);

}  // namespace TCBase::Program::Generate
