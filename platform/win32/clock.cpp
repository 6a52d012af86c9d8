// common/platform.h, the clock, on Windows.

#include "common/platform.h"
#include "platform/win32/system_time.h"
#include "platform/win32/windows_headers.h"

namespace platform {

std::int64_t ClockFrequency() {
  LARGE_INTEGER frequency{};
  QueryPerformanceFrequency(&frequency);
  return frequency.QuadPart;
}

std::int64_t ClockTicks() {
  LARGE_INTEGER ticks{};
  QueryPerformanceCounter(&ticks);
  return ticks.QuadPart;
}

void SleepMilliseconds(int milliseconds) {
  if (milliseconds > 0) Sleep(static_cast<DWORD>(milliseconds));
}

DateTime LocalTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return win32::DateTimeOf(now);
}

}  // namespace platform
