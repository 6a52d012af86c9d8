#pragma once

namespace app {

/// Whether a running demo matters to a command, a menu or a control.
enum class When { Always, WithoutDemo, DuringDemo };

constexpr bool Allows(When when, bool demoRuns) {
  return when == When::Always || (when == When::DuringDemo) == demoRuns;
}

}  // namespace app
