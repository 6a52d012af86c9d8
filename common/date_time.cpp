#include "common/date_time.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

std::string ToMinuteText(const DateTime& time) {
  constexpr std::size_t kLongest = 64;
  std::string text(kLongest, '\0');
  const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", time.year,
                                   time.month, time.day, time.hour, time.minute);
  text.resize(static_cast<std::size_t>(std::max(length, 0)));
  return text;
}
