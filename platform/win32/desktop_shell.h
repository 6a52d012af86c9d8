#pragma once

// All pieces of the Windows shell, wired together.

#include <memory>

#include "app/application.h"
#include "app/window/ports.h"
#include "platform/win32/chart_window.h"
#include "platform/win32/controls.h"
#include "platform/win32/dialog_windows.h"
#include "platform/win32/event_queue.h"
#include "platform/win32/log_pane.h"
#include "platform/win32/logo.h"
#include "platform/win32/main_window.h"
#include "platform/win32/menu.h"
#include "platform/win32/platform_steps.h"
#include "platform/win32/questions.h"
#include "platform/win32/renderer_gdi.h"
#include "platform/win32/step_table_window.h"

namespace win32 {

class DesktopShell {
 public:
  /// What the process was started with. The shell outlives the application.
  DesktopShell(HINSTANCE instance, int showCommand);
  DesktopShell(const DesktopShell&) = delete;
  DesktopShell& operator=(const DesktopShell&) = delete;

  app::Shell Ports();
  /// Lets the windows' events go to the application. Before it runs.
  void Connect(app::Application& application);

 private:
  Logo logo_;
  ChartWindow chartWindow_;
  Controls controls_{chartWindow_};
  MainWindow mainWindow_;
  LogPane logPane_{controls_};
  Menu menu_;
  Questions questions_{mainWindow_};
  DialogWindows dialogs_;
  StepTableWindow stepTable_{mainWindow_};
  EventQueue events_;
  PlatformSteps platform_;
  // Stands by from start to end; the application draws with another one and never calls it.
  std::unique_ptr<UX::RendererGDI> plainRenderer_;
};

}  // namespace win32
