#pragma once

// The one way to the Windows headers: the build sets NOMINMAX, WIN32_LEAN_AND_MEAN and UNICODE.

#if !defined(NOMINMAX) || !defined(WIN32_LEAN_AND_MEAN) || !defined(UNICODE)
#error "the build sets NOMINMAX, WIN32_LEAN_AND_MEAN and UNICODE"
#endif

#include <windows.h>
