// common/platform.h, the clock, for a program that draws pictures: time passes when somebody sleeps, at once,
// and only then. So nothing is caught in motion, and the same picture has the same bytes.

#include "common/platform.h"

namespace platform {

namespace {

constexpr std::int64_t kTicksPerSecond = 1'000'000;
constexpr std::int64_t kTicksPerMillisecond = kTicksPerSecond / 1000;

constinit std::int64_t ticks = 0;  // one thread draws

}  // namespace

std::int64_t ClockFrequency() {
  return kTicksPerSecond;
}

std::int64_t ClockTicks() {
  return ticks;
}

void SleepMilliseconds(int milliseconds) {
  if (milliseconds > 0) ticks += milliseconds * kTicksPerMillisecond;
}

DateTime LocalTime() {
  return {2000, 1, 1, 0, 0, 0, 0};
}

}  // namespace platform
