#pragma once

// Times between the program and Windows.

#include "common/date_time.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// Without the day of the week, which Windows does not read.
inline SYSTEMTIME SystemTimeOf(const DateTime& time) {
  SYSTEMTIME result{};
  result.wYear = static_cast<WORD>(time.year);
  result.wMonth = static_cast<WORD>(time.month);
  result.wDay = static_cast<WORD>(time.day);
  result.wHour = static_cast<WORD>(time.hour);
  result.wMinute = static_cast<WORD>(time.minute);
  result.wSecond = static_cast<WORD>(time.second);
  result.wMilliseconds = static_cast<WORD>(time.millisecond);
  return result;
}

inline DateTime DateTimeOf(const SYSTEMTIME& time) {
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds};
}

}  // namespace win32
