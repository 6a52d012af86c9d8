#include "program/generate/typed.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "program/generate/clock_rule.h"

namespace TCBase::Program::Generate {

namespace {

// A number of one or two digits.
std::optional<int> ParseTwoDigits(std::string_view text) {
  int number = 0;
  if (text.empty() || text.size() > 2 || text.find_first_not_of("0123456789") != text.npos)
    return std::nullopt;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// "3:30" or "3", in minutes.
std::optional<int> ParseSpan(std::string_view text) {
  const std::size_t colon = text.find(':');
  const auto hours = ParseTwoDigits(text.substr(0, colon));
  const auto minutes = colon == text.npos ? std::optional(0) : ParseTwoDigits(text.substr(colon + 1));
  if (!hours || !minutes || *minutes >= kMinutesPerHour) return std::nullopt;
  return *hours * kMinutesPerHour + *minutes;
}

}  // namespace

std::optional<int> ParseMinute(std::string_view text) {
  const auto minute = text.find(':') == text.npos ? std::nullopt : ParseSpan(text);
  return minute && *minute < kMinutesPerDay ? minute : std::nullopt;
}

std::string MinuteText(int minute) {
  return TimeText(TimeOfDayAtMinute(minute));
}

std::string NearestMinuteText(double minute) {
  return MinuteText(std::min(static_cast<int>(minute + 0.5), kMinutesPerDay - 1));
}

std::optional<Hours> ParseHours(std::string_view text) {
  const std::size_t hyphen = text.find('-');
  if (hyphen == text.npos) return std::nullopt;
  const auto begin = ParseMinute(text.substr(0, hyphen));
  const auto end = ParseMinute(text.substr(hyphen + 1));
  return begin && end ? std::optional(Hours{*begin, *end}) : std::nullopt;
}

std::optional<float> ParsePercent(std::string_view text) {
  float percent = 0.0F;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, percent);
  const bool good = result.ec == std::errc() && result.ptr == end && percent >= 0.0F &&
                    percent <= static_cast<float>(kMostPercent);
  return good ? std::optional(percent) : std::nullopt;
}

std::optional<Levels> ParseLevels(std::string_view text) {
  Levels levels{};
  if (const auto all = ParsePercent(text)) {
    levels.fill(*all);
    return levels;
  }
  for (std::size_t channel = 0; channel < levels.size(); ++channel) {
    const bool isLast = channel + 1 == levels.size();
    const std::size_t comma = isLast ? text.size() : text.find(',');
    const auto level = comma == text.npos ? std::nullopt : ParsePercent(text.substr(0, comma));
    if (!level) return std::nullopt;
    levels[channel] = *level;
    text.remove_prefix(isLast ? comma : comma + 1);
  }
  return levels;
}

std::optional<Moonlight> ParseMoonlight(std::string_view text) {
  if (text.size() < 3 || text[0] < '1' || text[0] > '0' + kChannelCount || text[1] != '=')
    return std::nullopt;
  const auto level = ParsePercent(text.substr(2));
  return level ? std::optional(Moonlight{text[0] - '1', *level}) : std::nullopt;
}

std::optional<int> ParseUtcOffset(std::string_view text) {
  const bool west = text.starts_with('-');
  if (west || text.starts_with('+')) text.remove_prefix(1);
  const auto minutes = ParseSpan(text);
  if (!minutes || *minutes > kMostUtcOffset) return std::nullopt;
  return west ? -*minutes : *minutes;
}

std::string UtcOffsetText(int minutes) {
  std::string text(1, minutes < 0 ? '-' : '+');
  text += MinuteText(std::abs(minutes));
  return text;
}

}  // namespace TCBase::Program::Generate
