#include "program/optimize.h"

#include <cmath>

#include "common/log.h"
#include "common/message.h"
#include "common/truncate.h"
#include "program/step_remover.h"

namespace TCBase::Program {

std::int32_t RemovalError(const Channel& channel, std::size_t index) {
  const std::int64_t second = SecondOfDay(channel[index]);
  Channel without = channel;
  without.erase(without.begin() + static_cast<std::ptrdiff_t>(index));
  return TruncateToInt(std::fabs(ChannelValueAt(channel, second) - ChannelValueAt(without, second)));
}

StepRemoval FindCheapestStep(const Mode& mode) {
  return StepRemover(mode).Cheapest();
}

void RemoveExactSteps(Mode& mode) {
  StepRemover remover(mode);
  for (StepRemoval cheapest = remover.Cheapest(); cheapest.error == 0; cheapest = remover.Cheapest()) {
    remover.Remove(cheapest);
  }
  remover.ApplyTo(mode);
}

bool OptimizeModeTo(Mode& mode, int maxSteps) {
  if (CountModeSteps(mode) <= maxSteps) return true;
  LogStatus(Message("Mode {1} has more than {2} steps, optimizing...", mode.name, maxSteps));
  StepRemover remover(mode);
  bool found = true;
  while (found && remover.MergedSteps() > maxSteps) {
    const StepRemoval cheapest = remover.Cheapest();
    // While more than ten merged steps are left, one of the five channels has more than two and can lose one.
    // So there is always a step to remove unless the limit is below ten.
    found = cheapest.step >= 0;
    if (found) remover.Remove(cheapest);
  }
  remover.ApplyTo(mode);
  if (!found) LogStatus(Message("Unable to optimize mode {1}, please remove some steps.", mode.name));
  return found;
}

bool OptimizeMode(Mode& mode) {
  return OptimizeModeTo(mode, kMaxModeSteps);
}

}  // namespace TCBase::Program
