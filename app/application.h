#pragma once

// The whole program, as a shell sees it:
//
//   app::Application application(shell);   // the load phase: no window, the worker thread runs
//   ... let the windows' events go to application.mainWindow, application.chartWindow and
//       application.stepTableWindow ...
//   return application.Run();              // start-up, main loop, shut-down
//
// The settings are written when the process ends. One at a time in a process.

#include "app/app_state.h"
#include "app/commands.h"
#include "app/main_window.h"
#include "app/step_table_window.h"
#include "app/window/ports.h"

namespace app {

class Application {
 public:
  /// What the shell's references name must outlive the application.
  explicit Application(const Shell& shell);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();

  /// Runs the program from the first platform step to the last. Returns the process's exit code. If the main
  /// window could not be made, nothing else is done and the code is 0.
  int Run();

  // What Run does, for whoever turns the loop himself.

  /// False if the main window could not be made; nothing else is to be done then.
  bool StartUp();
  /// One turn of the main loop; false after the last one.
  bool Turn();
  void ShutDown();

  AppState state;

  // The shell takes the events of its windows here.
  MainWindow mainWindow;
  ChartWindow chartWindow;
  StepTableWindow stepTableWindow;

 private:
  void BeginLanguage();
  bool InitInstance();
  void ConnectWindow();
  /// What the process was told to open, or else the last program, or else a new one.
  void OpenFirstProgram();

  const Shell shell_;
  Commands commands_;
};

}  // namespace app
