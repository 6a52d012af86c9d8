#pragma once

// How much a random test does: little in every run of the tests, and what it is worth where somebody has
// asked for it by LUMARINE_LONG_RUNS=1, as `scripts/test --all` does.

#include <cstddef>
#include <cstdlib>

inline bool IsLongRun() {
  const char* asked = std::getenv("LUMARINE_LONG_RUNS");
  return asked != nullptr && *asked == '1';
}

/// Rounds of something: `brief` ones take a few seconds, `whole` ones as long as they take.
inline std::size_t Rounds(std::size_t brief, std::size_t whole) {
  return IsLongRun() ? whole : brief;
}
