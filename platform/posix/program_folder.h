#pragma once

// Where the program that runs is, which is how it finds what was installed with it.

#include <filesystem>
#include <string>

namespace platform {

/// The folder that the program was started from, without symbolic links; empty where the system does not
/// tell. Any thread.
std::filesystem::path ProgramFolder();

/// A file that was installed with the program: NAME beside it, or, where it stands in PREFIX/bin, as
/// PREFIX/`folder`/NAME. Empty if it is in neither place. Any thread.
std::filesystem::path FindInstalledFile(const std::filesystem::path& folder, const std::string& name);

}  // namespace platform
