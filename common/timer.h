#pragma once

// Clocks that can be set, frozen and restarted. Bumpers (chart/bumper.h), the worker's polls and the demo run
// on them. Not shared between threads.

#include <cstdint>

#include "common/platform.h"

/// Elapsed time by the platform's counter: moves on by itself.
class TimerCore_Counter {
 public:
  TimerCore_Counter() : frequency(platform::ClockFrequency()), base(platform::ClockTicks()) {}

  /// Seconds since the last Rebase().
  double Elapsed() const {
    return static_cast<double>(platform::ClockTicks() - base) / static_cast<double>(frequency);
  }
  void Rebase() { base = platform::ClockTicks(); }

  std::int64_t frequency;  // ticks per second
  std::int64_t base;       // counter at the last rebase
};

namespace timer_base {

/// A timer over a core that supplies elapsed seconds.
template <class Core>
class TimerFeatures : public Core {
 public:
  using Core::Core;

  /// The seconds that the timer shows.
  double Now() const { return frozen >= 0.0 ? frozen : this->Elapsed() * scale + start; }

  /// Runs on from zero.
  void Reset() { RunFrom(0.0); }

  /// Stops at the present value. A frozen timer stays as it is.
  void Freeze() { frozen = Now(); }

  /// Runs on from `seconds`. A negative value only marks the timer as running: a frozen one goes on from its
  /// old base and so jumps forward by the time that it stood still.
  void Restart(double seconds) {
    frozen = seconds;
    if (seconds >= 0.0) RunFrom(seconds);
  }

  /// Stands still at zero.
  void Stop() {
    Freeze();
    frozen = 0.0;
  }

  /// Stopped, showing exactly `frozen`.
  bool IsFrozen() const { return frozen >= 0.0; }

  double start = 0.0;    // seconds shown when the core's elapsed time is zero
  double scale = 1.0;    // rate
  double frozen = -1.0;  // negative: running; else the value shown

 private:
  void RunFrom(double seconds) {
    frozen = -1.0;
    start = seconds;
    this->Rebase();
  }
};

}  // namespace timer_base
