#pragma once

#include <string>
#include <string_view>

namespace desktop {

/// Puts a text on the system's clipboard, for the program to paste. UTF-8; "\n" is a new line. False if the
/// clipboard is not to be had.
bool PutOnClipboard(std::string_view text);
/// Empty if there is none.
std::string TextOnClipboard();

}  // namespace desktop
