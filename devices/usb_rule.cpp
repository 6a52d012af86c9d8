#include "devices/usb_rule.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <vector>

#include "devices/usb_rights.h"

namespace TCBase {

std::optional<std::filesystem::path> InstalledUsbRule() {
  std::vector<std::filesystem::path> folders;
  if (auto folder = platform::RulesFolder()) folders.push_back(*std::move(folder));
  std::ranges::move(platform::PackagedRulesFolders(), std::back_inserter(folders));
  for (const auto& folder : folders) {
    std::error_code error;
    if (std::filesystem::exists(folder / kUsbRuleFile, error)) return folder / kUsbRuleFile;
  }
  return std::nullopt;
}

}  // namespace TCBase
