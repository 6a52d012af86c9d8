#pragma once

// The device communication log: deviceLog's way to a file.

#include <filesystem>

#include "program/settings.h"

namespace app {

/// Connects deviceLog to a log file, which is opened, appended to and closed for each item, or disconnects
/// it, as the setting `logging` says. While it is disconnected its lines queue up, and the first line after
/// it is connected writes them all. What cannot be written is lost and told of on statusLog. User interface
/// thread.
void ConfigureDeviceLog(Settings& settings, const std::filesystem::path& file);

/// Turns the setting round, says so in the log and reconfigures.
void ToggleDeviceLog(Settings& settings, const std::filesystem::path& file);

}  // namespace app
