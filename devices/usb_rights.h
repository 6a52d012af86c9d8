#pragma once

// Who may open a controller on USB, and what gives this user the right. One filling per platform below
// platform/; tests bring one of their own (tests/support/sim_hidapi.h).

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Whether this user may open the device at `path`, a path of hidapi's. True unless the system's rights alone
/// forbid it: a device that is not there, or that another program holds, is none of its business.
bool MayOpenDevice(const std::string& path);

/// The folder of the system's rules that give such rights, for those that its administrator installs. Nothing
/// where every user has them.
std::optional<std::filesystem::path> RulesFolder();

/// The folders of rules that come with packages. A rule in RulesFolder() stands for one of the same name
/// there.
std::vector<std::filesystem::path> PackagedRulesFolders();

/// The command that gives this user the right, as it is typed into a shell. Empty where every user has it.
std::string RightsCommand();

}  // namespace platform
