// Lumarine.exe. Its arguments are files to open.

#include <filesystem>
#include <memory>
#include <vector>

#include "app/application.h"
#include "platform/win32/desktop_shell.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#include <shellapi.h>

namespace {

std::vector<std::filesystem::path> Arguments() {
  struct Free {
    void operator()(wchar_t** words) const { LocalFree(words); }
  };
  int count = 0;
  const std::unique_ptr<wchar_t*, Free> words(CommandLineToArgvW(GetCommandLineW(), &count));
  if (words == nullptr || count < 2) return {};
  return {words.get() + 1, words.get() + count};  // behind the program's own name
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int showCommand) {
  win32::DesktopShell shell(instance, showCommand);
  app::Shell ports = shell.Ports();
  ports.filesToOpen = Arguments();
  app::Application application(ports);
  shell.Connect(application);
  return application.Run();
}
