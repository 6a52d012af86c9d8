#pragma once

// The system's clipboard, as plain text.

#include <string>
#include <string_view>

#include "platform/win32/windows_headers.h"

namespace win32 {

/// Nothing happens while another program holds the clipboard. `owner` is a window of this program.
void PutOnClipboard(HWND owner, std::u16string_view text);
/// Empty if it holds no text, or while another program holds it.
std::u16string TextOnClipboard(HWND owner);

}  // namespace win32
