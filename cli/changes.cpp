#include "cli/changes.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "common/files.h"
#include "common/message.h"
#include "program/channel_edit.h"
#include "program/endpoint.h"
#include "program/mode_commands.h"
#include "program/optimize.h"
#include "program/steps_text.h"

namespace cli {

namespace {

using TCBase::Program::Channel;
using TCBase::Program::kChannelCount;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using TCBase::Program::StepSelection;

Channel& CurrentChannel(ModeListView& document, std::int32_t channel) {
  return CurrentMode(document).channels[static_cast<std::size_t>(channel)];
}

void TellStepCount(const Session& session, ModeListView& document) {
  const Mode& mode = CurrentMode(document);
  session.status.Print(Message("Mode {1} steps count: {2}", mode.name, CountModeSteps(mode)).utf8());
}

ExitStatus Refused(const Session& session) {
  return session.Fail(ExitStatus::WrongUsage, "nothing was written");
}

// Longest text of steps that is looked at: a thousand times what a channel can use.
constexpr std::size_t kMostStepsText = std::size_t{1024} * 1024;

// Makes steps text of a file's text: every kind of line end becomes a carriage return, and the mark that
// some editors put in front of a file goes.
std::string ToStepsText(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::string result(text);
  std::replace(result.begin(), result.end(), '\n', '\r');
  return result;
}

}  // namespace

ExitStatus Optimize(const Session& session, ModeListView& document) {
  if (!OptimizeMode(CurrentMode(document))) return Refused(session);
  TellStepCount(session, document);
  return ExitStatus::Success;
}

ExitStatus OptimizeTC421(const Session& session, ModeListView& document) {
  OptimizeForTC421(document);
  TellStepCount(session, document);
  return ExitStatus::Success;
}

Change Align(int minutes) {
  return [minutes](const Session&, ModeListView& document) {
    AlignCurrentMode(document, minutes);
    return ExitStatus::Success;
  };
}

Change AddEndpoint(const std::string& end) {
  return [end](const Session& session, ModeListView& document) {
    const int second = end == "start" ? TCBase::Program::kDayStart : TCBase::Program::kDayEnd;
    return AddEndpointSteps(document, second) ? ExitStatus::Success : Refused(session);
  };
}

Change ReplaceSteps(const ChannelValue& argument) {
  return [argument](const Session& session, ModeListView& document) {
    const std::string& file = argument.value;
    std::string text;
    if (!ReadFileBytes(PathFromUtf8(file), text))
      return session.Fail(ExitStatus::FileFailed, file + " cannot be read");
    if (text.size() > kMostStepsText)
      return session.Fail(ExitStatus::WrongUsage, file + " is too long to be a text of steps");
    text = ToStepsText(text);

    std::vector<TCBase::Program::Step> steps;
    ParseStepsText(text, steps);
    if (steps.empty())
      return session.Fail(ExitStatus::WrongUsage,
                          file + " holds no steps; a line reads hh:mm value, or hh:mm value J");
    const int passedOver = ReplaceStepsFromText(CurrentChannel(document, argument.channel), text);
    if (!OptimizeMode(CurrentMode(document))) return Refused(session);
    if (passedOver > 0)
      session.status.Print(Message("Lines that are no steps and were passed over: {1}", passedOver).utf8());
    TellStepCount(session, document);
    return ExitStatus::Success;
  };
}

Change Scale(std::int32_t channel, float percent) {
  return [channel, percent](const Session& session, ModeListView& document) {
    Channel& steps = CurrentChannel(document, channel);
    if (!(TCBase::Program::ChannelPower(steps) > 0.0F))
      return session.Fail(ExitStatus::WrongUsage, "channel " + std::to_string(channel + 1) +
                                                      " is dark all day, there is nothing to scale");
    ScaleChannel(steps, percent);
    return ExitStatus::Success;
  };
}

Change Clear(std::int32_t channel) {
  return [channel](const Session&, ModeListView& document) {
    StepSelection selection{document, channel};
    ClearChannel(selection);
    return ExitStatus::Success;
  };
}

Change Move(const ChannelValue& argument) {
  return [argument](const Session& session, ModeListView& document) {
    const bool up = argument.value == "up";
    if (argument.channel == (up ? 0 : kChannelCount - 1))
      return session.Fail(ExitStatus::WrongUsage, "channel " + std::to_string(argument.channel + 1) +
                                                      " is the " + (up ? "first" : "last") + " one already");
    StepSelection selection{document, argument.channel};
    (up ? TCBase::Program::MoveChannelUp : TCBase::Program::MoveChannelDown)(selection);
    return ExitStatus::Success;
  };
}

ExitStatus Remove(const Session& session, ModeListView& document) {
  const std::string name = CurrentMode(document).name;
  if (!RemoveCurrentMode(document))
    return session.Fail(ExitStatus::WrongUsage, "it is the only mode, and a program has at least one");
  session.status.Print(Message("Deleted mode: {1}", name).utf8());
  return ExitStatus::Success;
}

Change Rename(const std::string& name) {
  return [name](const Session&, ModeListView& document) {
    CurrentMode(document).name = name;
    return ExitStatus::Success;
  };
}

}  // namespace cli
