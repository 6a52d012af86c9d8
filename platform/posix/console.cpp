// common/console.h on POSIX.

#include "common/console.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

namespace {

constexpr int kDefaultWidth = 80;
/// What shells report of a program that SIGINT ended.
constexpr int kInterruptedStatus = 128 + SIGINT;
/// A closing terminal and timeout(1) signal the process and its group: two signals that are one request.
constexpr std::chrono::milliseconds kOneRequest{250};
/// Sent to the watching thread alone, to end it.
constexpr int kWake = SIGUSR1;

bool IsIgnored(int signal) {
  struct sigaction current {};
  return sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

/// Signals are taken by a thread that waits for them, so that no handler has to be async-signal-safe and no
/// other thread's system call is broken off.
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

  /// False once the watch is to end.
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

class PosixConsole : public Console {
 public:
  bool OutputIsTerminal() const override { return isatty(STDOUT_FILENO) != 0; }
  bool ErrorIsTerminal() const override { return isatty(STDERR_FILENO) != 0; }

  int Width() const override {
    winsize size{};
    const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kDefaultWidth;
  }

  std::unique_ptr<InterruptWatch> WatchInterrupts(std::function<void()> action) override {
    return std::make_unique<SignalWatch>(std::move(action));
  }
};

/// A stream that the caller closed would give its number to the next file that is opened, and messages would
/// end up in there. The other way round these refuse what the stream is for.
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
