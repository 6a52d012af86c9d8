#pragma once

// Programs that do a piece of work for another one: of ours, so that this need not load what the work takes,
// and of the system, which alone can do theirs. One filling per platform below platform/; tests bring one of
// their own.

#include <string>
#include <vector>

namespace platform {

/// What became of a helper.
struct HelperResult {
  enum Outcome {
    Ended,        // by itself, with `status`
    Stopped,      // by a signal or a fault
    Missing,      // it is not installed, or cannot be started
    Unsupported,  // this platform has no helpers
  };

  Outcome outcome = Ended;
  int status = 0;
};

/// Runs the program `name`, which stands beside the one that runs or in ../libexec/lumarine from there, and
/// waits for it. It has our standard streams and our working folder. Arguments are UTF-8.
HelperResult RunHelper(const std::string& name, const std::vector<std::string>& arguments);

/// The same for a program of the system, which is looked for in PATH.
HelperResult RunSystemProgram(const std::string& name, const std::vector<std::string>& arguments);

}  // namespace platform
