#pragma once

// How tests wait for something that goes on beside them: until it is so.

#include <chrono>
#include <functional>
#include <thread>

/// Longer than anything takes on a computer with much else to do.
inline constexpr std::chrono::seconds kPatience{120};

/// Looks every few milliseconds whether something is so. False if it is not before patience ends.
inline bool WaitUntil(const std::function<bool()>& isSo) {
  constexpr std::chrono::milliseconds kGlance{5};
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!isSo()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kGlance);
  }
  return true;
}
