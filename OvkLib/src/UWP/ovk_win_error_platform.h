#pragma once

// What the error types need of the platform; one filling per platform beside this header.

#include <cstdint>

#include "OvkLib/src/ovk_string.h"

namespace ovk::win {

/// The error of the last failed platform call of this thread, as a Win32 code. On a platform of other numbers
/// those that correspond to an xsystem class are translated, and all others carry the bit that Win32 keeps
/// for applications, so that they never look like a Win32 code.
std::uint32_t last_error();

/// Appends the platform's text for a code of last_error(), without line ends behind it; false if there is
/// none.
bool append_error_text(std::uint32_t code, wstring& out);

}  // namespace ovk::win
