#pragma once

// What the tests of changes share: a channel told in words, changed, and told again.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "program/change/mode_change.h"
#include "tests/program/program_fixture.h"

namespace program_test {

/// A mode of one channel with steps, numbered.
inline Mode GivenSingle(std::string_view steps) {
  Mode mode = GivenMode({steps});
  RenumberSteps(mode);
  return mode;
}

/// The first channel after a change of its steps; why not, if it is refused.
inline std::string After(std::string_view steps, const ModeChange& change, const ChangeScope& scope = {}) {
  Mode mode = GivenSingle(steps);
  const ChangeResult result = ChangeMode(mode, change, scope);
  if (result.refusal != ChangeRefusal::None)
    return "refused: " + std::to_string(static_cast<int>(result.refusal));
  return Told(mode.channels[0]);
}

inline constexpr int MinuteAt(int hour, int minute = 0) {
  return hour * 60 + minute;
}

inline ChangeScope Within(int from, int to) {
  ChangeScope scope;
  scope.span = TimeSpan{from, to};
  return scope;
}

/// Expects that the change is refused for this reason and the mode stays as it was, names and ids included.
inline void ExpectRefused(const Mode& mode, const ModeChange& change, const ChangeScope& scope,
                          ChangeRefusal reason) {
  Mode changed = mode;
  const ChangeResult result = ChangeMode(changed, change, scope);
  EXPECT_EQ(result.refusal, reason);
  EXPECT_FALSE(result.Changed());
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    EXPECT_EQ(changed.channels[c], mode.channels[c]);
    EXPECT_EQ(Serials(changed.channels[c]), Serials(mode.channels[c]));
  }
}

}  // namespace program_test
