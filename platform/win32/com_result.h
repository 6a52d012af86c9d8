#pragma once

#include "platform/win32/windows_headers.h"
// after windows.h
#include <comdef.h>

namespace win32 {

/// Throws if a call failed without which there is no going on.
inline void ThrowIfFailed(HRESULT result) {
  if (FAILED(result)) throw _com_error(result);
}

}  // namespace win32
