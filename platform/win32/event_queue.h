#pragma once

#include <span>

#include "app/window/command.h"
#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// The message queue of the user interface thread.
class EventQueue final : public app::EventSource {
 public:
  EventQueue() = default;
  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;

  ~EventQueue() override;

  /// From now on accelerator keys go to `window` as commands. A window without a menu gets all of them; with
  /// one, Windows holds back those whose item looks grey to it. `accelerators` is the table among the
  /// resources, which stays the process's; `keys` that it lacks are found behind it.
  void UseAccelerators(HWND window, HACCEL accelerators, std::span<const app::Accelerator> keys);

  bool Take() override;
  bool OfferToAccelerators() override;
  void Dispatch() override;
  void AwaitEvent(int milliseconds) override;
  bool IsQuit() const override;
  int ExitCode() const override;

 private:
  MSG event_{};
  HWND target_ = nullptr;
  HACCEL accelerators_ = nullptr;
  HACCEL further_ = nullptr;  // keys that the resources lack; null without any
};

}  // namespace win32
