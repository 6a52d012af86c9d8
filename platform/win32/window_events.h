#pragma once

// Window procedures as tables: one small handler for each message that a window cares about.

#include <span>

#include "platform/win32/windows_headers.h"

namespace win32 {

struct Event {
  HWND window;
  UINT message;
  WPARAM first;
  LPARAM second;

  LRESULT Default() const { return DefWindowProcW(window, message, first, second); }
  /// The point of a mouse event: signed 16-bit numbers, negative left of and above the window.
  POINT Point() const { return {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))}; }
};

template <class Window>
struct Handler {
  UINT message;
  LRESULT (Window::*handle)(const Event&);
};

/// The procedure of the windows that `Window` stands behind: the last parameter of their CreateWindowExW is a
/// pointer to the object, which learns the handle by `Attach` before any other event, gives its table by
/// `Handlers()` and outlives the window.
template <class Window>
LRESULT CALLBACK WindowProcedure(HWND handle, UINT message, WPARAM first, LPARAM second) {
  const Event event{handle, message, first, second};
  if (message == WM_NCCREATE) {
    auto* const created =
        static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(second)->lpCreateParams);
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    created->Attach(handle);
  }
  // The very first messages come before that.
  auto* const window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (window == nullptr) return event.Default();
  for (const Handler<Window>& row : Window::Handlers()) {
    if (row.message == message) return (window->*row.handle)(event);
  }
  return event.Default();
}

}  // namespace win32
