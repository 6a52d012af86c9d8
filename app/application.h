#pragma once

// The whole program, as a shell sees it:
//
//   app::Application application(shell);   // the load phase: no window, the worker thread runs
//   ... hand application.mainWindow and application.chartWindow to the window procedures ...
//   return application.Run();              // start-up, main loop, shut-down
//
// Settings are written when the process ends.

#include "app/main_window.h"
#include "app/ports.h"

namespace app {

struct AppState;
class Commands;

class Application {
 public:
  /// `shell` must outlive the application.
  explicit Application(const Shell& shell);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();

  /// From the first platform step to the last. Returns the process's exit code; 0 at once, with nothing else
  /// done, if the main window could not be made.
  int Run();

  // Where the shell takes the events of its two windows.
  MainWindow mainWindow;
  ChartWindow chartWindow;
};

}  // namespace app
