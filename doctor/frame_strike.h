#pragma once

// The device log as others may read it. WiFi passwords and names of networks stand in it in the words of
// packets and in the dumps of frames.

#include <string>
#include <string_view>

#include "doctor/secrets.h"

namespace doctor {

/// `log` with all struck out that tells of a wireless network, whatever became of the lines: two programs may
/// have written at once, and a file may begin and end anywhere. In a dump a struck byte is shown as "**".
/// What cannot be read as a line of the log or a row of a dump is struck out with it. `secrets` learns what
/// is found, and is applied, too.
std::string StrikeLog(std::string_view log, Secrets& secrets);

}  // namespace doctor
