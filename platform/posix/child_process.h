#pragma once

// A program that runs as a child of this one.

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// What a child is given; as it stands, the standard streams and the environment of this process.
struct ChildSetting {
  /// Where its output goes. It has no input then, and its complaints are lost.
  std::optional<int> output;
  /// It speaks plain English, whatever the user's language.
  bool inEnglish = false;
};

/// Starts `program`, a path, or a name that is looked for in PATH; nothing if it cannot be started. No shell
/// comes between. The caller awaits its end with waitpid or AwaitChild.
std::optional<pid_t> StartChild(const std::string& program, const std::vector<std::string>& arguments,
                                const ChildSetting& setting = {});

/// Waits for the end of a child. What it answered, or nothing if a signal ended it.
std::optional<int> AwaitChild(pid_t child);
/// The same of what waitpid told.
std::optional<int> AnswerOf(int status);

}  // namespace platform
