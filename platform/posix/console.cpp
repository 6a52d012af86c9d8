// common/console.h on POSIX.

#include "common/console.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <utility>

#include "common/terminal_progress.h"

namespace {

constexpr int kDefaultWidth = 80;
// What shells report of a program that SIGINT ended.
constexpr int kInterruptedStatus = 128 + SIGINT;
// A closing terminal and timeout(1) signal the process and its group: two signals that are one request.
constexpr std::chrono::milliseconds kOneRequest{250};
// Sent to the watching thread alone, to end it.
constexpr int kWake = SIGUSR1;

bool IsIgnored(int signal) {
  struct sigaction current {};
  return sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

// Signals are taken by a thread that waits for them, so that no handler has to be async-signal-safe and no
// other thread's system call is broken off.
class SignalWatch : public Console::InterruptWatch {
 public:
  explicit SignalWatch(std::function<void()> action) {
    sigemptyset(&signals_);
    sigaddset(&signals_, kWake);
    sigaddset(&signals_, SIGTERM);
    // A script's background job, or one under nohup, is told to ignore these.
    for (const int signal : {SIGINT, SIGHUP})
      if (!IsIgnored(signal)) sigaddset(&signals_, signal);
    pthread_sigmask(SIG_BLOCK, &signals_, &before_);
    thread_ = std::thread([this, run = std::move(action)] { Watch(run); });
  }

  ~SignalWatch() override {
    stopping_ = true;
    pthread_kill(thread_.native_handle(), kWake);
    thread_.join();
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  void Watch(const std::function<void()>& action) const {
    if (!AwaitRequest()) return;
    const auto first = std::chrono::steady_clock::now();
    action();
    do {
      if (!AwaitRequest()) return;
    } while (std::chrono::steady_clock::now() - first < kOneRequest);
    _exit(kInterruptedStatus);
  }

  // False once the watch is to end.
  bool AwaitRequest() const {
    int signal = 0;
    do {
      sigwait(&signals_, &signal);
    } while (signal == kWake && !stopping_);
    return !stopping_;
  }

  sigset_t signals_{};
  sigset_t before_{};
  std::atomic<bool> stopping_ = false;
  std::thread thread_;
};

// A terminal that hands over each key and shows none, for one scope.
class QuietTerminal {
 public:
  QuietTerminal() {
    known_ = tcgetattr(STDIN_FILENO, &before_) == 0;
    termios quiet = before_;
    // The keys that would stop the program come as keys too: it would leave the terminal as it is.
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
    quiet.c_cc[VMIN] = 1;
    quiet.c_cc[VTIME] = 0;
    if (known_) tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
  }
  ~QuietTerminal() {
    if (known_) tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
  }
  QuietTerminal(const QuietTerminal&) = delete;
  QuietTerminal& operator=(const QuietTerminal&) = delete;

 private:
  termios before_{};
  bool known_ = false;
};

// The next byte of standard input; nothing at its end.
std::optional<char> ReadByte() {
  char byte = 0;
  ssize_t count = 0;
  do {
    count = read(STDIN_FILENO, &byte, 1);
  } while (count < 0 && errno == EINTR);
  return count == 1 ? std::optional(byte) : std::nullopt;
}

std::optional<std::string> ReadInputLine(std::size_t most) {
  std::string line;
  std::optional<char> byte = ReadByte();
  if (!byte) return std::nullopt;
  for (; byte && *byte != '\n'; byte = ReadByte()) {
    if (line.size() == most) return line;
    line += *byte;
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

// Takes back the last character: in UTF-8 several bytes, of which only the first is no follower.
void EraseCharacter(std::string& line) {
  while (!line.empty() && (line.back() & 0xC0) == 0x80) line.pop_back();
  if (!line.empty()) line.pop_back();
}

// The line that is typed, on a quiet terminal; nothing if the person gives up.
std::optional<std::string> TypeSecret(std::size_t most) {
  constexpr char kInterrupt = 3;
  constexpr char kEnd = 4;
  constexpr char kBackspace = 8;
  constexpr char kEraseLine = 21;
  constexpr char kDelete = 127;
  std::string line;
  while (const std::optional<char> byte = ReadByte()) {
    if (*byte == '\n' || *byte == '\r') return line;
    if (*byte == kInterrupt || *byte == kEnd) return std::nullopt;
    if (*byte == kEraseLine) {
      line.clear();
    } else if (*byte == kBackspace || *byte == kDelete) {
      EraseCharacter(line);
    } else if (line.size() < most) {
      line += *byte;
    }
  }
  return std::nullopt;
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

// Whether the terminal of this environment takes colours and UTF-8; a NO_COLOR asks for none.
bool ShowsColours() {
  const std::string terminal = Environment("TERM");
  if (terminal.empty() || terminal == "dumb" || !Environment("NO_COLOR").empty()) return false;
  for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const std::string locale = Environment(name);
    if (locale.empty()) continue;
    return locale.find("UTF-8") != std::string::npos || locale.find("utf8") != std::string::npos;
  }
  return false;
}

class PosixConsole : public Console {
 public:
  bool OutputIsTerminal() const override { return isatty(STDOUT_FILENO) != 0; }
  bool ErrorIsTerminal() const override { return isatty(STDERR_FILENO) != 0; }
  bool OutputShowsColours() const override { return OutputIsTerminal() && ShowsColours(); }
  bool ErrorShowsProgress() const override {
    return ErrorIsTerminal() && TerminalShowsProgress(&Environment);
  }

  int Width() const override {
    winsize size{};
    const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kDefaultWidth;
  }

  bool InputIsTerminal() const override { return isatty(STDIN_FILENO) != 0; }

  std::optional<std::string> ReadSecret(std::string_view prompt, std::size_t most) override {
    if (!InputIsTerminal()) return ReadInputLine(most);
    // Quiet first: what is typed as soon as the prompt shows would be seen, and then thrown away.
    const QuietTerminal terminal;
    // Nothing can be done about a prompt that does not show.
    if (write(STDERR_FILENO, prompt.data(), prompt.size()) < 0) return std::nullopt;
    std::optional<std::string> line = TypeSecret(most);
    if (write(STDERR_FILENO, "\n", 1) < 0) return std::nullopt;
    return line;
  }

  std::optional<std::string> ReadLine(std::string_view prompt, std::size_t most) override {
    if (InputIsTerminal() && write(STDERR_FILENO, prompt.data(), prompt.size()) < 0) return std::nullopt;
    return ReadInputLine(most);
  }

  std::unique_ptr<InterruptWatch> WatchInterrupts(std::function<void()> action) override {
    return std::make_unique<SignalWatch>(std::move(action));
  }
};

// The next file to be opened would get the number of a stream that the caller closed, and messages would end
// up in that file. So /dev/null takes the number, opened for the wrong direction: reading from standard
// input and writing to the others fail, as they would if the stream were closed.
void OccupyClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1) open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

}  // namespace

namespace platform {

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

Console& OpenConsole() {
  static PosixConsole console;
  OccupyClosedStreams();
  signal(SIGPIPE, SIG_IGN);
  return console;
}

}  // namespace platform
