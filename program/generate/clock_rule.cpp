#include "program/generate/clock_rule.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace TCBase::Program::Generate {

namespace {

// Reads the rule from left to right. Each Take function answers nothing, or false, where something else
// stands.
class RuleReader {
 public:
  explicit RuleReader(std::string_view text) : text_(text) {}

  bool AtEnd() const { return text_.empty(); }

  bool Take(char letter) {
    if (text_.empty() || text_[0] != letter) return false;
    text_.remove_prefix(1);
    return true;
  }

  // "CET", "<+0530>".
  bool TakeName() {
    const bool quoted = Take('<');
    const auto end = std::ranges::find_if(text_, [quoted](char letter) {
      return quoted ? letter == '>' : !std::isalpha(static_cast<unsigned char>(letter));
    });
    const auto length = static_cast<std::size_t>(end - text_.begin());
    text_.remove_prefix(length);
    return length >= 1 && (!quoted || Take('>'));
  }

  std::optional<int> TakeNumber() {
    constexpr std::size_t kMostDigits = 4;
    const std::size_t length = std::min(text_.find_first_not_of("0123456789"), text_.size());
    if (length == 0 || length > kMostDigits) return std::nullopt;
    const int number = std::atoi(std::string(text_.substr(0, length)).c_str());
    text_.remove_prefix(length);
    return number;
  }

  // "-3:30", in minutes; seconds are read and left out.
  std::optional<int> TakeTime() {
    const bool negative = Take('-');
    if (!negative) Take('+');
    const auto hours = TakeNumber();
    if (!hours) return std::nullopt;
    int minutes = *hours * 60;
    if (Take(':')) minutes += TakeNumber().value_or(0);
    if (Take(':')) TakeNumber();
    return negative ? -minutes : minutes;
  }

 private:
  std::string_view text_;
};

// "M3.5.0": the last (5) Sunday (0) of March.
std::optional<Date> TakeWeekday(RuleReader& rule, std::chrono::year year) {
  const int month = rule.TakeNumber().value_or(0);
  const int week = rule.Take('.') ? rule.TakeNumber().value_or(0) : 0;
  const int weekday = rule.Take('.') ? rule.TakeNumber().value_or(-1) : -1;
  constexpr int kLastWeek = 5;
  if (month < 1 || month > 12 || week < 1 || week > kLastWeek || weekday < 0 || weekday > 6)
    return std::nullopt;
  const auto yearMonth = year / month;
  const std::chrono::weekday day(static_cast<unsigned>(weekday));
  if (week == kLastWeek) return std::chrono::sys_days(yearMonth / day[std::chrono::last]);
  return std::chrono::sys_days(yearMonth / day[static_cast<unsigned>(week)]);
}

// The day of a change: "M3.5.0", "J60" (1 to 365, without the 29th of February) or "59" (from 0, with it).
std::optional<Date> TakeDay(RuleReader& rule, std::chrono::year year) {
  if (rule.Take('M')) return TakeWeekday(rule, year);
  const bool withoutLeapDay = rule.Take('J');
  const auto day = rule.TakeNumber();
  if (!day || *day > 366) return std::nullopt;
  constexpr int kLastOfFebruary = 59;
  const int skipped = withoutLeapDay && (!year.is_leap() || *day <= kLastOfFebruary) ? 1 : 0;
  return PlusDays(year / std::chrono::January / 1, *day - skipped);
}

// Minutes from the beginning of the year to a change, by the clocks before it.
std::optional<int> TakeChange(RuleReader& rule, std::chrono::year year) {
  constexpr int kUsualTime = 2 * 60;
  const auto day = rule.Take(',') ? TakeDay(rule, year) : std::nullopt;
  if (!day) return std::nullopt;
  const auto time = rule.Take('/') ? rule.TakeTime() : kUsualTime;
  if (!time) return std::nullopt;
  return (DayOfYear(*day) - 1) * 24 * 60 + *time;
}

// Of a rule behind its first name and offset. Changes are hours away from noon, so that it does not matter by
// which of the two clocks they are told.
std::optional<int> OffsetWithSummer(RuleReader& rule, int offset, const Date& date) {
  int summerOffset = offset + 60;
  if (!rule.TakeName()) return std::nullopt;
  if (const auto west = rule.TakeTime()) summerOffset = -*west;
  const auto begin = TakeChange(rule, date.year());
  const auto end = TakeChange(rule, date.year());
  if (!begin || !end || !rule.AtEnd()) return std::nullopt;
  const int noon = (DayOfYear(date) - 1) * 24 * 60 + 12 * 60;
  const bool isSummer =
      *begin < *end ? noon >= *begin && noon < *end : noon >= *begin || noon < *end;  // south of the equator
  return isSummer ? summerOffset : offset;
}

}  // namespace

std::optional<int> UtcOffsetAtNoon(std::string_view text, const Date& date) {
  RuleReader rule(text);
  if (!rule.TakeName()) return std::nullopt;
  const auto west = rule.TakeTime();
  if (!west) return std::nullopt;
  const auto offset =
      rule.AtEnd() ? std::optional(-*west) : OffsetWithSummer(rule, -*west, NearestInReach(date));
  return offset && std::abs(*offset) <= kMostUtcOffset ? offset : std::nullopt;
}

}  // namespace TCBase::Program::Generate
