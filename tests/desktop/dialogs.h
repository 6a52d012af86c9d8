#pragma once

// The system's message boxes and file dialogs, seen from another process.

#include <filesystem>
#include <vector>

#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

namespace desktop::dialogs {

bool IsFileDialog(HWND dialog);
bool IsMessageBox(HWND dialog);

/// Without the icon.
app::Question ReadMessageBox(HWND box);
void Answer(HWND box, app::Answer answer);

/// Types the files' names and confirms; cancels without files.
void Pick(HWND dialog, const std::vector<std::filesystem::path>& files);

}  // namespace desktop::dialogs
