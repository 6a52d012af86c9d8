#include "platform/win32/file_dialogs.h"

#include <algorithm>

// after windows.h
#include <cderr.h>
#include <commdlg.h>

#include "platform/win32/text.h"

namespace win32 {

namespace {

// Room for thousands of files at a time.
constexpr std::size_t kBufferLength = 262144;

OPENFILENAMEW DialogOf(HWND owner, const std::wstring& filter, std::wstring& buffer, DWORD flags) {
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  dialog.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | flags;
  return dialog;
}

// A name to start from, with room behind it.
std::wstring BufferWith(std::wstring_view name) {
  std::wstring buffer(name.substr(0, kBufferLength - 1));
  buffer.resize(kBufferLength);
  return buffer;
}

}  // namespace

std::wstring FilterText(const app::FileFilter& filter) {
  std::wstring text;
  for (const app::FileFilter& entry : {filter, app::kAllFilesFilter}) {
    for (const std::u16string_view part : {entry.name, entry.pattern}) {
      text += WideText(part);
      text += L'\0';
    }
  }
  return text;  // the string's own terminator is the one more
}

std::vector<std::filesystem::path> FilesInBuffer(std::wstring_view buffer) {
  std::vector<std::wstring> parts;
  while (!buffer.empty() && buffer.front() != L'\0') {
    const std::size_t length = std::min(buffer.find(L'\0'), buffer.size());
    parts.emplace_back(buffer.substr(0, length));
    buffer.remove_prefix(std::min(length + 1, buffer.size()));
  }
  if (parts.size() < 2) return {parts.begin(), parts.end()};
  std::vector<std::filesystem::path> files;
  for (std::size_t i = 1; i < parts.size(); ++i) files.emplace_back(parts[0] + L"\\" + parts[i]);
  return files;
}

std::vector<std::filesystem::path> AskOpenFiles(HWND owner, const app::FileFilter& filter, bool multiple) {
  const std::wstring filterText = FilterText(filter);
  std::wstring buffer = BufferWith({});
  OPENFILENAMEW dialog =
      DialogOf(owner, filterText, buffer, OFN_FILEMUSTEXIST | (multiple ? OFN_ALLOWMULTISELECT : DWORD{0}));
  if (!GetOpenFileNameW(&dialog)) return {};
  return FilesInBuffer(buffer);
}

bool AskSaveFile(HWND owner, const app::FileFilter& filter, std::filesystem::path& path) {
  const std::wstring filterText = FilterText(filter);
  const std::wstring extension = WideText(app::kDefaultExtension);
  std::wstring buffer = BufferWith(path.native());
  OPENFILENAMEW dialog = DialogOf(owner, filterText, buffer, 0);
  dialog.lpstrDefExt = extension.c_str();
  bool chosen = GetSaveFileNameW(&dialog) != 0;
  if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    // The name to start from cannot be a file's, as "day/night" cannot: the user types one.
    buffer.front() = L'\0';
    chosen = GetSaveFileNameW(&dialog) != 0;
  }
  if (chosen) path = buffer.c_str();
  return chosen;
}

}  // namespace win32
