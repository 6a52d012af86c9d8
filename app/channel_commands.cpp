// Commands of the Channel menu. They act on the selected channel; what stands of them without one is told in
// the table of commands.

#include <cstddef>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "app/name_dialog.h"
#include "app/numbers.h"
#include "common/log.h"
#include "common/message.h"
#include "dialogs/dlg_add_steps.h"
#include "dialogs/dlg_mode_name.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "program/steps_text.h"

namespace app {

using namespace TCBase::Program;

void Commands::DeleteStep(int) {
  const Channel* channel = SelectedChannel(state_.selection);
  const std::size_t before = channel != nullptr ? channel->size() : 0;
  state_.chartInput.OnKey(key::kDelete);
  if (channel == nullptr || channel->size() == before) return;
  // The release of the key makes the entry of the history. From a menu no key is down, and from another
  // window's focus its release does not come here.
  if (fromKey_ && state_.chartInput.WillSeeRelease()) return;
  state_.chartInput.OnKeyUp(key::kDelete);
  state_.powerControl->Update();
  state_.ctrls->ShowModeDescription();
}

void Commands::ToggleJump(int) {
  state_.chartInput.OnKey(key::kJ);
}

void Commands::CopySteps(int) {
  CopyChannelSteps(state_.selection, state_.stepClipboard);
  LogStatus(Message("Copied steps to clipboard"));
  state_.chartInput.InvalidateChart();
}

void Commands::PasteSteps(int) {
  if (!PasteChannelSteps(state_.selection, state_.stepClipboard)) return;
  LogStatus(Message("Pasted steps from clipboard"));
  state_.chartInput.InvalidateChart();
  state_.ctrls->ShowModeDescription();
}

void Commands::MoveSteps(int down) {
  if (SelectedChannel(state_.selection) == nullptr) return;
  state_.undoStack.Snapshot();
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
  state_.ctrls->ShowModeDescription();
}

void Commands::NextColor(int) {
  const std::int32_t channel = state_.selection.channel;
  if (SelectedChannel(state_.selection) != nullptr) {
    ChannelInfo& info = state_.program.channelInfos.at(static_cast<std::size_t>(channel));
    info.color = NextChannelColor(info.color);
    state_.chartInput.InvalidateLane(channel);
  }
  shell_.mainWindow.TakeFocus();
  state_.renderer->Rebuild();
}

void Commands::EditChannel(int) {
  if (SelectedChannel(state_.selection) == nullptr) return;
  ChannelInfo& info = state_.program.channelInfos.at(static_cast<std::size_t>(state_.selection.channel));
  dialogs::ModeNameParams params = NameDialog(
      {"Edit channel name", "Channel name (max 20 characters)", "Channel description", kChannelNameLength},
      DialogPlace(state_.chartLayout.DialogAnchorChart()));
  params.name = WideFromUtf8(info.name);
  params.description = WideFromUtf8(info.description);
  if (dialogs::DlgModeName(shell_.dialogs, params).DoModal() == dialogs::kOk) {
    state_.undoStack.Snapshot();
    info.name = Utf8FromWide(params.name);
    info.description = Utf8FromWide(params.description);
    state_.renderer->Rebuild();  // names are drawn into pictures
    state_.chartInput.InvalidateChart();
  }
  shell_.mainWindow.TakeFocus();
}

void Commands::AddManualSteps(int) {
  TypeSteps("Manual steps add...", TypedSteps::Added);
}

void Commands::EditManualSteps(int) {
  TypeSteps("Manual steps edit...", TypedSteps::InPlaceOfAll);
}

void Commands::TypeSteps(std::string_view title, TypedSteps use) {
  Channel* channel = SelectedChannel(state_.selection);
  if (channel == nullptr) return;
  const Point place = DialogPlace(state_.chartLayout.DialogAnchorChart());
  dialogs::AddStepsParams params{place.x, place.y, Message(title).ToWide(), {}};
  if (use == TypedSteps::InPlaceOfAll) params.text = StepsToText(*channel);
  if (dialogs::DlgAddSteps(shell_.dialogs, params).DoModal() == dialogs::kOk) {
    state_.undoStack.Snapshot();
    const auto takeSteps = use == TypedSteps::InPlaceOfAll ? ReplaceStepsFromText : AddStepsFromText;
    const std::int32_t passedOver = takeSteps(*channel, Utf8FromWide(params.text));
    if (passedOver > 0) LogStatus(Message("Lines that are no steps and were passed over: {1}", passedOver));
    OptimizeMode(state_.CurrentMode());
    state_.chartInput.InvalidateChart();
    state_.ctrls->ShowModeDescription();
  }
  shell_.mainWindow.TakeFocus();
}

}  // namespace app
