#include "app/handlers/upload_check.h"

#include <algorithm>

#include "common/message.h"
#include "devices/controller_models.h"
#include "program/mode_commands.h"

namespace app {

using namespace TCBase::Program;

namespace {

constexpr TextKey kManyStepsTitle("Higher step count for some {1} devices");
constexpr TextKey kManyStepsText(
    "Some {1} devices have problems with modes containing higher number of steps.\r\n\r\n"
    "If the program uploaded to your {1} device does not work the same way as during the demo playback, "
    "please "
    "check \"Help / Known Issues\" for more troubleshooting details.\r\n\r\n"
    "List of all modes with their number of steps:\r\n\r\n"
    "{2}\r\n"
    "Proceed with uploading the current program? (It is a safe operation)");

constexpr TextKey kKnownIssuesTitle("Known issues with some {1} devices");
constexpr TextKey kKnownIssuesText(
    "Some {1} devices do not properly support a higher number of steps in the program.\r\n\r\n"
    "If the program uploaded to your {1} device does not work the same way as during the demo playback, it "
    "is "
    "possible that your device must be configured with a low number of steps to work properly.\r\n\r\n"
    "Usually, these devices will ignore anything beyond the first {2} steps and keep the same intensity as "
    "is "
    "set at step no. {2} until the end of the day.\r\n\r\n"
    "To overcome this problem, please consider using the \"Mode / Align Steps\" function to snap steps in "
    "all "
    "channels to specific intervals. This may reduce and merge some steps with similar times. You can delete "
    "some steps manually as well. Or you can also try to add endpoint steps to the start or end of the "
    "mode.\r\n\r\n"
    "If you want to explore more, you can try using PLED software, but it was not working for me either.\r\n"
    "(Please let me know if PLED with the same program works or if you find out more details about this "
    "problem.)\r\n\r\n"
    "Here is the list showing the current number of steps for each mode in your program:\r\n\r\n"
    "{3}\r\n");

}  // namespace

ModeReport BuildModeReport(const ModeListView& program) {
  ModeReport report;
  for (const Mode& mode : program.modes) {
    const int steps = CountModeSteps(mode);
    report.manySteps = report.manySteps || steps > kManyModeSteps;
    report.text += Message("\"{1}\" ({2} steps)", mode.name, steps).utf8() + "\r\n";
  }
  return report;
}

bool CheckBeforeUpload(ModeListView& program, const std::vector<TCBase::DeviceInfo>& devices,
                       QuestionsPort& questions) {
  if (!OptimizeAllModes(program)) {
    questions.Ask({Message("Program optimized").ToWide(),
                   Message("Please check log for optimized channels and run the upload again").ToWide()});
    return false;
  }
  const ModeReport report = BuildModeReport(program);
  const bool mayIgnore = std::ranges::any_of(devices, [](const TCBase::DeviceInfo& device) {
    return TCBase::ControllerModelOf(device).mayIgnoreManySteps;
  });
  if (!report.manySteps || !mayIgnore) return true;
  return questions.Ask({Message(kManyStepsTitle, TCBase::kTC420Name).ToWide(),
                        Message(kManyStepsText, TCBase::kTC420Name, report.text).ToWide(), Buttons::YesNo,
                        Icon::Warning}) == Answer::Yes;
}

Question KnownIssues(const ModeListView& program) {
  return {
      Message(kKnownIssuesTitle, TCBase::kTC420Name).ToWide(),
      Message(kKnownIssuesText, TCBase::kTC420Name, kManyModeSteps, BuildModeReport(program).text).ToWide(),
      Buttons::Ok, Icon::Information};
}

}  // namespace app
