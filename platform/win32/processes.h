#pragma once

// Processes by their numbers.

#include "doctor/computer_facts.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// The process with its program, as far as this user is told.
platform::Holder HolderOf(DWORD process);

}  // namespace win32
