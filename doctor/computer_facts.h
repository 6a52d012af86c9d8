#pragma once

// What the doctor asks the system about this computer. One filling per platform below platform/; tests bring
// one of their own (tests/support/scripted_computer.h). Nothing here waits for other computers; some of it
// reads a few thousand small files. Any thread. What the system does not tell is empty.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/date_time.h"

namespace platform {

/// A process that has something.
struct Holder {
  std::string program;       // UTF-8, "chrome"; empty if this user is not told
  std::int64_t process = 0;  // 0 if this user is not told
  bool isThisOne = false;    // the process that asks
};

/// Who has a controller on USB.
struct DeviceUse {
  bool refused = false;         // the system lets nobody else open it meanwhile
  std::vector<Holder> holders;  // those that this user may see
};

/// `path` is one of hidapi's. Opens the device for a moment, if that is the only way to tell.
DeviceUse UseOfDevice(const std::string& path);

/// Who sets this computer's clock.
enum class ClockKeeper { Network, Nobody, Unknown };
ClockKeeper WhoKeepsTheClock();

/// Minutes that local time is ahead of UTC at the moment that clocks here show as `local`; nothing if the
/// system does not know such a moment.
std::optional<int> UtcOffsetMinutes(const DateTime& local);

/// What others are not to read of: where this user's files are, and what the user and the computer are
/// called.
struct Identity {
  std::vector<std::string> homes;  // paths (UTF-8), as the system spells them
  std::vector<std::string> users;  // account and full name
  std::vector<std::string> hosts;
};
Identity WhoThisIs();

/// "System" and its version, and what else of it matters, each with a name.
std::vector<std::pair<std::string, std::string>> SystemVersions();

}  // namespace platform
