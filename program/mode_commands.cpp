#include "program/mode_commands.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "OvkLib/src/ovk_text.h"
#include "common/log.h"
#include "common/message.h"
#include "program/align.h"
#include "program/curve.h"
#include "program/endpoint.h"
#include "program/optimize.h"
#include "program/random_mode.h"
#include "program/resample.h"

namespace TCBase::Program {

void OptimizeForTC421(ModeListView& document) {
  Mode& mode = CurrentMode(document);
  ResampleHalfHour(mode, mode);
  RemoveExactSteps(mode);
  LogStatus(
      Message("All steps were aligned to 30 minute intervals. This is useful for configuring TC421 device."));
}

void AlignCurrentMode(ModeListView& document, std::int32_t interval) {
  Mode& mode = CurrentMode(document);
  AlignMode(mode, mode, interval);
  LogStatus(Message("All steps were aligned to {1} minute intervals. Current number of steps is {2}.",
                    interval, CountModeSteps(mode)));
}

bool AddEndpointSteps(ModeListView& document, std::int32_t second) {
  Mode& mode = CurrentMode(document);
  if (!AddStepToAllChannels(mode, second)) {
    LogStatus(Message("Unable to add new step. Maximum number of {1} steps for the current mode reached",
                      kMaxModeSteps));
    return false;
  }
  LogStatus(Message("Added step at {1} to all channels. Current number of steps is {2}.",
                    TimeText(TimeOfDayAt(RingSecond(second))), CountModeSteps(mode)));
  return true;
}

bool OptimizeAllModes(ModeListView& document) {
  return std::all_of(document.modes.begin(), document.modes.end(), OptimizeMode);
}

void AppendMode(ModeListView& document, Mode mode) {
  document.currentMode = static_cast<std::int32_t>(document.modes.size());
  document.modes.push_back(std::move(mode));
}

void AppendRandomMode(ModeListView& document) {
  Mode mode;
  mode.name = "Rand_" + ToDecimal(static_cast<std::int32_t>(document.modes.size()));
  FillRandomMode(mode);
  AppendMode(document, std::move(mode));
}

}  // namespace TCBase::Program
