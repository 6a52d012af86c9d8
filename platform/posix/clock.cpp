// common/platform.h, the clock, on POSIX.

#include <time.h>

#include "common/platform.h"

namespace platform {

namespace {
constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr int kMillisecondsPerSecond = 1000;
constexpr long kNanosecondsPerMillisecond = 1'000'000;
}  // namespace

std::int64_t ClockFrequency() {
  return kNanosecondsPerSecond;
}

std::int64_t ClockTicks() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::int64_t>(now.tv_sec) * kNanosecondsPerSecond + now.tv_nsec;
}

void SleepMilliseconds(int milliseconds) {
  if (milliseconds <= 0) return;
  timespec left{milliseconds / kMillisecondsPerSecond,
                (milliseconds % kMillisecondsPerSecond) * kNanosecondsPerMillisecond};
  // A signal ends the sleep early and leaves the rest in `left`: sleep on.
  while (nanosleep(&left, &left) != 0) {
  }
}

DateTime LocalTime() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  tm local{};
  localtime_r(&now.tv_sec, &local);
  return {local.tm_year + 1900,
          local.tm_mon + 1,
          local.tm_mday,
          local.tm_hour,
          local.tm_min,
          local.tm_sec,
          static_cast<int>(now.tv_nsec / kNanosecondsPerMillisecond)};
}

}  // namespace platform
