#include "program/generate/calendar.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace TCBase::Program::Generate {

namespace {

using std::chrono::sys_days;

// The Julian day of 1970-01-01, 00:00 UTC, from which the C++ calendar counts.
constexpr double kJulianDayOfEpoch = 2440587.5;

constexpr Date kFirstDate{std::chrono::year{kFirstYear}, std::chrono::January, std::chrono::day{1}};
constexpr Date kLastDate{std::chrono::year{kLastYear}, std::chrono::December, std::chrono::day{31}};

int DayNumber(const Date& date) {
  return static_cast<int>(sys_days(NearestInReach(date)).time_since_epoch().count());
}

Date DateOfNumber(int number) {
  return sys_days(std::chrono::days(number));
}

std::optional<int> ParseNumber(std::string_view digits) {
  int number = 0;
  if (digits.empty() || digits[0] == '-') return std::nullopt;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return result.ec == std::errc() && result.ptr == digits.data() + digits.size() ? std::optional(number)
                                                                                 : std::nullopt;
}

Date MakeDate(int year, int month, int day) {
  return {std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
          std::chrono::day{static_cast<unsigned>(day)}};
}

}  // namespace

bool IsInReach(const Date& date) {
  return date.ok() && date >= kFirstDate && date <= kLastDate;
}

Date NearestInReach(const Date& date) {
  if (IsInReach(date)) return date;
  const auto month = std::clamp(date.month(), std::chrono::January, std::chrono::December);
  const std::chrono::year_month_day_last last(date.year(), std::chrono::month_day_last(month));
  const Date day(date.year(), month, std::clamp(date.day(), std::chrono::day{1}, last.day()));
  return std::clamp(day, kFirstDate, kLastDate);
}

std::optional<Date> ParseDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = ParseNumber(text.substr(0, 4));
  const auto month = ParseNumber(text.substr(5, 2));
  const auto day = ParseNumber(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  const Date date = MakeDate(*year, *month, *day);
  return IsInReach(date) ? std::optional(date) : std::nullopt;
}

std::string DateText(const Date& date) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

Date DateOf(const DateTime& moment) {
  return NearestInReach(MakeDate(moment.year, std::max(moment.month, 0), std::max(moment.day, 0)));
}

Date PlusDays(const Date& date, int days) {
  const int number =
      std::clamp(days, -DaysBetween(kFirstDate, kLastDate), DaysBetween(kFirstDate, kLastDate));
  return NearestInReach(DateOfNumber(DayNumber(date) + number));
}

int DaysBetween(const Date& from, const Date& to) {
  return DayNumber(to) - DayNumber(from);
}

int DayOfYear(const Date& date) {
  const Date day = NearestInReach(date);
  return DaysBetween(Date{day.year(), std::chrono::January, std::chrono::day{1}}, day) + 1;
}

double JulianDayOf(const Date& date) {
  return kJulianDayOfEpoch + DayNumber(date);
}

DateTime DateTimeOf(double julianDay) {
  constexpr double kSecondsADay = 86400;
  const double first = JulianDayOf(kFirstDate);
  // Not a number becomes the first day, too.
  const double days = julianDay > first ? std::min(julianDay, JulianDayOf(kLastDate)) - first : 0.0;
  const auto seconds = static_cast<std::int64_t>(std::llround(days * kSecondsADay));
  const Date date = PlusDays(kFirstDate, static_cast<int>(seconds / 86400));
  const int second = static_cast<int>(seconds % 86400);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          second / 3600,
          second / 60 % 60,
          second % 60};
}

}  // namespace TCBase::Program::Generate
