#include "app/handlers/mode_commands.h"

#include <cstddef>
#include <string>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/name_dialog.h"
#include "common/log.h"
#include "common/message.h"
#include "dialogs/dlg_figures.h"
#include "dialogs/dlg_mode_name.h"
#include "program/builtin_modes.h"
#include "program/mode_commands.h"

namespace app {

using namespace TCBase::Program;

namespace {

dialogs::ModeNameParams ModeDialog(AppState& state, TextKey title) {
  return NameDialog({title, TextKey("Mode name (device will display first 7 characters only)"),
                     TextKey("Mode description"), kModeNameLength},
                    DialogPlace(state.chartLayout.DialogAnchorTop()));
}

void AppendNamedMode(AppState& state, const dialogs::ModeNameParams& params) {
  state.undoStack.Snapshot();
  Mode mode;
  BuildNormalMode(mode);
  mode.name = Utf8FromWide(params.name);
  mode.description = Utf8FromWide(params.description);
  if (params.copyFrom >= 0) {
    mode.channels = state.program.modes.at(static_cast<std::size_t>(params.copyFrom)).channels;
    RenumberSteps(mode);
  }
  LogStatus(Message("Added new mode: {1}", mode.name));
  ForgetSelection(state.selection);
  AppendMode(state.program, std::move(mode));
}

void Compare(UX::Comparison& comparison, UX::Comparison::With with) {
  comparison.with = comparison.with == with ? UX::Comparison::With::Nothing : with;
}

}  // namespace

Changed SelectMode(CommandContext& context) {
  AppState& state = context.state;
  const std::int32_t index = state.ctrls->SelectedModeIndex();
  if (index >= 0 && index < static_cast<std::int32_t>(state.program.modes.size())) {
    state.program.currentMode = index;
  }
  ForgetSelection(state.selection);
  const Mode& mode = state.CurrentMode();
  LogStatus(Message("Mode {1} steps count: {2}", mode.name, CountModeSteps(mode)));
  return Changed::Yes;
}

Changed AddMode(CommandContext& context) {
  AppState& state = context.state;
  dialogs::ModeNameParams params = ModeDialog(state, TextKey("Add new mode"));
  params.name = SuggestedModeName(state.program);
  params.copyLabel = Message("Copy data from").ToWide();
  params.copySource = &state.program;
  if (dialogs::DlgModeName(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  AppendNamedMode(state, params);
  return Changed::Yes;
}

Changed EditMode(CommandContext& context) {
  Mode& mode = context.state.CurrentMode();
  dialogs::ModeNameParams params = ModeDialog(context.state, TextKey("Edit mode"));
  params.name = WideFromUtf8(mode.name);
  params.description = WideFromUtf8(mode.description);
  if (dialogs::DlgModeName(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  const std::string name = std::exchange(mode.name, Utf8FromWide(params.name));
  const std::string description = std::exchange(mode.description, Utf8FromWide(params.description));
  // No undo brings these back.
  if (mode.name != name) LogStatus(Message("Mode {1} was named {2}", mode.name, name));
  if (mode.description != description && !description.empty()) {
    LogStatus(Message("Description of mode {1} was: {2}", mode.name, description));
  }
  return Changed::Yes;
}

Changed DeleteMode(CommandContext& context) {
  AppState& state = context.state;
  if (state.program.modes.size() > 1) state.undoStack.Snapshot();
  const std::string name = state.CurrentMode().name;
  if (!RemoveCurrentMode(state.program)) return Changed::No;
  LogStatus(Message("Deleted mode: {1}", name));
  return Changed::Yes;
}

Changed OptimizeModeForTC421(CommandContext& context) {
  OptimizeForTC421(context.state.program);
  return Changed::Yes;
}

Changed ShowFigures(CommandContext& context) {
  Settings& settings = context.shell.settings;
  dialogs::FiguresParams params{context.state.program, ReadLampFacts(settings)};
  if (dialogs::DlgFigures(context.shell.dialogs, params).DoModal() == dialogs::kOk)
    KeepLampFacts(settings, params.facts);
  return Changed::No;
}

Changed AddEndpoint(CommandContext& context, std::int32_t second) {
  UndoStack& undoStack = context.state.undoStack;
  undoStack.BeginPending();
  if (!AddEndpointSteps(context.state.program, second)) {
    undoStack.DropPending();
    return Changed::No;
  }
  undoStack.CommitPending();
  return Changed::Yes;
}

Changed Align(CommandContext& context, std::int32_t minutes) {
  AlignCurrentMode(context.state.program, minutes);
  return Changed::Yes;
}

Changed CompareWithSaved(CommandContext& context) {
  Compare(context.state.chartOverlay.comparison, UX::Comparison::With::Saved);
  return Changed::Yes;
}

Changed CompareWithThis(CommandContext& context) {
  UX::Comparison& comparison = context.state.chartOverlay.comparison;
  Compare(comparison, UX::Comparison::With::Kept);
  if (comparison.with == UX::Comparison::With::Kept) comparison.kept = context.state.CurrentMode();
  return Changed::Yes;
}

}  // namespace app
