#include "app/handlers/change_steps.h"

#include "app/document/preview.h"
#include "common/log.h"
#include "dialogs/dlg_change_steps.h"
#include "program/change/change_words.h"
#include "program/channel_edit.h"
#include "program/step_group.h"

namespace app {

using namespace TCBase::Program;

Changed ChangeSteps(CommandContext& context) {
  AppState& state = context.state;
  Preview preview(
      state.selection, state.undoStack, [&state](Parts parts) { state.Refresh(parts); },
      part::kChart | part::kDescription | part::kPower);
  ChangeResult result;
  dialogs::ChangeStepsParams params;
  params.beside = state.chartLayout.ChartWindowRect();
  params.selected = SelectedStepIds(state.selection, state.stepGroup);
  if (SelectedChannel(state.selection) != nullptr) params.channel = state.selection.channel;
  params.show = [&](const ModeChange& change, const ChangeScope& scope) {
    preview.Show([&](ModeListView& document) { result = ChangeMode(CurrentMode(document), change, scope); });
    return result;
  };
  params.takeBack = [&] { preview.TakeBack(); };
  if (dialogs::DlgChangeSteps(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  if (!preview.Keep()) return Changed::No;
  LogPlain(TellResult(result));
  return Changed::Yes;
}

}  // namespace app
