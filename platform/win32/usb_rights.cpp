// devices/usb_rights.h on Windows, where every user may open a controller.

#include "devices/usb_rights.h"

namespace platform {

bool MayOpenDevice(const std::string&) {
  return true;
}

std::optional<std::filesystem::path> RulesFolder() {
  return std::nullopt;
}

std::vector<std::filesystem::path> PackagedRulesFolders() {
  return {};
}

std::string RightsCommand() {
  return {};
}

}  // namespace platform
