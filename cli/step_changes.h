#pragma once

// The changes of the edit command that are made to many steps at once, and the options that say to which.

#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/changes.h"
#include "program/change/mode_change.h"

namespace cli {

/// What the options say besides the change itself.
struct StepChangeOptions {
  std::optional<TCBase::Program::ChannelSet> channels;
  std::optional<int> from;  // minutes of the day
  std::optional<int> to;
  bool stopAtEnds = false;                            // with --shift-time
  std::optional<float> around;                        // with --scale
  std::optional<TCBase::Program::ModeChange> change;  // none for a change of another kind
};

/// Declares the changes in the group that takes exactly one, and what goes with them in the command. Each
/// sets `change` to what is to be done. `options` and `change` outlive the command.
void DeclareStepChanges(CLI::App& command, CLI::App& group, StepChangeOptions& options, Change& change);

/// What is wrong with options that do not go together; empty if nothing is.
std::string CheckStepChange(const StepChangeOptions& options);

}  // namespace cli
