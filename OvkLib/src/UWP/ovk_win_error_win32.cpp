#include <windows.h>

#include "OvkLib/src/UWP/ovk_win_error_platform.h"

namespace ovk::win {

std::uint32_t last_error() {
  return GetLastError();
}

bool append_error_text(std::uint32_t code, wstring& out) {
  constexpr DWORD kBufferLength = 512;
  wchar_t buffer[kBufferLength];
  DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                     MAKELANGID(LANG_NEUTRAL, SUBLANG_SYS_DEFAULT), buffer, kBufferLength, nullptr);
  while (length > 0 && (buffer[length - 1] == L'\r' || buffer[length - 1] == L'\n')) --length;
  for (DWORD i = 0; i < length; ++i) out.push_back(static_cast<char16_t>(buffer[i]));
  return length > 0;
}

}  // namespace ovk::win
