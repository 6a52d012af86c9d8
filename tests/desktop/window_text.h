#pragma once

#include <array>
#include <string>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "platform/win32/windows_headers.h"

namespace desktop {

inline std::string Utf8(std::wstring_view text) {
  return Utf8FromWide(std::u16string(text.begin(), text.end()));
}

/// What any window of any process says; GetWindowTextW does not ask controls of another one.
inline std::string WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return Utf8(text.c_str());
}

/// The name of its class.
inline std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 100> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

}  // namespace desktop
