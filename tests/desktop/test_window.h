#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/windows_headers.h"

namespace desktop {

/// A window without a frame, over all others, for what draws into windows. Its client area is all of it.
class TestWindow {
 public:
  TestWindow(int width, int height)
      : handle_(CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, kX, kY, width, height,
                                nullptr, nullptr, nullptr, nullptr)) {
    WorkOffEvents();
  }

  HWND handle() const { return handle_.get(); }
  // On the screen.
  int x() const { return kX; }
  int y() const { return kY; }

  static void WorkOffEvents() {
    MSG event{};
    while (PeekMessageW(&event, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&event);
  }

 private:
  static constexpr int kX = 40;
  static constexpr int kY = 30;

  struct Destroy {
    void operator()(HWND window) const { DestroyWindow(window); }
  };
  std::unique_ptr<std::remove_pointer_t<HWND>, Destroy> handle_;
};

}  // namespace desktop
