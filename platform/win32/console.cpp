// common/console.h on Windows.

#include "common/console.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

#include <mutex>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/terminal_progress.h"
#include "platform/win32/windows_headers.h"

#include <shellapi.h>

namespace {

constexpr int kDefaultWidth = 80;

bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

// Whether it is a console that takes control sequences. It does from now on, if it can.
bool TakesSequences(DWORD stream) {
  const HANDLE console = GetStdHandle(stream);
  DWORD mode = 0;
  return GetConsoleMode(console, &mode) != 0 &&
         SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::string EnvironmentVariable(const char* name) {
  const char* const value = getenv(name);
  return value != nullptr ? value : "";
}

// The system calls the handler on a thread that it makes for the purpose.
class ControlWatch : public Console::InterruptWatch {
 public:
  explicit ControlWatch(std::function<void()> action) {
    const std::lock_guard lock(mutex);
    pending = std::move(action);
    SetConsoleCtrlHandler(&Handle, TRUE);
  }

  ~ControlWatch() override {
    SetConsoleCtrlHandler(&Handle, FALSE);
    const std::lock_guard lock(mutex);
    pending = nullptr;
  }

 private:
  static BOOL WINAPI Handle(DWORD event) {
    {
      const std::lock_guard lock(mutex);
      // Not handled the second time: the system's own handler ends the process.
      if (!pending) return FALSE;
      std::exchange(pending, nullptr)();
    }
    // When the window closes, or the user logs off, the process ends as soon as this returns. What has been
    // asked to stop needs the seconds of grace that the system allows.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
    return TRUE;
  }

  static inline std::mutex mutex;
  static inline std::function<void()> pending;  // guarded by `mutex`
};

std::optional<std::string> ReadInputLine(std::size_t most) {
  std::string line;
  int byte = fgetc(stdin);
  if (byte == EOF) return std::nullopt;
  for (; byte != EOF && byte != '\n' && line.size() < most; byte = fgetc(stdin))
    line += static_cast<char>(byte);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

// Reads a line that the console does not show. The console's own keys edit it. If Ctrl+C ends the program
// here, the shell has the console show what is typed again.
std::optional<std::string> TypeSecret() {
  constexpr DWORD kRoom = 1024;
  const HANDLE console = GetStdHandle(STD_INPUT_HANDLE);
  DWORD before = 0;
  if (GetConsoleMode(console, &before) == 0) return std::nullopt;
  SetConsoleMode(console, (before & ~static_cast<DWORD>(ENABLE_ECHO_INPUT)) | ENABLE_LINE_INPUT |
                              ENABLE_PROCESSED_INPUT);
  wchar_t text[kRoom + 1] = {};
  DWORD count = 0;
  const bool read = ReadConsoleW(console, text, kRoom, &count, nullptr) != 0;
  SetConsoleMode(console, before);
  if (!read || count == 0) return std::nullopt;
  text[count] = 0;
  text[wcscspn(text, L"\r\n")] = 0;
  return Utf8FromPlatformWide(text);
}

class WindowsConsole : public Console {
 public:
  WindowsConsole() : codePage_(GetConsoleOutputCP()) {
    if (codePage_ != 0) SetConsoleOutputCP(CP_UTF8);
  }
  // The shell that the program was started from goes on with the same console.
  ~WindowsConsole() override {
    if (codePage_ != 0) SetConsoleOutputCP(codePage_);
  }

  bool OutputIsTerminal() const override { return IsConsole(STD_OUTPUT_HANDLE); }
  bool OutputShowsColours() const override {
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    wchar_t unwanted[2] = {};
    return GetEnvironmentVariableW(L"NO_COLOR", unwanted, 2) == 0 && GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  }
  bool ErrorIsTerminal() const override { return IsConsole(STD_ERROR_HANDLE); }
  bool ErrorShowsProgress() const override {
    return TerminalShowsProgress(&EnvironmentVariable) && TakesSequences(STD_ERROR_HANDLE);
  }

  int Width() const override {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    const bool known = GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) != 0;
    return known ? info.srWindow.Right - info.srWindow.Left + 1 : kDefaultWidth;
  }

  bool InputIsTerminal() const override { return IsConsole(STD_INPUT_HANDLE); }

  std::optional<std::string> ReadSecret(std::string_view prompt, std::size_t most) override {
    if (!InputIsTerminal()) return ReadInputLine(most);
    fwrite(prompt.data(), 1, prompt.size(), stderr);
    std::optional<std::string> line = TypeSecret();
    fputs("\n", stderr);
    if (line && line->size() > most) line->resize(most);
    return line;
  }

  std::optional<std::string> ReadLine(std::string_view prompt, std::size_t most) override {
    if (InputIsTerminal()) fwrite(prompt.data(), 1, prompt.size(), stderr);
    return ReadInputLine(most);
  }

  std::unique_ptr<InterruptWatch> WatchInterrupts(std::function<void()> action) override {
    return std::make_unique<ControlWatch>(std::move(action));
  }

 private:
  UINT codePage_;  // the console's own, 0 without a console
};

}  // namespace

namespace platform {

// main's arguments have gone through the system's code page and may have lost letters on the way.
std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; words != nullptr && i < count; ++i) arguments.push_back(Utf8FromPlatformWide(words[i]));
  LocalFree(words);
  return arguments;
}

Console& OpenConsole() {
  static WindowsConsole console;
  for (FILE* const stream : {stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  return console;
}

}  // namespace platform
