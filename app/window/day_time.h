#pragma once

#include <cstdint>
#include <string>

namespace app {

/// "08:05:00"; seconds off the day count as its first or last.
std::string DayTimeText(std::int32_t second);

/// The second without what is over the full minute.
constexpr std::int32_t FullMinute(std::int32_t second) {
  return second / 60 * 60;
}

}  // namespace app
