#pragma once

#include "app/app_state.h"
#include "app/window/ports.h"

namespace app {

/// What a handler works on, for as long as it runs.
struct CommandContext {
  AppState& state;
  const Shell& shell;
  int number;            // that was given; tells commands of one handler apart
  bool fromKey = false;  // by an accelerator key
};

/// A handler for one of several commands that differ by a value: `With<Align, 15>`.
template <auto kHandler, auto kArgument>
Changed With(CommandContext& context) {
  return kHandler(context, kArgument);
}

}  // namespace app
