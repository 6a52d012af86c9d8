#pragma once

// What is told and asked about modes with more steps than some controllers take. User interface thread.

#include <string>
#include <vector>

#include "app/window/ports.h"
#include "devices/device_info.h"
#include "program/program.h"

namespace app {

struct ModeReport {
  std::string text;        // one line for each mode, with its number of steps
  bool manySteps = false;  // some mode has more than 20
};
ModeReport BuildModeReport(const TCBase::Program::ModeListView& program);

/// Brings every mode within the step limit and asks the user, if there is something to ask. True if the
/// program may be uploaded to `devices`.
bool CheckBeforeUpload(TCBase::Program::ModeListView& program, const std::vector<TCBase::DeviceInfo>& devices,
                       QuestionsPort& questions);

/// The box of "Known issues ...".
Question KnownIssues(const TCBase::Program::ModeListView& program);

}  // namespace app
