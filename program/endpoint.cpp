#include "program/endpoint.h"

#include "common/truncate.h"
#include "program/curve.h"

namespace TCBase::Program {

bool AddStepToAllChannels(Mode& mode, std::int32_t second) {
  if (CountModeSteps(mode) >= kMaxModeSteps) return false;
  const std::int64_t daySecond = RingSecond(second);
  for (Channel& channel : mode.channels) {
    const auto value = static_cast<float>(TruncateToInt(ChannelValueAt(channel, daySecond)));
    channel.push_back(MakeStep(daySecond, value));
    // Sorted stably: the new step comes last of its minute, and goes if there was one.
    SortSteps(channel);
    RemoveDuplicateTimes(channel);
  }
  return true;
}

}  // namespace TCBase::Program
