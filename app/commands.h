#pragma once

// The table of commands, and the one place where they are carried out, whether they come from a menu item, a
// key, a button or a list. docs/how-to-add.md tells what a new command needs. User interface thread.

#include <span>
#include <vector>

#include "app/app_state.h"
#include "app/window/command.h"
#include "app/window/ports.h"

namespace app {

/// All commands, and below them what the controls say of themselves.
std::span<const Command> CommandTable();

/// What a shell makes its menu bar and its keys of.
std::vector<MenuPopup> MenuTable();
std::vector<Accelerator> AcceleratorTable();

class Commands {
 public:
  /// Both outlive the commands. Nothing is carried out before AppState::BuildControls.
  Commands(AppState& state, const Shell& shell) : state_(state), shell_(shell) {}

  /// Carries out a command or what a control says of itself, whether it is enabled or not, and shows what it
  /// has changed. Unknown numbers do nothing.
  void Dispatch(int number, int code);
  /// Carries out a command whose key was pressed, if it is enabled.
  void DispatchKey(int number);

 private:
  void Run(const Command& command, int number, bool fromKey);

  AppState& state_;
  const Shell& shell_;
};

}  // namespace app
