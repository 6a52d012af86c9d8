#pragma once

// What a newcomer is shown where there is no screen: the main job, done by hand on a window.

#include <filesystem>

#include "tests/support/user.h"

/// Adds a step with the mouse, uploads to the emulator, has a demo go on from noon, leaves a picture of the
/// window then and the log beside it (PICTURE.log), and closes. The program has a document open whose first
/// channel is free at 14:00, and lists the emulator. False, if something did not come about.
bool ShowTheMainJob(User& user, const std::filesystem::path& picture);
