#pragma once

// The time of day: how a second of the day falls into an hour and a minute, how long a day is, and how a time
// is written. Nobody else takes a second apart. Nothing here fails but for memory.

#include <concepts>
#include <cstdint>
#include <string>

namespace TCBase::Program {

inline constexpr std::int32_t kSecondsPerMinute = 60;
inline constexpr std::int32_t kMinutesPerHour = 60;
inline constexpr std::int32_t kHoursPerDay = 24;
inline constexpr std::int32_t kSecondsPerHour = kMinutesPerHour * kSecondsPerMinute;
inline constexpr std::int32_t kMinutesPerDay = kHoursPerDay * kMinutesPerHour;
inline constexpr std::int32_t kSecondsPerDay = kHoursPerDay * kSecondsPerHour;

/// The first and the last minute that a step can stand on, 00:00 and 23:59, as seconds.
inline constexpr std::int32_t kDayStart = 0;
inline constexpr std::int32_t kDayEnd = kSecondsPerDay - kSecondsPerMinute;

struct TimeOfDay {
  std::int32_t hour = 0;
  std::int32_t minute = 0;

  friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

/// What a clock shows so many minutes after midnight; after 23:59 it begins anew. Hour and minute of a
/// negative number are negative or 0, since divisions truncate toward zero.
constexpr TimeOfDay TimeOfDayAtMinute(std::signed_integral auto minute) {
  return {static_cast<std::int32_t>(minute / kMinutesPerHour % kHoursPerDay),
          static_cast<std::int32_t>(minute % kMinutesPerHour)};
}
/// The same of a second.
constexpr TimeOfDay TimeOfDayAt(std::signed_integral auto second) {
  return TimeOfDayAtMinute(second / kSecondsPerMinute);
}

/// The second of a time that is on the day.
constexpr std::int32_t SecondOnTheDay(const TimeOfDay& time) {
  return time.hour * kSecondsPerHour + time.minute * kSecondsPerMinute;
}

/// The minute from midnight on; negative or past the end of the day when the time is off the day. 64 bits
/// hold it for any hour.
constexpr std::int64_t MinuteOfDay(const TimeOfDay& time) {
  return std::int64_t{time.hour} * kMinutesPerHour + time.minute;
}

/// The second of the ring day that any second stands for: negative ones are 0, one day is taken off as often
/// as it goes.
constexpr std::int64_t RingSecond(std::int64_t second) {
  return second < 0 ? 0 : second % kSecondsPerDay;
}

/// The second without what is over the whole minute.
constexpr std::int32_t WholeMinute(std::int32_t second) {
  return second / kSecondsPerMinute * kSecondsPerMinute;
}

/// "08:05"
std::string TimeText(const TimeOfDay& time);
/// "08:05:00"; a second off the day counts as the first or the last of the day.
std::string TimeTextWithSeconds(std::int32_t second);

}  // namespace TCBase::Program
