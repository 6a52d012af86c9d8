// Controllers on USB: whether they are there, who may open them and who has them open.

#include <sstream>

#include "common/files.h"
#include "devices/controller_models.h"
#include "devices/operations.h"
#include "devices/usb_device.h"
#include "devices/usb_rights.h"
#include "devices/usb_rule.h"
#include "doctor/checks.h"

namespace doctor {

namespace {

namespace fs = std::filesystem;

struct UsbModel {
  TCBase::DeviceModel model;
  TCBase::UsbIds ids;
};
constexpr UsbModel kUsbModels[] = {{TCBase::ModelTC420, TCBase::kTC420Ids},
                                   {TCBase::ModelTC421USB, TCBase::kTC421Ids}};

Finding Controller(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "usb-controllers", Sentence(TextKey("Controllers on USB")), found, advice};
}

Finding Forbidden(const std::string& name) {
  const Sentence found(TextKey("{1} is plugged in, but this user may not open it."), {name});
  if (TCBase::InstalledUsbRule())
    return Controller(
        Sign::Broken, found,
        Sentence(TextKey("The rule is installed, but it counts only for who is logged in at this "
                         "computer itself. Plug the controller in again, or log out and in again.")));
  return Controller(
      Sign::Broken, found,
      Sentence(TextKey("For controllers on USB give this command once: {1}"), {platform::RightsCommand()}));
}

bool CanBeOpened(TCBase::DeviceModel model) {
  TCBase::DeviceInfo info;
  info.model = model;
  return TCBase::CreateDevice(info)->Connect();
}

const TextKey kCloseIt("Close that program and try again.");

Finding InHands(const std::string& name, const platform::DeviceUse& use) {
  const std::string others = NamesOf(use.holders);
  if (HasThisOne(use.holders))
    return Controller(Sign::Good, Sentence(TextKey("{1} is plugged in, and this program uses it."), {name}));
  if (others.empty())
    return Controller(Sign::Broken,
                      Sentence(TextKey("{1} is plugged in, but another program holds it."), {name}),
                      Sentence(kCloseIt));
  return Controller(use.refused ? Sign::Broken : Sign::Look,
                    Sentence(TextKey("{1} is plugged in, but another program holds it: {2}"), {name, others}),
                    Sentence(kCloseIt));
}

// One that is there.
Finding PluggedIn(const UsbModel& usb, const std::vector<std::string>& paths) {
  const std::string name = TCBase::ControllerModelOf(usb.model).name;
  if (!platform::MayOpenDevice(paths.front())) return Forbidden(name);
  const platform::DeviceUse use = platform::UseOfDevice(paths.front());
  if (use.refused || !use.holders.empty()) return InHands(name, use);
  if (!CanBeOpened(usb.model))
    return Controller(
        Sign::Broken, Sentence(TextKey("{1} is plugged in, but it cannot be opened."), {name}),
        Sentence(TextKey("Unplug it, wait for some seconds and plug it in again, at another socket of "
                         "the computer if that does not help.")));
  if (paths.size() > 1)
    return Controller(
        Sign::Look,
        Sentence(TextKey("Controllers of the kind {1} that are plugged in: {2}. The first one is used."),
                 {name, std::to_string(paths.size())}),
        Sentence(TextKey("Plug in only the one that you want to reach.")));
  return Controller(Sign::Good, Sentence(TextKey("{1} is plugged in and can be opened."), {name}));
}

// What the rule says, without comments and empty lines.
std::string RulesIn(const std::string& text) {
  std::istringstream lines(text);
  std::string rules;
  for (std::string line; std::getline(lines, line);)
    if (!line.empty() && line.front() != '#') rules += line + '\n';
  return rules;
}

Finding Rule(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "usb-rule", Sentence(TextKey("Rule for controllers on USB")), found, advice};
}

Finding RuleAt(const fs::path& file) {
  std::string installed;
  std::string carried;
  const std::string name = Utf8FromPath(file);
  const bool known = ReadFileBytes(file, installed) &&
                     LoadResourceBytes(TCBase::kUsbRuleResource, TCBase::kUsbRuleType, carried);
  if (!known || RulesIn(installed) == RulesIn(carried))
    return Rule(Sign::Good, Sentence(TextKey("{1} is installed."), {name}));
  return Rule(
      Sign::Look, Sentence(TextKey("{1} is another one than this program has."), {name}),
      Sentence(TextKey("If a controller cannot be opened, this command installs the program's own: {1}"),
               {platform::RightsCommand()}));
}

}  // namespace

Findings CheckControllers(const Subject&) {
  Findings findings;
  for (const UsbModel& usb : kUsbModels) {
    const std::vector<std::string> paths = TCBase::FindUsbPaths(usb.ids);
    if (!paths.empty()) findings.push_back(PluggedIn(usb, paths));
  }
  if (findings.empty())
    findings.push_back(Controller(
        Sign::Look, Sentence(TextKey("No controller is plugged in.")),
        Sentence(TextKey(
            "One on the network needs no cable. If one is plugged in, try another cable, since some carry "
            "power only, and another socket of the computer."))));
  return findings;
}

Findings CheckRule(const Subject&) {
  if (!platform::RulesFolder()) return {};
  if (const auto file = TCBase::InstalledUsbRule()) return {RuleAt(*file)};
  return {Rule(
      Sign::Look, Sentence(TextKey("No rule is installed. Linux keeps controllers to root without one.")),
      Sentence(TextKey("For controllers on USB give this command once: {1}"), {platform::RightsCommand()}))};
}

}  // namespace doctor
