// Commands of the Edit, Channel and Mode menus, of the mode list, and of the view.

#include <string>

#include "app/commands.h"
#include "common/log.h"
#include "common/message.h"
#include "program/channel_edit.h"
#include "program/mode_commands.h"

namespace app {

using namespace TCBase::Program;

void Commands::UndoChange(int) {
  if (!state_.undoStack.Undo()) return;
  LogStatus(Message("Undo"));
  RefreshAfterHistory();
}

void Commands::RedoChange(int) {
  if (!state_.undoStack.Redo()) return;
  LogStatus(Message("Redo"));
  RefreshAfterHistory();
}

void Commands::RefreshAfterHistory() {
  state_.ctrls->FillModeList();
  state_.powerControl->Update();
  state_.chartInput.InvalidateChart();
}

void Commands::ChartKey(int key) {
  state_.chartInput.OnKey(key);
}

void Commands::CopySteps(int) {
  CopyChannelSteps(state_.selection);
  LogStatus(Message("Copied steps to clipboard"));
  state_.chartInput.InvalidateChart();
}

void Commands::PasteSteps(int) {
  if (!PasteChannelSteps(state_.selection)) return;
  LogStatus(Message("Pasted steps from clipboard"));
  state_.chartInput.InvalidateChart();
}

void Commands::MoveSteps(int down) {
  if (down != 0) {
    MoveChannelDown(state_.selection);
  } else {
    MoveChannelUp(state_.selection);
  }
  LogStatus(Message(down != 0 ? "Moved steps down" : "Moved steps up"));
  state_.chartInput.InvalidateChart();
  state_.chartLayout.FocusLane(state_.selection.channel);
}

void Commands::ClearSteps(int) {
  ClearChannel(state_.selection);
  LogStatus(Message("Cleared all steps"));
  state_.chartInput.InvalidateChart();
}

void Commands::NextColor(int) {
  const std::int32_t channel = state_.selection.channel;
  if (SelectedChannel(state_.selection) != nullptr) {
    ChannelInfo& info = state_.program.channelInfos.at(static_cast<std::size_t>(channel));
    info.color = NextChannelColor(info.color);
    state_.chartInput.InvalidateLane(channel);
  }
  state_.renderer->Rebuild();
}

void Commands::OptimizeForTC421(int) {
  TCBase::Program::OptimizeForTC421(state_.program);
  state_.chartInput.InvalidateChart();
}

void Commands::AddEndpoint(int second) {
  state_.undoStack.BeginPending();
  if (AddEndpointSteps(state_.program, second)) {
    state_.undoStack.CommitPending();
    state_.chartInput.InvalidateChart();
  } else {
    state_.undoStack.DropPending();
  }
}

void Commands::Align(int minutes) {
  AlignCurrentMode(state_.program, minutes);
  state_.chartInput.InvalidateChart();
  state_.ctrls->ShowModeDescription();
}

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

void Commands::ZoomIn(int) {
  state_.viewControl->ZoomIn();
}

void Commands::ZoomOut(int) {
  state_.viewControl->ZoomOut();
}

void Commands::ShowHours(int hours) {
  state_.viewControl->ShowHours(static_cast<float>(hours));
}

void Commands::Pan(int seconds) {
  state_.viewControl->Pan(seconds);
}

}  // namespace app
