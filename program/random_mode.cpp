#include "program/random_mode.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdlib>

#include "program/merged_steps.h"

namespace TCBase::Program {

namespace {

bool IsFull(const Channel& channel) {
  std::bitset<kMinutesPerDay> used;
  for (const Step& step : channel) {
    if (IsOnTheDay(step)) used.set(MinuteOnTheDay(step));
  }
  return used.all();
}

Step DrawStep() {
  Step step;
  step.hour = std::rand() % kHoursPerDay;
  step.minute = std::rand() % kMinutesPerHour;
  step.value = static_cast<float>(std::rand() % 100);
  step.jump = std::rand() % 100 < 25;
  return step;
}

}  // namespace

void AddRandomStep(Channel& channel) {
  if (IsFull(channel)) return;
  Step step;
  do {
    step = DrawStep();
  } while (std::any_of(channel.begin(), channel.end(),
                       [&step](const Step& other) { return MinuteOfDay(other) == MinuteOfDay(step); }));
  step.id = NextStepId();
  channel.push_back(step);
}

void FillRandomMode(Mode& mode) {
  for (Channel& channel : mode.channels) {
    AddRandomStep(channel);
    AddRandomStep(channel);
  }
  for (int more = std::rand() % 15; more > 0; --more) {
    AddRandomStep(mode.channels[static_cast<std::size_t>(std::rand() % kChannelCount)]);
  }
  for (Channel& channel : mode.channels) SortSteps(channel);
}

}  // namespace TCBase::Program
