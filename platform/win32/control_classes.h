#pragma once

// The one table from the words of dialogs/control.h to window classes and styles.

#include "dialogs/control.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

const wchar_t* ClassOf(dialogs::ControlKind kind);

/// The style of a child window for the control, in whichever window: a dialog adds what its keys need.
DWORD StyleOf(const dialogs::ControlTemplate& control);

}  // namespace win32
