#pragma once

#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// The message queue of the user interface thread.
class EventQueue final : public app::EventSource {
 public:
  EventQueue() = default;
  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;

  /// From now on accelerator keys go to `window` as commands. A window without a menu gets all of them; with
  /// one, Windows holds back those whose item looks grey to it. The table is the process's.
  void UseAccelerators(HWND window, HACCEL accelerators);

  bool Take() override;
  bool OfferToAccelerators() override;
  void Dispatch() override;
  bool IsQuit() const override;
  int ExitCode() const override;

 private:
  MSG event_{};
  HWND target_ = nullptr;
  HACCEL accelerators_ = nullptr;
};

}  // namespace win32
