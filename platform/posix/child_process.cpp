#include "platform/posix/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace platform {

namespace {

// The streams of a child, as a list of what is done at its start.
class Streams {
 public:
  explicit Streams(const std::optional<int>& output) {
    posix_spawn_file_actions_init(&actions_);
    if (!output) return;
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, *output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;
  ~Streams() { posix_spawn_file_actions_destroy(&actions_); }

  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

std::vector<std::string> Environment(bool inEnglish) {
  constexpr std::string_view kLocale = "LC_ALL=";
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable)
    if (!inEnglish || !std::string_view(*variable).starts_with(kLocale)) variables.emplace_back(*variable);
  if (inEnglish) variables.push_back(std::string(kLocale) + 'C');
  return variables;
}

// The list of texts that posix_spawn takes. It wants pointers that are not const, and changes nothing.
std::vector<char*> Terminated(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

std::optional<pid_t> StartChild(const std::string& program, const std::vector<std::string>& arguments,
                                const ChildSetting& setting) {
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = Environment(setting.inEnglish);
  const Streams streams(setting.output);
  pid_t child = 0;
  const int error = posix_spawnp(&child, program.c_str(), streams.Get(), nullptr, Terminated(words).data(),
                                 Terminated(variables).data());
  if (error != 0) return std::nullopt;
  return child;
}

std::optional<int> AwaitChild(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) == -1)
    if (errno != EINTR) return std::nullopt;
  return AnswerOf(status);
}

std::optional<int> AnswerOf(int status) {
  if (!WIFEXITED(status)) return std::nullopt;
  return WEXITSTATUS(status);
}

}  // namespace platform
