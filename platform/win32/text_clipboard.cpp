#include "platform/win32/text_clipboard.h"

#include <algorithm>
#include <cstddef>

#include "common/platform.h"

namespace win32 {

namespace {

// Others look at the clipboard whenever it changes, and let go of it at once.
constexpr int kMostTries = 50;
constexpr int kTryMilliseconds = 10;

bool Open(HWND owner) {
  for (int tries = 0; tries < kMostTries; ++tries) {
    if (OpenClipboard(owner) != 0) return true;
    platform::SleepMilliseconds(kTryMilliseconds);
  }
  return false;
}

// Open for as long as it lives, unless somebody else holds it for long.
class OpenClipboardScope {
 public:
  explicit OpenClipboardScope(HWND owner) : isOpen_(Open(owner)) {}
  ~OpenClipboardScope() {
    if (isOpen_) CloseClipboard();
  }
  OpenClipboardScope(const OpenClipboardScope&) = delete;
  OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;

  bool IsOpen() const { return isOpen_; }

 private:
  const bool isOpen_;
};

// Null without memory.
HGLOBAL InGlobalMemory(std::u16string_view text) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
  auto* const units = memory == nullptr ? nullptr : static_cast<char16_t*>(GlobalLock(memory));
  if (units == nullptr) return nullptr;
  *std::ranges::copy(text, units).out = u'\0';
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

void PutOnClipboard(HWND owner, std::u16string_view text) {
  const OpenClipboardScope clipboard(owner);
  if (!clipboard.IsOpen()) return;
  EmptyClipboard();
  const HGLOBAL memory = InGlobalMemory(text);
  // What it has taken is the clipboard's.
  if (memory != nullptr && SetClipboardData(CF_UNICODETEXT, memory) == nullptr) GlobalFree(memory);
}

std::u16string TextOnClipboard(HWND owner) {
  const OpenClipboardScope clipboard(owner);
  const HGLOBAL memory = clipboard.IsOpen() ? GetClipboardData(CF_UNICODETEXT) : nullptr;
  const auto* const units = memory == nullptr ? nullptr : static_cast<const char16_t*>(GlobalLock(memory));
  if (units == nullptr) return {};
  // Who put it there may have forgotten the end.
  const std::u16string_view all(units, GlobalSize(memory) / sizeof(char16_t));
  std::u16string text(all.substr(0, all.find(u'\0')));
  GlobalUnlock(memory);
  return text;
}

}  // namespace win32
