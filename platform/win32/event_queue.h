#pragma once

#include "app/ports.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// The message queue of the user interface thread.
class EventQueue final : public app::EventSource {
 public:
  EventQueue() = default;
  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;

  /// From now on accelerator keys go to `mainWindow` as commands. The table is the process's.
  void UseAccelerators(HWND mainWindow, HACCEL accelerators);

  bool Take() override;
  bool OfferToAccelerators() override;
  void Dispatch() override;
  bool IsQuit() const override;
  int ExitCode() const override;

 private:
  MSG event_{};
  HWND mainWindow_ = nullptr;
  HACCEL accelerators_ = nullptr;
};

}  // namespace win32
