#pragma once

// Text conversions that the platform does: between UTF-8 and the wide text of the program, and from the code
// pages of old. The results are the same on every platform, malformed input included.

#include <cstdint>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_string.h"

/// UTF-8 to UTF-16. Nothing is refused: bytes that are not UTF-8 become U+FFFD. Terminators inside the text
/// survive. A text too long for the platform (2^31 - 1 bytes) gives an empty one.
std::u16string WideFromUtf8(std::string_view text);

/// UTF-16 to UTF-8; a lone surrogate becomes U+FFFD.
std::string Utf8FromWide(std::u16string_view text);

/// The platform's own wide text, which is UTF-16 on Windows and UTF-32 elsewhere, to UTF-8. What is no
/// character becomes U+FFFD.
std::string Utf8FromPlatformWide(std::wstring_view text);

/// The terminated text of a Windows code page (0 for the system's own, 65001 for UTF-8). A code page that the
/// platform does not know raises the system error of ovk_win_error.h.
ovk::wstring WideFromAnsi(const char* text, std::uint32_t codePage);
