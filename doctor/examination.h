#pragma once

// Looks at what usually goes wrong between the program and a controller. An examination changes nothing and
// sends nothing: a file that is written to see whether that can be done is gone again at once.

#include <filesystem>
#include <functional>
#include <stop_token>
#include <vector>

#include "doctor/finding.h"

namespace doctor {

/// What is looked at besides the computer itself. Those of this user's program unless told otherwise.
struct Subject {
  Subject();

  std::filesystem::path settingsFile;
  std::filesystem::path deviceLogFile;
};

using OnFinding = std::function<void(const Finding&)>;

/// Looks at one thing after the other, and answers what it found, in an order that is always the same. Each
/// finding is told to `onFinding`, which may be empty, as soon as it is there, on the thread that called.
///
/// Any thread, one examination at a time. It blocks, for a fraction of a second as a rule, for some seconds
/// where USB or the system answer slowly: a window calls it on a thread of its own. A stop ends it behind the
/// thing that it is looking at; what was found by then is the answer. Logs to no channel but deviceLog.
std::vector<Finding> Examine(const Subject& subject, const OnFinding& onFinding = {},
                             const std::stop_token& stop = {});

}  // namespace doctor
