#include "program/generate/season.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace TCBase::Program::Generate {

namespace {

constexpr int kDaysAWeek = 7;

}  // namespace

int WeekOfYear(const Date& date) {
  return std::min((DayOfYear(date) - 1) / kDaysAWeek + 1, kWeeks);
}

Date MiddleOfWeek(std::chrono::year year, int week) {
  constexpr int kMiddle = kDaysAWeek / 2;
  return PlusDays(year / std::chrono::January / 1, (std::clamp(week, 1, kWeeks) - 1) * kDaysAWeek + kMiddle);
}

std::string WeekName(int week) {
  return "Week " + std::to_string(week);
}

std::vector<int> WeeklyUtcOffsets(const Place& place, std::chrono::year year) {
  std::vector<int> offsets;
  for (int week = 1; week <= kWeeks; ++week) offsets.push_back(UtcOffsetOf(place, MiddleOfWeek(year, week)));
  return offsets;
}

std::string WeekFileName(int week) {
  char name[24];
  std::snprintf(name, sizeof name, "week-%02d.xml", week);
  return name;
}

std::vector<Generated> MakeSeason(const SunLight& light, const std::vector<int>& utcOffsets, int mostRows) {
  const auto year = NearestInReach(light.date).year();
  std::vector<Generated> season;
  for (int week = 1; week <= kWeeks; ++week) {
    SunLight day = light;
    day.date = MiddleOfWeek(year, week);
    const auto index = static_cast<std::size_t>(week - 1);
    day.utcOffset = index < utcOffsets.size() ? utcOffsets[index] : light.utcOffset;
    season.push_back(MakeSunMode(day, mostRows));
    season.back().mode.name = WeekName(week);
  }
  return season;
}

}  // namespace TCBase::Program::Generate
