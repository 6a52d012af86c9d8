#include "program/time_of_day.h"

#include <algorithm>

#include "OvkLib/src/ovk_text.h"

namespace TCBase::Program {

namespace {

void AppendTwoDigits(std::string& text, std::int32_t number) {
  const std::string digits = ToDecimal(number);
  if (digits.size() < 2) text += '0';
  text += digits;
}

}  // namespace

// The texts are written digit by digit and not through a format, since the chart shows them in every frame:
// so they fit into the string itself, and take no memory.

std::string TimeText(const TimeOfDay& time) {
  std::string text;
  AppendTwoDigits(text, time.hour);
  text += ':';
  AppendTwoDigits(text, time.minute);
  return text;
}

std::string TimeTextWithSeconds(std::int32_t second) {
  const std::int32_t shown = std::clamp(second, 0, kSecondsPerDay - 1);
  std::string text = TimeText(TimeOfDayAt(shown));
  text += ':';
  AppendTwoDigits(text, shown % kSecondsPerMinute);
  return text;
}

}  // namespace TCBase::Program
