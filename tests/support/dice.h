#pragma once

// Chance that is the same on every machine and in every build: the distributions of the standard library are
// not.

#include <array>
#include <cstddef>
#include <cstdint>

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  /// Any number of 64 bits (the generator "SplitMix64").
  std::uint64_t Throw() {
    state_ += 0x9E3779B97F4A7C15;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31U);
  }
  /// 0 to count - 1; 0 for a count below 1.
  int Below(int count) {
    return count < 1 ? 0 : static_cast<int>(Throw() % static_cast<std::uint64_t>(count));
  }
  /// Both included.
  int Between(int least, int most) { return least + Below(most - least + 1); }
  bool OneIn(int count) { return Below(count) == 0; }
  template <class List>
  const auto& AnyOf(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
  }

 private:
  std::uint64_t state_;
};
