#pragma once

namespace app {

/// When a command may be given, a menu opens or a control is enabled.
enum class When { Always, WithoutDemo, DuringDemo };

constexpr bool Allows(When when, bool demoRuns) {
  return when == When::Always || (when == When::DuringDemo) == demoRuns;
}

}  // namespace app
