#pragma once

#include <string_view>

#include "dialogs/control.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// A message box over `owner`. `buttons` and the answer are MessageBoxW's.
int ShowMessage(HWND owner, std::u16string_view title, std::u16string_view text, dialogs::Icon icon,
                UINT buttons);

}  // namespace win32
