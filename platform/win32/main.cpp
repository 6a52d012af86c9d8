// Lumarine.exe.

#include "app/application.h"
#include "platform/win32/desktop_shell.h"
#include "platform/win32/windows_headers.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int showCommand) {
  win32::DesktopShell shell(instance, showCommand);
  app::Application application(shell.Ports());
  shell.Connect(application);
  return application.Run();
}
