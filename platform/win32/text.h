#pragma once

// Wide text of the core and of Windows: the same code units in two types.

#include <string>
#include <string_view>

namespace win32 {

inline std::wstring WideText(std::u16string_view text) {
  return {text.begin(), text.end()};
}

}  // namespace win32
