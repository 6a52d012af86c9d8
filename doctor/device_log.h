#pragma once

// What can be read out of the file that the device log is written to.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/date_time.h"

namespace doctor {

/// As much of the end of a file as `most` bytes hold, from the beginning of a line on if it is not all. False
/// if it is no regular file or cannot be read. The file may grow meanwhile.
bool ReadEnd(const std::filesystem::path& file, std::size_t most, std::string& out);

/// Whether a line of the device log begins with the time at which it was written: "9:05:03:007 ".
bool HasStamp(std::string_view line);

/// What the last lines of a device log say.
struct LogEnd {
  std::string error;  // the last line that tells of an error, with its stamp; empty if none does
  std::optional<DateTime> timeSync;  // what a controller's clock was last set to
};
/// Looks for errors in the last 200 lines only: older ones are history.
LogEnd ReadLogEnd(std::string_view log);

}  // namespace doctor
