#include "program/generate/acclimation.h"

#include <algorithm>
#include <cstdio>

namespace TCBase::Program::Generate {

float PercentOfDay(const Acclimation& acclimation, int day) {
  constexpr auto kWhole = static_cast<float>(kMostPercent);
  const int days = std::clamp(acclimation.days, 1, kMostAcclimationDays);
  if (days == 1 || day >= days) return kWhole;
  const float first = PercentInRange(acclimation.percent);
  const auto passed = static_cast<float>(std::max(day, 1) - 1);
  return first + (kWhole - first) * passed / static_cast<float>(days - 1);
}

int DayOfAcclimation(const Date& first, const Date& date) {
  return DaysBetween(first, date) + 1;
}

std::string DayFileName(int day) {
  char name[24];
  std::snprintf(name, sizeof name, "day-%03d.xml", day);
  return name;
}

Generated MakeAcclimationDay(const Mode& full, const Acclimation& acclimation, int day, int mostRows) {
  const float part = PercentOfDay(acclimation, day) / kMostPercent;
  Mode weak = full;
  for (Channel& channel : weak.channels)
    ForEachStep(channel, [part](Step& step) { step.value = PercentInRange(step.value) * part; });
  return RoundedToFit(weak, mostRows);
}

}  // namespace TCBase::Program::Generate
