#include "chart/bumper.h"

#include <algorithm>
#include <cmath>

namespace bumper_base {

template <class Timer>
float BumperT<Timer>::Value() {
  if (!(duration > 0.0F)) return from;
  const float value = Shape(RawValue());
  return std::clamp(value, std::min(from, to), std::max(from, to));
}

template <class Timer>
float BumperT<Timer>::RawValue() {
  const float time = RunTime();
  if (!(time >= 0.0F)) return from;

  // Kept as a float: whole runs beyond the range of an integer are possible and must not matter.
  const float runs = std::trunc(time / duration);
  if (mode == BumperMode::Once && runs >= 1.0F) return to;

  float progress = (time - runs * duration) / duration;
  if (!std::isfinite(progress)) progress = 0.0F;
  const float distance = progress * (to - from);
  if (mode != BumperMode::PingPong) return from + distance;

  const bool onTheWayBack = std::fmod(runs, 2.0F) != 0.0F;
  goal = onTheWayBack ? from : to;
  return onTheWayBack ? to - distance : from + distance;
}

// The curves bend the value and not the time: `goal` tells which way it is going, so one formula serves a
// value that rises and one that falls.
template <class Timer>
float BumperT<Timer>::Shape(float value) const {
  const float span = std::fabs(to - from);
  if (span == 0.0F) return value;

  const auto towardsGoal = [&](float part) { return value > goal ? goal + part * span : goal - part * span; };
  // Position between the lower and the upper end, from -1 to 1.
  const float balance = 2.0F * std::fabs(value - std::min(from, to)) / span - 1.0F;
  // An even power has lost the sign of `balance`.
  const auto aroundMiddle = [&](float power) {
    const float side = balance < 0.0F && power > 0.0F ? -power : power;
    return (side + 1.0F) * 0.5F * span + std::min(from, to);
  };

  const float left = std::fabs(goal - value) / span;
  switch (curve) {
    case BumperCurve::EaseIn:
      return towardsGoal(1.0F - std::pow(1.0F - left, exponent));
    case BumperCurve::EaseOut:
      return towardsGoal(std::pow(left, exponent));
    case BumperCurve::SteepEnds:
      return aroundMiddle(std::pow(balance, exponent));
    case BumperCurve::SmoothEnds:
      return aroundMiddle(1.0F - std::pow(balance > 0.0F ? 1.0F - balance : balance + 1.0F, exponent));
    case BumperCurve::Linear:
      break;
  }
  return value;
}

template <class Bumper>
void BumperSequenceBase<Bumper>::SetItems(std::initializer_list<Bumper*> items) {
  items_ = std::make_unique<Bumper*[]>(items.size());
  std::copy(items.begin(), items.end(), items_.get());
  count_ = static_cast<std::int64_t>(items.size());
}

template <class Bumper>
Bumper* BumperSequenceBase<Bumper>::FindActive() {
  for (std::int64_t i = 0; i < count_; ++i) {
    Bumper* const item = items_[static_cast<std::size_t>(i)];
    if (!(item->duration > 0.0F)) continue;
    if (item->mode != BumperMode::Once || item->RunTime() <= item->duration) return item;
  }
  return nullptr;
}

template <class Bumper>
float BumperSequenceBase<Bumper>::Value() {
  if (Bumper* const active = FindActive()) return active->Value();
  return count_ > 0 ? items_[static_cast<std::size_t>(count_ - 1)]->Value() : 0.0F;
}

template <class Bumper>
bool BumperSequenceBase<Bumper>::IsFinished() {
  return FindActive() == nullptr;
}

namespace {

template <class Bumper>
void Prepare(Bumper& item, float from, float to, float duration, float delay, BumperCurve curve) {
  item.mode = BumperMode::Once;
  item.curve = curve;
  item.from = from;
  item.to = item.goal = to;
  item.duration = duration;
  item.delay = delay;
  item.timer.Reset();
}

}  // namespace

template <class Bumper>
void BumperFader<Bumper>::Start(float low, float high, float total, float fadeInTime, float fadeOutTime,
                                float end) {
  Prepare(fadeIn, low, high, fadeInTime, 0.0F, BumperCurve::EaseOut);
  Prepare(hold, high, high, total - fadeInTime - fadeOutTime, fadeIn.delay + fadeIn.duration,
          BumperCurve::Linear);
  Prepare(fadeOut, high, end, fadeOutTime, hold.delay + hold.duration, BumperCurve::EaseIn);
}

template class BumperT<FrameTimer>;
template class BumperT<timer_base::TimerFeatures<TimerCore_Counter>>;
template class BumperSequenceBase<FrameBumper>;
template class BumperFader<FrameBumper>;

BumperPulsedFader::BumperPulsedFader(float low_, float high_, float pulseAmplitude_, const double& now)
    : low(low_), high(high_), pulseAmplitude(pulseAmplitude_), pulse(FrameTimer(now)), fader(pulse) {
  pulse.mode = BumperMode::PingPong;
  pulse.curve = BumperCurve::SmoothEnds;
  pulse.to = pulse.goal = pulseAmplitude;
  pulse.duration = pulsePeriod;
  pulse.timer.Reset();
}

float BumperPulsedFader::Value() {
  if (low == high) return low;
  return fader.Value() * (pulse.Value() + (high - low)) + low;
}

}  // namespace bumper_base
