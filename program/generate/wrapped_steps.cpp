#include "program/generate/wrapped_steps.h"

#include <algorithm>

namespace TCBase::Program::Generate {

int MinuteOnTheRing(int minute) {
  const int rest = minute % kMinutesPerDay;
  return rest < 0 ? rest + kMinutesPerDay : rest;
}

std::size_t ChannelInRange(int channel) {
  return static_cast<std::size_t>(std::clamp(channel, 0, kChannelCount - 1));
}

Channel WrappedSteps(int begin, const std::vector<CurvePoint>& points) {
  Channel channel;
  // The last of those on one minute comes first, and so stays.
  for (auto point = points.rbegin(); point != points.rend(); ++point) {
    const int minute = MinuteOnTheRing(MinuteOnTheRing(begin) + point->minute);
    channel.push_back(MakeStep(minute * kSecondsPerMinute, point->percent));
  }
  SortSteps(channel);
  RemoveDuplicateTimes(channel);
  return channel;
}

}  // namespace TCBase::Program::Generate
