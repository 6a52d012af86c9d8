#pragma once

#include <filesystem>

namespace desktop {

/// Writes what the screen shows as a PNG file.
bool WriteScreenPicture(const std::filesystem::path& file);

}  // namespace desktop
