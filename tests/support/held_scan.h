#pragma once

// A scan that stands still in its middle, for tests of what goes on meanwhile.

#include <condition_variable>
#include <mutex>
#include <vector>

#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

/// Holds up the next scan that somebody answers, as soon as the answer is under way: the port is in its hands
/// then. Takes the place of sim_network::SetAnswer.
class HeldScan {
 public:
  HeldScan() {
    sim_network::SetAnswer([this](const sim_network::Datagram& reply) {
      Plan();
      return std::vector{reply};
    });
  }
  HeldScan(const HeldScan&) = delete;
  HeldScan& operator=(const HeldScan&) = delete;
  /// The scan, if it still stands, goes on.
  ~HeldScan() {
    sim_network::SetAnswer(nullptr);
    LetGo();
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !isPlanned_ || isPast_; });
  }

  /// Whether it stands still now.
  bool IsHeld() const {
    const std::lock_guard lock(mutex_);
    return isHeld_;
  }
  void LetGo() {
    const std::lock_guard lock(mutex_);
    mayGo_ = true;
    changed_.notify_all();
  }

 private:
  void Plan() {
    const std::lock_guard lock(mutex_);
    if (isPlanned_) return;
    isPlanned_ = true;
    virtual_clock::At(virtual_clock::Seconds(), [this] { StandStill(); });
  }

  void StandStill() {
    const virtual_clock::Waiting forTest;
    std::unique_lock lock(mutex_);
    isHeld_ = true;
    changed_.wait(lock, [this] { return mayGo_; });
    isHeld_ = false;
    isPast_ = true;
    // Under the lock: whoever hears of it may take the object away.
    changed_.notify_all();
  }

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  // guarded by mutex_
  bool isPlanned_ = false;
  bool isHeld_ = false;
  bool isPast_ = false;
  bool mayGo_ = false;
};
