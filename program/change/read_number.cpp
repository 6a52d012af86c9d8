#include "program/change/read_number.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace TCBase::Program {

namespace {

template <class Number>
std::optional<Number> ReadAll(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

std::optional<std::int32_t> ReadClock(std::string_view text, std::int32_t mostHours) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto hours = ReadWhole(text.substr(0, colon), 0, mostHours);
  const std::string_view minuteText = text.substr(colon + 1);
  const auto minutes = ReadWhole(minuteText, 0, kMinutesPerHour - 1);
  if (!hours || !minutes || minuteText.size() != 2) return std::nullopt;
  return *hours * kMinutesPerHour + *minutes;
}

}  // namespace

std::optional<float> ReadNumber(std::string_view text, float least, float most) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const auto number = ReadAll<float>(text);
  // What is no number is within nothing.
  return number && *number >= least && *number <= most ? number : std::nullopt;
}

std::optional<std::int32_t> ReadWhole(std::string_view text, std::int32_t least, std::int32_t most) {
  const auto number = ReadAll<std::int32_t>(text);
  return number && *number >= least && *number <= most ? number : std::nullopt;
}

std::optional<std::int32_t> ReadShift(std::string_view text) {
  const bool isBack = text.starts_with('-');
  if (isBack || text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with('-')) return std::nullopt;
  auto minutes = ReadClock(text, kHoursPerDay);
  if (!minutes) minutes = ReadWhole(text, 0, kMostShift);
  if (!minutes || *minutes > kMostShift) return std::nullopt;
  return isBack ? -*minutes : *minutes;
}

std::optional<std::int32_t> ReadTime(std::string_view text) {
  return text.starts_with('-') ? std::nullopt : ReadClock(text, kHoursPerDay - 1);
}

std::optional<ChannelSet> ReadChannels(std::string_view text) {
  ChannelSet channels;
  while (!text.empty()) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const auto channel = ReadWhole(text.substr(0, comma), 1, kChannelCount);
    if (!channel || comma + 1 == text.size()) return std::nullopt;
    channels.set(static_cast<std::size_t>(*channel - 1));
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
  return channels.any() ? std::optional(channels) : std::nullopt;
}

}  // namespace TCBase::Program
