// Channels: the curve through the steps, and what keeps the steps in order.

#include <algorithm>

#include "program/curve.h"
#include "program/program.h"

namespace TCBase::Program {

float ChannelValueAt(const Channel& channel, std::int64_t second) {
  if (channel.empty()) return 0.0F;
  if (channel.size() == 1) return channel.front().value;
  second = RingSecond(second);
  const auto to = std::find_if(channel.begin(), channel.end(),
                               [second](const Step& step) { return SecondOfDay(step) >= second; });
  if (to == channel.begin() || to == channel.end()) {
    return CurveSegment(channel.back(), channel.front()).At(second);
  }
  return CurveSegment(*(to - 1), *to).At(second);
}

float ChannelPower(const Channel& channel) {
  float power = 0.0F;
  for (const Step& step : channel) power = std::max(power, step.value);
  return power;
}

void ScaleChannel(Channel& channel, float power) {
  const float max = ChannelPower(channel);
  if (!(max > 0.0F) || !(power >= 0.1F)) return;
  const float factor = max / power;
  ForEachStep(channel, [factor](Step& step) {
    step.value /= factor;
    Normalize(step);
  });
}

void InsertStepSorted(Channel& channel, const Step& step) {
  // A binary search would not find the first such step in a channel that is out of order.
  const auto behind = std::find_if(channel.begin(), channel.end(), [&step](const Step& other) {
    return MinuteOfDay(other) >= MinuteOfDay(step);
  });
  channel.insert(behind, step)->id = NextStepId();
}

void SortSteps(Channel& channel) {
  std::stable_sort(channel.begin(), channel.end(),
                   [](const Step& a, const Step& b) { return MinuteOfDay(a) < MinuteOfDay(b); });
}

void RemoveDuplicateTimes(Channel& channel) {
  const auto sameMinute = [](const Step& a, const Step& b) { return MinuteOfDay(a) == MinuteOfDay(b); };
  channel.erase(std::unique(channel.begin(), channel.end(), sameMinute), channel.end());
}

void RenumberSteps(Channel& channel) {
  ForEachStep(channel, [](Step& step) { step.id = NextStepId(); });
}

void ForEachStep(Channel& channel, const std::function<void(Step&)>& action) {
  for (Step& step : channel) action(step);
}

}  // namespace TCBase::Program
