#include "program/step_gap.h"

#include <cmath>
#include <cstddef>

#include "program/merged_steps.h"

namespace TCBase::Program {

namespace {

constexpr std::int32_t kNoon = kSecondsPerDay / 2;

// Minutes from one step on to the other, over midnight if need be; the whole day from a step to itself.
std::int32_t MinutesBetween(const Step& from, const Step& to) {
  const auto minutes = static_cast<std::int32_t>(MinuteOfDay(to) - MinuteOfDay(from));
  return minutes > 0 ? minutes : minutes + kMinutesPerDay;
}

}  // namespace

std::optional<Step> StepInGap(const Channel& channel, std::int32_t index) {
  if (channel.empty()) return MakeStep(kNoon, 0.0F);
  const auto at = static_cast<std::size_t>(index);
  if (at >= channel.size()) return std::nullopt;
  const Step& before = channel[at];
  const Step& behind = channel[(at + 1) % channel.size()];
  if (!IsOnTheDay(before) || !IsOnTheDay(behind)) return std::nullopt;
  if (channel.size() > 1 && MinuteOfDay(before) == MinuteOfDay(behind)) return std::nullopt;
  const std::int32_t gap = MinutesBetween(before, behind);
  if (gap < 2) return std::nullopt;
  const std::int64_t second = RingSecond((MinuteOfDay(before) + gap / 2) * kSecondsPerMinute);
  const float value = ChannelValueAt(channel, second);
  Step step = MakeStep(second, std::isfinite(value) ? value : 0.0F);
  step.jump = before.jump;
  Normalize(step);
  return step;
}

}  // namespace TCBase::Program
