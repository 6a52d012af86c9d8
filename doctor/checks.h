#pragma once

// The things that an examination looks at, one function each. They answer in the order in which the report
// shows it; what does not matter on this computer has no finding.

#include <string>
#include <vector>

#include "doctor/computer_facts.h"
#include "doctor/examination.h"
#include "doctor/finding.h"

namespace doctor {

using Findings = std::vector<Finding>;

// usb_checks.cpp
Findings CheckControllers(const Subject& subject);
Findings CheckRule(const Subject& subject);

// network_checks.cpp
Findings CheckPort(const Subject& subject);
Findings CheckAdapters(const Subject& subject);
Findings CheckBroadcast(const Subject& subject);
Findings CheckFirewall(const Subject& subject);

// file_checks.cpp
Findings CheckDocuments(const Subject& subject);
Findings CheckSettings(const Subject& subject);
Findings CheckDeviceLog(const Subject& subject);

// clock_checks.cpp
Findings CheckComputerClock(const Subject& subject);
Findings CheckControllerClock(const Subject& subject);

/// "lumarine (4711), another" of all but this process; a process without a name is its number.
std::string NamesOf(const std::vector<platform::Holder>& holders);
/// Whether one of them is this process.
bool HasThisOne(const std::vector<platform::Holder>& holders);

}  // namespace doctor
