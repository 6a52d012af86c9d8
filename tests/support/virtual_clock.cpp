#include "tests/support/virtual_clock.h"

#include <atomic>
#include <cmath>
#include <map>
#include <mutex>
#include <thread>

namespace {

constexpr std::int64_t kTicksPerSecond = 1'000'000;
constexpr std::int64_t kTicksPerMillisecond = kTicksPerSecond / 1000;

struct Clock {
  std::mutex mutex;
  std::int64_t ticks = 0;
  std::multimap<std::int64_t, std::function<void()>> appointments;
  DateTime local{2026, 3, 14, 9, 26, 53, 589};
};

Clock& TheClock() {
  static Clock clock;
  return clock;
}

std::int64_t ToTicks(double seconds) {
  return static_cast<std::int64_t>(std::llround(seconds * static_cast<double>(kTicksPerSecond)));
}

void AdvanceTicks(std::int64_t ticks) {
  Clock& clock = TheClock();
  std::unique_lock lock(clock.mutex);
  const std::int64_t goal = clock.ticks + ticks;
  while (!clock.appointments.empty() && clock.appointments.begin()->first <= goal) {
    const auto next = clock.appointments.extract(clock.appointments.begin());
    if (next.key() > clock.ticks) clock.ticks = next.key();
    lock.unlock();
    next.mapped()();
    lock.lock();
  }
  if (goal > clock.ticks) clock.ticks = goal;
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

void Reset() {
  Clock& clock = TheClock();
  const std::lock_guard lock(clock.mutex);
  clock.ticks = 0;
  clock.appointments.clear();
  clock.local = {2026, 3, 14, 9, 26, 53, 589};
}

double Seconds() {
  return static_cast<double>(platform::ClockTicks()) / static_cast<double>(kTicksPerSecond);
}

void Advance(double seconds) {
  AdvanceTicks(ToTicks(seconds));
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
  if (milliseconds > 0) AdvanceTicks(milliseconds * kTicksPerMillisecond);
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
