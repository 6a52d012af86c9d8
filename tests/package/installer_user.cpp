// Hands and eyes of somebody in front of a window, for shell scripts. What is on a window is its title and
// the texts of all that is in it.
//
//   installer_user sees TEXT             waits until some window shows the text
//   installer_user misses TEXT           waits until none does
//   installer_user reads TEXT            prints all texts of the window that shows this one
//   installer_user presses TEXT BUTTON   presses a button there, by its number or its text, as soon as it can
//   be pressed installer_user closes TEXT           closes that window
//
// Ends with 1 if what is waited for does not come.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/desktop/window_text.h"
#include "tests/support/patience.h"

namespace {

constexpr UINT kAnswerMilliseconds = 2000;

// A window that is busy has no text yet.
std::string TextOf(HWND window) {
  std::vector<wchar_t> text(4096);
  DWORD_PTR length = 0;
  if (SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                          SMTO_ABORTIFHUNG, kAnswerMilliseconds, &length) == 0)
    return {};
  // Without the marks of keys.
  std::string plain = desktop::Utf8({text.data(), static_cast<std::size_t>(length)});
  std::erase(plain, '&');
  return plain;
}

BOOL CALLBACK Collect(HWND window, LPARAM to) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(to)->push_back(window);
  return TRUE;
}

std::vector<HWND> PartsOf(HWND window) {
  std::vector<HWND> parts{window};
  EnumChildWindows(window, Collect, reinterpret_cast<LPARAM>(&parts));
  return parts;
}

HWND PartThatShows(HWND window, const std::string& text) {
  for (const HWND part : PartsOf(window))
    if (TextOf(part).find(text) != std::string::npos) return part;
  return nullptr;
}

HWND WindowThatShows(const std::string& text) {
  std::vector<HWND> windows;
  EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
  for (const HWND window : windows)
    if (PartThatShows(window, text) != nullptr) return window;
  return nullptr;
}

HWND ButtonOf(HWND window, const std::string& button) {
  const int number = std::atoi(button.c_str());
  for (const HWND part : PartsOf(window))
    if (number != 0 ? GetDlgCtrlID(part) == number : TextOf(part) == button) return part;
  return nullptr;
}

bool Press(const std::string& text, const std::string& button) {
  return WaitUntil([&] {
    const HWND window = WindowThatShows(text);
    const HWND pressed = window != nullptr ? ButtonOf(window, button) : nullptr;
    return pressed != nullptr && IsWindowEnabled(pressed) && PostMessageW(pressed, BM_CLICK, 0, 0);
  });
}

bool Read(const std::string& text) {
  HWND window = nullptr;
  if (!WaitUntil([&] { return (window = WindowThatShows(text)) != nullptr; })) return false;
  for (const HWND part : PartsOf(window)) {
    if (const std::string line = TextOf(part); !line.empty()) std::puts(line.c_str());
  }
  return true;
}

bool Do(const std::string& what, const std::string& text, const std::string& button) {
  if (what == "sees") return WaitUntil([&] { return WindowThatShows(text) != nullptr; });
  if (what == "misses") return WaitUntil([&] { return WindowThatShows(text) == nullptr; });
  if (what == "reads") return Read(text);
  if (what == "presses") return Press(text, button);
  return what == "closes" && WaitUntil([&] {
           const HWND window = WindowThatShows(text);
           return window != nullptr && PostMessageW(window, WM_CLOSE, 0, 0);
         });
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count < 3) return 2;
  return Do(desktop::Utf8(words[1]), desktop::Utf8(words[2]), count > 3 ? desktop::Utf8(words[3]) : "") ? 0
                                                                                                        : 1;
}
