#pragma once

// All pieces of the Qt shell, wired together.

#include "app/application.h"
#include "app/window/ports.h"
#include "platform/qt/desktop/chart_window.h"
#include "platform/qt/desktop/controls.h"
#include "platform/qt/desktop/dialog_windows.h"
#include "platform/qt/desktop/event_queue.h"
#include "platform/qt/desktop/log_pane.h"
#include "platform/qt/desktop/main_window.h"
#include "platform/qt/desktop/menu.h"
#include "platform/qt/desktop/platform_steps.h"
#include "platform/qt/desktop/questions.h"
#include "platform/qt/desktop/step_table_window.h"

namespace qt {

/// A QApplication stands before the shell and outlives it. The shell outlives the application.
class DesktopShell {
 public:
  DesktopShell();
  DesktopShell(const DesktopShell&) = delete;
  DesktopShell& operator=(const DesktopShell&) = delete;

  app::Shell Ports();
  /// Lets the windows' events go to the application. Before it runs.
  void Connect(app::Application& application);

 private:
  ChartWindow chartWindow_;
  MainWindow mainWindow_;
  Controls controls_{mainWindow_, chartWindow_};
  LogPane logPane_{controls_};
  Menu menu_{mainWindow_, chartWindow_};
  Questions questions_{mainWindow_};
  DialogWindows dialogs_{mainWindow_};
  StepTableWindow stepTable_{mainWindow_};
  EventQueue events_{mainWindow_, chartWindow_};
  PlatformSteps platform_{{mainWindow_, menu_, events_}};
};

}  // namespace qt
