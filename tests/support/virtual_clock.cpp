#include "tests/support/virtual_clock.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <thread>

namespace {

constexpr std::int64_t kTicksPerSecond = 1'000'000;
constexpr std::int64_t kTicksPerMillisecond = kTicksPerSecond / 1000;
// For how long, in real time, a sleeper believes that a thread that does not sleep is at work.
constexpr std::chrono::milliseconds kPatience{2000};

struct Clock {
  std::mutex mutex;
  std::condition_variable changed;
  std::int64_t ticks = 0;
  std::uint64_t run = 0;              // counts the calls of Reset()
  std::uint64_t moves = 0;            // counts the times that time passed
  std::multiset<std::int64_t> goals;  // of those asleep
  int awake = 0;  // of the threads that have slept in this run, those neither asleep nor waiting
  std::multimap<std::int64_t, std::function<void()>> appointments;
  DateTime local{2026, 3, 14, 9, 26, 53, 589};
};

// Never destroyed: threads may end after everything else.
Clock& TheClock() {
  static Clock& clock = *new Clock;
  return clock;
}

// A thread that sleeps, or has slept, takes part in the run until it ends.
class Participant {
 public:
  Participant() = default;
  Participant(const Participant&) = delete;
  Participant& operator=(const Participant&) = delete;
  ~Participant() {
    Clock& clock = TheClock();
    const std::lock_guard lock(clock.mutex);
    if (!TakesPart(clock)) return;
    --clock.awake;
    clock.changed.notify_all();
  }

  // Under the clock's mutex, as the next.
  bool TakesPart(const Clock& clock) const { return takesPart_ && run_ == clock.run; }
  void Join(Clock& clock) {
    if (TakesPart(clock)) return;
    takesPart_ = true;
    run_ = clock.run;
    ++clock.awake;
  }

 private:
  bool takesPart_ = false;
  std::uint64_t run_ = 0;
};

Participant& Self() {
  thread_local Participant participant;
  return participant;
}

std::int64_t ToTicks(double seconds) {
  return static_cast<std::int64_t>(std::llround(seconds * static_cast<double>(kTicksPerSecond)));
}

// Lets time pass up to `goal`, with what is due on the way, and wakes those whose time has come. The caller
// counts as awake meanwhile; `lock` is free while an appointment is kept.
void PassTime(Clock& clock, std::unique_lock<std::mutex>& lock, std::int64_t goal) {
  const std::uint64_t run = clock.run;
  while (!clock.appointments.empty() && clock.appointments.begin()->first <= goal) {
    const auto next = clock.appointments.extract(clock.appointments.begin());
    if (next.key() > clock.ticks) clock.ticks = next.key();
    lock.unlock();
    next.mapped()();
    lock.lock();
    if (run != clock.run) return;
  }
  if (goal > clock.ticks) clock.ticks = goal;
  while (!clock.goals.empty() && *clock.goals.begin() <= clock.ticks) {
    clock.goals.erase(clock.goals.begin());
    ++clock.awake;
  }
  ++clock.moves;
  clock.changed.notify_all();
}

// Time passes to the earliest goal when all who take part are asleep, or when one that is not has kept still
// for so long that it must be waiting for something else.
void Sleep(std::int64_t ticks) {
  Clock& clock = TheClock();
  std::unique_lock lock(clock.mutex);
  Self().Join(clock);
  const std::uint64_t run = clock.run;
  const std::int64_t goal = clock.ticks + ticks;
  clock.goals.insert(goal);
  --clock.awake;
  while (run == clock.run && clock.ticks < goal) {
    const std::uint64_t moves = clock.moves;
    if (clock.awake > 0) {
      const bool idle = clock.changed.wait_for(lock, kPatience) == std::cv_status::timeout;
      if (!idle || run != clock.run || moves != clock.moves || clock.ticks >= goal) continue;
    }
    ++clock.awake;
    PassTime(clock, lock, *clock.goals.begin());
    if (run == clock.run) --clock.awake;
  }
}

std::atomic<bool> isAlone = false;

}  // namespace

namespace virtual_clock {

Alone::Alone() {
  isAlone = true;
}

Alone::~Alone() {
  isAlone = false;
}

Waiting::Waiting() {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  run_ = clock.run;
  counts_ = Self().TakesPart(clock);
  if (!counts_) return;
  --clock.awake;
  clock.changed.notify_all();
}

Waiting::~Waiting() {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  if (counts_ && run_ == clock.run) ++clock.awake;
}

void Reset() {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  clock.ticks = 0;
  ++clock.run;
  clock.goals.clear();
  clock.awake = 0;
  clock.appointments.clear();
  clock.local = {2026, 3, 14, 9, 26, 53, 589};
  clock.changed.notify_all();
}

double Seconds() {
  return static_cast<double>(platform::ClockTicks()) / static_cast<double>(kTicksPerSecond);
}

void Advance(double seconds) {
  Clock& clock = TheClock();
  std::unique_lock lock(clock.mutex);
  PassTime(clock, lock, clock.ticks + ToTicks(seconds));
}

void At(double seconds, std::function<void()> action) {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  clock.appointments.emplace(ToTicks(seconds), std::move(action));
}

void SetLocalTime(const DateTime& time) {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  clock.local = time;
}

}  // namespace virtual_clock

namespace platform {

std::int64_t ClockFrequency() {
  return kTicksPerSecond;
}

std::int64_t ClockTicks() {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  return clock.ticks;
}

void SleepMilliseconds(int milliseconds) {
  if (milliseconds > 0) Sleep(milliseconds * kTicksPerMillisecond);
  // A thread that sleeps in a loop must not starve the one it waits for.
  if (!isAlone) std::this_thread::yield();
}

DateTime LocalTime() {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  DateTime now = clock.local;
  const std::int64_t ms = (((now.hour * 60LL + now.minute) * 60 + now.second) * 1000 + now.millisecond +
                           clock.ticks / kTicksPerMillisecond) %
                          86'400'000;
  now.hour = static_cast<int>(ms / 3'600'000);
  now.minute = static_cast<int>(ms / 60'000 % 60);
  now.second = static_cast<int>(ms / 1000 % 60);
  now.millisecond = static_cast<int>(ms % 1000);
  return now;
}

}  // namespace platform
