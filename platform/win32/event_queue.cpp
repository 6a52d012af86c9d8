#include "platform/win32/event_queue.h"

namespace win32 {

void EventQueue::UseAccelerators(HWND window, HACCEL accelerators) {
  target_ = window;
  accelerators_ = accelerators;
}

bool EventQueue::Take() {
  return PeekMessageW(&event_, nullptr, 0, 0, PM_REMOVE) != 0;
}

bool EventQueue::OfferToAccelerators() {
  return TranslateAcceleratorW(target_, accelerators_, &event_) != 0;
}

void EventQueue::Dispatch() {
  TranslateMessage(&event_);
  DispatchMessageW(&event_);
}

bool EventQueue::IsQuit() const {
  return event_.message == WM_QUIT;
}

int EventQueue::ExitCode() const {
  return static_cast<int>(event_.wParam);
}

}  // namespace win32
