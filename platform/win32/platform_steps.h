#pragma once

// What Windows needs done on the way up and down, one small function a step. The application tells the order.

#include <string>

#include "app/window/ports.h"
#include "platform/win32/controls.h"
#include "platform/win32/event_queue.h"
#include "platform/win32/logo.h"
#include "platform/win32/main_window.h"
#include "platform/win32/menu.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

class PlatformSteps final : public app::PlatformPort {
 public:
  /// The pieces outlive this.
  struct Pieces {
    MainWindow& mainWindow;
    Controls& controls;
    Menu& menu;
    EventQueue& events;
    Logo& logo;
  };
  PlatformSteps(HINSTANCE instance, const Pieces& pieces) : instance_(instance), pieces_(pieces) {}

  bool Do(app::PlatformStep step) override;

 private:
  void StartGdiPlus();
  bool MakeMainWindow();

  const HINSTANCE instance_;
  const Pieces pieces_;
  std::wstring title_;
  std::wstring windowClass_;
  ULONG_PTR graphics_ = 0;  // of GDI+, 0 while it does not run
};

}  // namespace win32
