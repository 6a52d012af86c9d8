#pragma once

// The small functions that every platform must give. There is one filling per platform below platform/, the
// build picks it; tests link a clock of their own (tests/support/virtual_clock.h) in place of the real one.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/date_time.h"

namespace platform {

// Clock. These four are the ones that tests replace. Any thread.

/// Ticks per second of ClockTicks(); at least a million, never changes.
std::int64_t ClockFrequency();

/// A counter that never runs backwards. Only differences mean anything.
std::int64_t ClockTicks();

/// Blocks the calling thread for at least `milliseconds`; zero or less returns at once.
void SleepMilliseconds(int milliseconds);

/// The computer's local time now.
DateTime LocalTime();

// System.

/// The user's Documents folder, or nothing if the platform does not know one. One that the user has
/// configured is made if it is missing, with the folders above it.
std::optional<std::filesystem::path> DocumentsFolder();

/// Where the program keeps, for this user, what it needs from one run to the next and the user never opens;
/// it need not exist yet. Nothing if the platform does not know a place.
std::optional<std::filesystem::path> StateFolder();

/// The file `name` (UTF-8, no folders) that came with the program: it stands beside it, or in
/// ../share/lumarine from there. Nothing if there is none.
std::optional<std::filesystem::path> FindCompanionFile(const std::string& name);

/// A view of the resource `id` of the kind `type` ("XML", "PNG") that was built into this executable; valid
/// until the process ends. An absent or empty resource gives nothing.
std::optional<std::string_view> FindResourceBytes(int id, std::string_view type);

}  // namespace platform
