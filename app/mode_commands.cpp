// Commands of the mode list, its two buttons, and of the Mode menu.

#include <cstddef>
#include <string>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "app/name_dialog.h"
#include "common/log.h"
#include "common/message.h"
#include "dialogs/dlg_mode_name.h"
#include "program/builtin_modes.h"
#include "program/mode_commands.h"

namespace app {

using namespace TCBase::Program;

void Commands::SelectMode(int) {
  const std::int32_t index = state_.ctrls->SelectedModeIndex();
  if (index >= 0 && index < static_cast<std::int32_t>(state_.program.modes.size())) {
    state_.program.currentMode = index;
  }
  state_.selection.channel = state_.selection.step = -1;
  state_.ctrls->ShowModeDescription();
  const Mode& mode = state_.CurrentMode();
  LogStatus(Message("Mode {1} steps count: {2}", mode.name, CountModeSteps(mode)));
  state_.powerControl->Update();
  state_.chartInput.InvalidateChart();
  shell_.mainWindow.TakeFocus();
}

dialogs::ModeNameParams Commands::ModeDialog(std::string_view title) {
  return NameDialog(
      {title, "Mode name (device will display first 7 characters only)", "Mode description", kModeNameLength},
      DialogPlace(state_.chartLayout.DialogAnchorTop()));
}

void Commands::AddMode(int) {
  dialogs::ModeNameParams params = ModeDialog("Add new mode");
  params.name = SuggestedModeName(state_.program);
  params.copyLabel = Message("Copy data from").ToWide();
  params.copySource = &state_.program;
  if (dialogs::DlgModeName(shell_.dialogs, params).DoModal() == dialogs::kOk) AppendMode(params);
  shell_.mainWindow.TakeFocus();
}

void Commands::AppendMode(const dialogs::ModeNameParams& params) {
  state_.undoStack.Snapshot();
  Mode mode;
  BuildNormalMode(mode);
  mode.name = Utf8FromWide(params.name);
  mode.description = Utf8FromWide(params.description);
  if (params.copyFrom >= 0) {
    mode.channels = state_.program.modes.at(static_cast<std::size_t>(params.copyFrom)).channels;
    RenumberSteps(mode);
  }
  state_.program.currentMode = static_cast<std::int32_t>(state_.program.modes.size());
  state_.selection.channel = state_.selection.step = -1;
  const std::string name = mode.name;
  state_.program.modes.push_back(std::move(mode));
  state_.ctrls->FillModeList();
  state_.chartInput.InvalidateChart();
  LogStatus(Message("Added new mode: {1}", name));
}

void Commands::EditMode(int) {
  Mode& mode = state_.CurrentMode();
  dialogs::ModeNameParams params = ModeDialog("Edit mode");
  params.name = WideFromUtf8(mode.name);
  params.description = WideFromUtf8(mode.description);
  if (dialogs::DlgModeName(shell_.dialogs, params).DoModal() == dialogs::kOk) {
    const std::string name = std::exchange(mode.name, Utf8FromWide(params.name));
    const std::string description = std::exchange(mode.description, Utf8FromWide(params.description));
    state_.ctrls->FillModeList();
    // No undo brings these back.
    if (mode.name != name) LogStatus(Message("Mode {1} was named {2}", mode.name, name));
    if (mode.description != description && !description.empty()) {
      LogStatus(Message("Description of mode {1} was: {2}", mode.name, description));
    }
  }
  shell_.mainWindow.TakeFocus();
}

void Commands::DeleteMode(int) {
  if (state_.program.modes.size() > 1) state_.undoStack.Snapshot();
  const std::string name = state_.CurrentMode().name;
  if (RemoveCurrentMode(state_.program)) {
    LogStatus(Message("Deleted mode: {1}", name));
    state_.ctrls->FillModeList();
    state_.chartInput.InvalidateChart();
  }
  shell_.mainWindow.TakeFocus();
}

void Commands::OptimizeForTC421(int) {
  TCBase::Program::OptimizeForTC421(state_.program);
  state_.chartInput.InvalidateChart();
  state_.ctrls->ShowModeDescription();
}

void Commands::AddEndpoint(int second) {
  state_.undoStack.BeginPending();
  if (AddEndpointSteps(state_.program, second)) {
    state_.undoStack.CommitPending();
    state_.chartInput.InvalidateChart();
    state_.ctrls->ShowModeDescription();
  } else {
    state_.undoStack.DropPending();
  }
}

void Commands::Align(int minutes) {
  AlignCurrentMode(state_.program, minutes);
  state_.chartInput.InvalidateChart();
  state_.ctrls->ShowModeDescription();
}

}  // namespace app
