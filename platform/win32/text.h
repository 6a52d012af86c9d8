#pragma once

// Wide text of the core and of Windows: the same code units in two types.

#include <string>
#include <string_view>

namespace win32 {

inline std::wstring WideText(std::u16string_view text) {
  return {text.begin(), text.end()};
}

/// Plain ASCII, such as class names.
inline std::wstring WideText(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

}  // namespace win32
