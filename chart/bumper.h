#pragma once

// Animated values. A bumper knows a start, an end, a duration and a curve, and answers what its value is now
// whenever it is asked; nothing is stepped per frame, so a picture is right at any frame rate. User interface
// thread only.

#include <cstdint>
#include <initializer_list>
#include <memory>

#include "common/timer.h"

namespace misc {

/// Elapsed time as `now` tells it, the time of the present frame in seconds. The owner of `now` moves it on
/// once in each turn of the main loop. So all bumpers of one frame see the same instant, and asking them
/// reads no clock.
class TimerCore_MiscVal {
 public:
  /// `now` outlives the timer and all copies of it.
  explicit TimerCore_MiscVal(const double& now) : base(now), now_(&now) {}
  explicit TimerCore_MiscVal(const double&&) = delete;

  double Elapsed() const { return *now_ - base; }
  void Rebase() { base = *now_; }

  double base;  // `now` at the last rebase

 private:
  const double* now_;
};

}  // namespace misc

namespace bumper_base {

enum class BumperMode : std::int32_t {
  Once = 0,      // runs to the end and stays there
  Repeat = 1,    // starts over at each end
  PingPong = 2,  // there and back again
};

enum class BumperCurve : std::int32_t {
  Linear = 0,
  EaseIn = 1,      // slow start, fast end
  EaseOut = 2,     // fast start, slow end
  SteepEnds = 3,   // fast at the ends, flat in the middle
  SmoothEnds = 4,  // flat at the ends, fast in the middle
};

/// One animated float: a plain value, freely copied and kept in arrays.
template <class Timer>
class BumperT {
 public:
  BumperT() = default;
  /// Runs on a copy of `timer_`.
  explicit BumperT(const Timer& timer_) : timer(timer_) {}

  /// The present value, always between `from` and `to`. Allocates nothing. Keeps `goal` up to date.
  float Value();

  /// Seconds since the run began; negative during the delay.
  float RunTime() const { return static_cast<float>(timer.Now()) - delay; }

  BumperMode mode = BumperMode::Once;
  BumperCurve curve = BumperCurve::Linear;
  Timer timer;
  float from = 0.0F;
  float to = 0.0F;
  float duration = 0.0F;  // seconds for one run; zero or less: stands at `from`
  float delay = 0.0F;     // seconds of timer time before the run begins
  float exponent = 2.0F;  // power of the curves
  float goal = 0.0F;      // the end that the run is heading for; set together with `to`

 private:
  float RawValue();
  float Shape(float value) const;
};

/// Sends a bumper from where it is now to `to`, once, in `seconds`. With zero seconds it stays where it is.
template <class Timer>
void Retarget(BumperT<Timer>& bumper, float to, float seconds, BumperCurve curve) {
  bumper.from = bumper.Value();
  bumper.to = bumper.goal = to;
  bumper.duration = seconds;
  bumper.delay = 0.0F;
  bumper.mode = BumperMode::Once;
  bumper.curve = curve;
  bumper.timer.Reset();
}

/// Plays several bumpers one after the other; each one's delay says when its turn begins. The items belong to
/// the derived class.
template <class Bumper>
class BumperSequenceBase {
 public:
  virtual ~BumperSequenceBase() = default;
  BumperSequenceBase(const BumperSequenceBase&) = delete;
  BumperSequenceBase& operator=(const BumperSequenceBase&) = delete;

  /// The value of the active item, or of the last one when all are through. Zero if there are no items.
  virtual float Value();
  virtual bool IsFinished();
  /// The first item that still runs, or null. An item with no duration is passed over, one that repeats never
  /// ends.
  Bumper* FindActive();

 protected:
  BumperSequenceBase() = default;

  /// Makes `items` the sequence. They must outlive it.
  void SetItems(std::initializer_list<Bumper*> items);

 private:
  std::int64_t count_ = 0;
  std::unique_ptr<Bumper*[]> items_;
};

/// A value that rises, stays and falls.
template <class Bumper>
class BumperFader : public BumperSequenceBase<Bumper> {
 public:
  /// All three start as copies of `item`.
  explicit BumperFader(const Bumper& item) : fadeIn(item), hold(item), fadeOut(item) {
    this->SetItems({&fadeIn, &hold, &fadeOut});
  }

  /// Starts over: from `low` to `high`, and down to `end`, in `total` seconds altogether.
  void Start(float low, float high, float total, float fadeInTime, float fadeOutTime, float end);

  Bumper fadeIn;
  Bumper hold;
  Bumper fadeOut;
};

using FrameTimer = timer_base::TimerFeatures<misc::TimerCore_MiscVal>;
/// Values that change from frame to frame only.
using FrameBumper = BumperT<FrameTimer>;
/// Values that are set and read within one frame, in which `now` would not have moved.
using CounterBumper = BumperT<timer_base::TimerFeatures<TimerCore_Counter>>;

extern template class BumperT<FrameTimer>;
extern template class BumperT<timer_base::TimerFeatures<TimerCore_Counter>>;
extern template class BumperSequenceBase<FrameBumper>;
extern template class BumperFader<FrameBumper>;

/// The value of a popup. It fades in, stays and fades out, and pulses all the while.
class BumperPulsedFader {
 public:
  /// `now` is that of TimerCore_MiscVal, and outlives the fader.
  BumperPulsedFader(float low_, float high_, float pulseAmplitude_, const double& now);

  /// Goes from `low` to `high` and back as `fader` goes from 0 to 1 and back. The pulse is added to the
  /// height before `fader` scales that, and so it fades with the rest.
  float Value();

  float low;
  float high;
  // Seconds.
  float holdTime = 0.1F;
  float fadeInTime = 0.3F;
  float fadeOutTime = 0.5F;
  float pulsePeriod = 0.5F;
  float pulseAmplitude;
  FrameBumper pulse;
  BumperFader<FrameBumper> fader;
};

}  // namespace bumper_base
