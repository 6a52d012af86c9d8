#include "tests/desktop/clipboard.h"

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "platform/win32/windows_headers.h"
#include "tests/support/patience.h"

namespace desktop {

namespace {

struct Destroy {
  void operator()(HWND window) const { DestroyWindow(window); }
};
using OwnWindow = std::unique_ptr<std::remove_pointer_t<HWND>, Destroy>;

// Nothing can be put on the clipboard without a window.
const OwnWindow& ClipboardOwner() {
  static const OwnWindow window(
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  return window;
}

std::u16string WithCarriageReturns(std::u16string_view text) {
  std::u16string result;
  for (const char16_t unit : text) {
    if (unit == u'\n') result += u'\r';
    result += unit;
  }
  return result;
}

HGLOBAL CopyToGlobalMemory(const std::u16string& text) {
  const std::size_t size = (text.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) return nullptr;
  std::memcpy(GlobalLock(memory), text.c_str(), size);
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

bool PutOnClipboard(std::string_view text) {
  // Others look at it when it has changed.
  if (!WaitUntil([] { return OpenClipboard(ClipboardOwner().get()) != 0; })) return false;
  EmptyClipboard();
  const HGLOBAL memory = CopyToGlobalMemory(WithCarriageReturns(WideFromUtf8(text)));
  const bool put = memory != nullptr && SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
  if (memory != nullptr && !put) GlobalFree(memory);  // else it is the clipboard's
  CloseClipboard();
  return put;
}

std::string TextOnClipboard() {
  if (!WaitUntil([] { return OpenClipboard(ClipboardOwner().get()) != 0; })) return {};
  std::string text;
  if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
    text = Utf8FromWide(static_cast<const char16_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return text;
}

}  // namespace desktop
