#pragma once

// The clock that the unit tests link: time passes when somebody sleeps, and only then. A 60-second demo takes
// milliseconds, and every moment in it is exact.
//
// Of several threads nobody is overtaken: time passes when all who have slept since Reset() sleep again, up
// to the earliest of their goals. So a thread that listens for a second loses none of it to a busy machine.
// One that stays awake while nothing happens for two seconds of real time is taken to wait for another, and
// counts as asleep; so long, since a busy machine may keep a thread waiting. Whoever is known to wait says so
// by Waiting.

#include <cstdint>
#include <functional>

#include "common/platform.h"

namespace virtual_clock {

/// Starts over: the counter at zero, the local time as below, no appointments. Call it at the start of a
/// test.
void Reset();

/// Seconds since Reset(). Any thread.
double Seconds();

/// Lets time pass without anybody sleeping.
void Advance(double seconds);

/// Runs `action` on the thread whose sleep reaches `seconds` since Reset(), at exactly that moment. Actions
/// may call anything but SleepMilliseconds. Appointments of one moment run in the order they were made.
void At(double seconds, std::function<void()> action);

/// While one lives, only one thread sleeps and nobody waits for another: a sleep then does not let others
/// run, which on a busy machine takes longer than all else. For tests of many thousand sleeps.
class Alone {
 public:
  Alone();
  ~Alone();
  Alone(const Alone&) = delete;
  Alone& operator=(const Alone&) = delete;
};

/// While one lives, its thread waits for another and holds up no time.
class Waiting {
 public:
  Waiting();
  ~Waiting();
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;

 private:
  bool counts_ = false;
  std::uint64_t run_ = 0;
};

/// What platform::LocalTime() answers at Reset() and onward; it moves with the clock, within one day.
void SetLocalTime(const DateTime& time);

}  // namespace virtual_clock
