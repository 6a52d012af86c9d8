#include "doctor/moments.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace doctor {

namespace {

namespace chrono = std::chrono;

chrono::year_month_day DayOf(const DateTime& time) {
  return chrono::year(time.year) / chrono::month(static_cast<unsigned>(time.month)) /
         chrono::day(static_cast<unsigned>(time.day));
}

chrono::sys_seconds SecondOf(const DateTime& time) {
  return chrono::sys_days(DayOf(time)) + chrono::hours(time.hour) + chrono::minutes(time.minute) +
         chrono::seconds(time.second);
}

}  // namespace

DateTime Earlier(const DateTime& time, std::int64_t seconds) {
  const chrono::sys_seconds moment = SecondOf(time) - chrono::seconds(seconds);
  const auto day = chrono::floor<chrono::days>(moment);
  const chrono::year_month_day date(day);
  const chrono::hh_mm_ss clock(moment - day);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          0};
}

std::int64_t DaysBetween(const DateTime& from, const DateTime& to) {
  return (chrono::sys_days(DayOf(to)) - chrono::sys_days(DayOf(from))).count();
}

bool IsMoment(const DateTime& time) {
  const bool isPositive = time.year > 0 && time.month > 0 && time.day > 0;
  const bool isOnClock = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                         time.second >= 0 && time.second < 60;
  return isPositive && time.year < 10000 && DayOf(time).ok() && isOnClock;
}

std::string OffsetText(int minutes) {
  char text[40];
  const int size = std::abs(minutes);
  std::snprintf(text, sizeof text, "UTC%c%02d:%02d", minutes < 0 ? '-' : '+', size / 60, size % 60);
  return text;
}

}  // namespace doctor
