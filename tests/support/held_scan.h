#pragma once

// A scan that stands still in its middle, for tests of what goes on meanwhile.

#include <atomic>
#include <semaphore>
#include <vector>

#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

/// Holds up the next scan that somebody answers, as soon as the answer is under way: the port is in its hands
/// then. Takes the place of sim_network::SetAnswer.
class HeldScan {
 public:
  HeldScan() {
    sim_network::SetAnswer([this](const sim_network::Datagram& reply) {
      if (!isPlanned_.exchange(true)) virtual_clock::At(virtual_clock::Seconds(), [this] { StandStill(); });
      return std::vector{reply};
    });
  }
  HeldScan(const HeldScan&) = delete;
  HeldScan& operator=(const HeldScan&) = delete;
  ~HeldScan() { sim_network::SetAnswer(nullptr); }

  /// Whether it stands still now.
  bool IsHeld() const { return isHeld_; }
  /// Once, after it has been held.
  void LetGo() { go_.release(); }

 private:
  void StandStill() {
    isHeld_ = true;
    go_.acquire();
    isHeld_ = false;
  }

  std::atomic<bool> isPlanned_ = false;
  std::atomic<bool> isHeld_ = false;
  std::binary_semaphore go_{0};
};
