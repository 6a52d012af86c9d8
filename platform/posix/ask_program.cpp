#include "platform/posix/ask_program.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>

#include "platform/posix/child_process.h"

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{5};
constexpr int kGlanceMilliseconds = 10;
constexpr std::size_t kMaxOutput = 1 << 20;
constexpr std::size_t kPieceSize = 4096;

class FileHandle {
 public:
  explicit FileHandle(int file) : file_(file) {}
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  ~FileHandle() { Close(); }

  int Get() const { return file_; }
  void Close() {
    if (file_ != -1) close(file_);
    file_ = -1;
  }

 private:
  int file_;
};

// Up to there, in milliseconds.
int LeftUntil(Clock::time_point limit) {
  return static_cast<int>(
      std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now()).count());
}

// All that comes up to the end of the file; nothing if that takes too long or is too much.
std::optional<std::string> ReadToEnd(int file, Clock::time_point limit) {
  std::string text;
  while (text.size() <= kMaxOutput) {
    const int left = LeftUntil(limit);
    if (left <= 0) return std::nullopt;
    pollfd wanted{file, POLLIN, 0};
    const int ready = poll(&wanted, 1, left);
    if (ready == 0 || (ready < 0 && errno == EINTR)) continue;
    // What cannot be waited for must not be read: a program that says nothing would hold this one up.
    if (ready < 0) return std::nullopt;
    std::array<char, kPieceSize> piece{};
    const ssize_t size = read(file, piece.data(), piece.size());
    if (size == 0) return text;
    if (size < 0 && errno != EINTR) return std::nullopt;
    if (size > 0) text.append(piece.data(), static_cast<std::size_t>(size));
  }
  return std::nullopt;
}

// Whether a process ends well by itself. One that has closed its output need not have ended.
bool EndsWell(pid_t process, Clock::time_point limit) {
  int status = 0;
  pid_t ended = 0;
  while ((ended = waitpid(process, &status, WNOHANG)) == 0 && LeftUntil(limit) > 0) {
    poll(nullptr, 0, kGlanceMilliseconds);
  }
  if (ended == process) return AnswerOf(status) == 0;
  kill(process, SIGKILL);
  AwaitChild(process);
  return false;
}

}  // namespace

std::optional<std::string> AskProgram(const std::string& program, const std::vector<std::string>& arguments) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  const FileHandle output(ends[0]);
  FileHandle input(ends[1]);
  // Words are looked for in the answer, so it must not be translated.
  const std::optional<pid_t> process = StartChild(program, arguments, {input.Get(), true});
  if (!process) return std::nullopt;
  input.Close();
  const Clock::time_point limit = Clock::now() + kPatience;
  std::optional<std::string> text = ReadToEnd(output.Get(), limit);
  if (!text) kill(*process, SIGKILL);
  return EndsWell(*process, limit) ? text : std::nullopt;
}

}  // namespace platform
