#pragma once

#include "platform/win32/windows_headers.h"

namespace win32 {

/// The class of the main window.
void RegisterMainClass(HINSTANCE instance, const wchar_t* name);
/// The class of the chart's window, named as in app::ControlTable().
void RegisterChartClass(HINSTANCE instance);

}  // namespace win32
