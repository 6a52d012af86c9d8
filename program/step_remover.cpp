#include "program/step_remover.h"

#include <cstddef>
#include <cstdint>

#include "program/merged_steps.h"

namespace TCBase::Program {

StepRemover::ChannelErrors StepRemover::ErrorsOf(const Channel& channel) {
  if (OrderedErrors::Suits(channel)) return OrderedErrors(channel);
  return UnorderedErrors(channel);
}

StepRemover::StepRemover(const Mode& mode) : mode_(mode) {
  errors_.reserve(mode.channels.size());
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    const Channel& channel = mode.channels[c];
    errors_.push_back(ErrorsOf(channel));
    removed_[c].resize(channel.size());
    for (const Step& step : channel) {
      if (IsOnTheDay(step) && stepsOfMinute_[MinuteOnTheDay(step)]++ == 0) ++mergedSteps_;
    }
  }
}

StepRemoval StepRemover::Cheapest() const {
  StepRemoval cheapest;
  for (std::size_t c = 0; c < errors_.size(); ++c) {
    const RemovalRank rank = std::visit([](const auto& errors) { return errors.Cheapest(); }, errors_[c]);
    // Strictly lower, so that of equal errors the lower channel's goes first.
    if (!rank.IsStep() || (cheapest.step >= 0 && rank.Error() >= cheapest.error)) continue;
    cheapest = {static_cast<std::int32_t>(c), static_cast<std::int32_t>(rank.Index()), rank.Error()};
  }
  return cheapest;
}

void StepRemover::Remove(const StepRemoval& removal) {
  const auto c = static_cast<std::size_t>(removal.channel);
  const auto index = static_cast<std::uint32_t>(removal.step);
  std::visit([index](auto& errors) { errors.Remove(index); }, errors_[c]);
  removed_[c][index] = true;
  const Step& step = mode_.channels[c][index];
  if (IsOnTheDay(step) && --stepsOfMinute_[MinuteOnTheDay(step)] == 0) --mergedSteps_;
}

void StepRemover::ApplyTo(Mode& mode) const {
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    std::size_t index = 0;
    std::erase_if(mode.channels[c], [&](const Step&) { return static_cast<bool>(removed_[c][index++]); });
  }
}

}  // namespace TCBase::Program
