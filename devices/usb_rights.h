#pragma once

// Who may open a controller on USB, and what gives this user the right. One filling per platform below
// platform/; tests bring one of their own (tests/support/sim_hidapi.h).

#include <filesystem>
#include <optional>
#include <string>

namespace platform {

/// Whether this user may open the device at `path`, a path of hidapi's. True unless the system's rights alone
/// forbid it: a device that is not there, or that another program holds, is none of its business.
bool MayOpenDevice(const std::string& path);

/// The folder of the system's rules that give such rights. Nothing where every user has them.
std::optional<std::filesystem::path> RulesFolder();

/// The command that gives this user the right, as it is typed into a shell. Empty where every user has it.
std::string RightsCommand();

}  // namespace platform
