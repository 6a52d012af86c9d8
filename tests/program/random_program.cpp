#include "tests/program/random_program.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace program_test {

Step RandomProgram::StepAt(std::int32_t minute) {
  // Few different values make ties, fractions make differences just off a whole percent.
  const float value =
      Below(2) == 0 ? static_cast<float>(Below(5)) * 25.0F : static_cast<float>(Below(1000)) / 9.99F;
  return {minute / 60, minute % 60, value, Below(4) == 0, NextStepId()};
}

Channel RandomProgram::ChannelOf(ChannelKind kind, std::int32_t steps) {
  Channel channel;
  // Half of the channels use few minutes, so that their steps meet those of others.
  const std::int32_t grid = Below(2) == 0 ? 1 : 30;
  const std::int32_t minutes = kMinutesPerDay / grid;
  for (std::int32_t i = 0; i < steps; ++i) channel.push_back(StepAt(Below(minutes) * grid));
  switch (kind) {
    case ChannelKind::Ascending:
      SortSteps(channel);
      RemoveDuplicateTimes(channel);
      break;
    case ChannelKind::Doubled:
      for (Step& step : channel) step.minute -= step.minute % 20;
      SortSteps(channel);
      break;
    case ChannelKind::OneMinute:
      for (Step& step : channel)
        std::tie(step.hour, step.minute) = std::tie(channel[0].hour, channel[0].minute);
      break;
    case ChannelKind::FewMinutes: {
      const std::int32_t hours = 2 + Below(2);
      for (Step& step : channel) std::tie(step.hour, step.minute) = std::tuple(8 + Below(hours), 0);
      SortSteps(channel);
      break;
    }
    case ChannelKind::PastTheDay:
      SortSteps(channel);
      for (std::size_t i = channel.size() - channel.size() / 3; i < channel.size(); ++i) {
        std::tie(channel[i].hour, channel[i].minute) = std::tuple(24, static_cast<std::int32_t>(i));
      }
      break;
    case ChannelKind::Shuffled:
      for (std::size_t i = 0; i < channel.size(); ++i) {
        const auto minute = static_cast<std::int32_t>(i) + 600;
        std::tie(channel[i].hour, channel[i].minute) = std::tuple(minute / 60, minute % 60);
      }
      for (std::size_t i = 1; i < channel.size(); ++i) {
        if (Below(5) == 0) std::swap(channel[i - 1], channel[i]);
      }
      break;
    case ChannelKind::Unordered:
      break;
    case ChannelKind::OutOfRange:
      if (Below(2) == 0) SortSteps(channel);
      for (Step& step : channel) {
        if (Below(4) == 0) step.hour += Below(60) - 30;
        if (Below(6) == 0) step.minute += Below(400) - 200;
        if (Below(30) == 0) step.hour = Below(2) == 0 ? 2147483647 : -2147483647 - 1;
      }
      break;
    case ChannelKind::Descending:
      SortSteps(channel);
      std::reverse(channel.begin(), channel.end());
      break;
    case ChannelKind::WildValues:
      SortSteps(channel);
      for (Step& step : channel) {
        constexpr float kWild[] = {std::numeric_limits<float>::quiet_NaN(),
                                   std::numeric_limits<float>::infinity(),
                                   std::numeric_limits<float>::max(),
                                   -std::numeric_limits<float>::max(),
                                   2147483648.0F,
                                   -1.0F};
        if (Below(4) == 0) step.value = kWild[Below(static_cast<std::int32_t>(std::size(kWild)))];
      }
      break;
  }
  return channel;
}

Mode RandomProgram::AnyMode(std::int32_t mostSteps) {
  Mode mode;
  mode.name = "Any";
  for (Channel& channel : mode.channels) {
    const ChannelKind kind = kChannelKinds[Below(static_cast<std::int32_t>(std::size(kChannelKinds)))];
    channel = ChannelOf(kind, Below(5) == 0 ? Below(4) : Below(mostSteps + 1));
  }
  return mode;
}

Mode RandomProgram::AscendingMode(std::int32_t steps) {
  Mode mode;
  mode.name = "Ascending";
  for (Channel& channel : mode.channels) channel = ChannelOf(ChannelKind::Ascending, steps);
  return mode;
}

}  // namespace program_test
