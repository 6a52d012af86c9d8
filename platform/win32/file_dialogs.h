#pragma once

// The system's dialogs that ask for files.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

std::vector<std::filesystem::path> AskOpenFiles(HWND owner, const app::FileFilter& filter, bool multiple);
bool AskSaveFile(HWND owner, const app::FileFilter& filter, std::filesystem::path& path);

/// The filter and the one for all files, as the dialogs want it: each text with its terminator, and one more
/// at the end.
std::wstring FilterText(const app::FileFilter& filter);

/// The files in a dialog's buffer: one path, or a folder and the names in it, each with its terminator, up to
/// an empty one or the end of the buffer.
std::vector<std::filesystem::path> FilesInBuffer(std::wstring_view buffer);

}  // namespace win32
