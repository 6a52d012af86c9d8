#pragma once

// The rule that lets users open controllers on USB, as it is installed on this system.

#include <filesystem>
#include <optional>
#include <string_view>

namespace TCBase {

inline constexpr char kUsbRuleFile[] = "70-lumarine.rules";

/// The program's own, among its resources.
inline constexpr int kUsbRuleResource = 136;
inline constexpr std::string_view kUsbRuleType = "RULES";

/// The rule that counts: the administrator's, or else one that came with a package. Nothing if there is none.
std::optional<std::filesystem::path> InstalledUsbRule();

}  // namespace TCBase
