// Changes of levels, and of the way to the next step.

#include <cmath>

#include "program/change/kinds.h"

namespace TCBase::Program {

namespace {

constexpr auto kFullPercent = static_cast<float>(kMostPercent);

// False for what is no number.
bool IsWithin(float value, float least, float most) {
  return value >= least && value <= most;
}

template <class Action>
void ForEachMeant(Draft& draft, Action action) {
  for (DraftStep& each : draft) {
    if (each.meant) action(each.step);
  }
}

}  // namespace

bool IsInRange(const ShiftPercent& change) {
  return IsWithin(change.percent, -kFullPercent, kFullPercent);
}

bool IsInRange(const ScalePercent& change) {
  return IsWithin(change.percent, 0.0F, kMostScalePercent) && IsWithin(change.about, 0.0F, kFullPercent);
}

bool IsInRange(const SetJump&) {
  return true;
}

bool IsInRange(const CopyToChannels& change) {
  return IsWithin(change.percent, 0.0F, kMostScalePercent);
}

bool IsInRange(const ThinOut& change) {
  return IsWithin(change.tolerance, 0.0F, kFullPercent);
}

bool IsInRange(const RoundPercents& change) {
  return change.percent >= 1 && change.percent <= kMostPercent;
}

void Apply(const ShiftPercent& change, Draft& draft) {
  ForEachMeant(draft, [&](Step& step) { step.value += change.percent; });
}

void Apply(const ScalePercent& change, Draft& draft) {
  const float factor = change.percent / kFullPercent;
  ForEachMeant(draft, [&](Step& step) { step.value = change.about + (step.value - change.about) * factor; });
}

void Apply(const SetJump& change, Draft& draft) {
  ForEachMeant(draft, [&](Step& step) { step.jump = change.jump; });
}

void Apply(const RoundPercents& change, Draft& draft) {
  const auto interval = static_cast<float>(change.percent);
  ForEachMeant(draft, [&](Step& step) {
    step.value = std::round(step.value / interval) * interval;
    if (step.value > kFullPercent) step.value -= interval;
  });
}

}  // namespace TCBase::Program
