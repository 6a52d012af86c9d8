// common/platform.h, the clock, on Windows.

#include "common/platform.h"
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
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace platform
