#include "doctor/examination.h"

#include "doctor/checks.h"
#include "program/settings.h"

namespace doctor {

namespace {

// In the order of the report.
constexpr Findings (*kChecks[])(const Subject&) = {
    &CheckControllers,     &CheckRule,      &CheckPort,     &CheckAdapters,  &CheckBroadcast,
    &CheckFirewall,        &CheckDocuments, &CheckSettings, &CheckDeviceLog, &CheckComputerClock,
    &CheckControllerClock,
};

}  // namespace

Subject::Subject()
    : settingsFile(DocumentPath(Settings::fileName)), deviceLogFile(DocumentPath(kDeviceLogName)) {}

std::vector<Finding> Examine(const Subject& subject, const OnFinding& onFinding,
                             const std::stop_token& stop) {
  std::vector<Finding> all;
  for (const auto& check : kChecks) {
    if (stop.stop_requested()) break;
    for (Finding& finding : check(subject)) {
      if (onFinding) onFinding(finding);
      all.push_back(std::move(finding));
    }
  }
  return all;
}

std::string NamesOf(const std::vector<platform::Holder>& holders) {
  std::string names;
  for (const platform::Holder& holder : holders) {
    if (holder.isThisOne || (holder.program.empty() && holder.process == 0)) continue;
    const std::string number = std::to_string(holder.process);
    if (!names.empty()) names += ", ";
    names += holder.program.empty() ? number : holder.program + " (" + number + ")";
  }
  return names;
}

bool HasThisOne(const std::vector<platform::Holder>& holders) {
  for (const platform::Holder& holder : holders)
    if (holder.isThisOne) return true;
  return false;
}

}  // namespace doctor
