#include "app/handlers/channel_commands.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/name_dialog.h"
#include "app/window/numbers.h"
#include "common/log.h"
#include "common/message.h"
#include "dialogs/dlg_add_steps.h"
#include "dialogs/dlg_mode_name.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "program/steps_text.h"

namespace app {

using namespace TCBase::Program;

namespace {

// How steps of a text get into a channel.
using TakeSteps = std::int32_t (*)(Channel& channel, std::string_view text);

// Asks for steps as text, beginning with `text`, and gives them to the channel.
Changed TypeSteps(const CommandContext& context, TextKey title, std::u16string text, TakeSteps take) {
  AppState& state = context.state;
  const Position place = DialogPlace(state.chartLayout.DialogAnchorChart());
  dialogs::AddStepsParams params{place.x, place.y, Message(title).ToWide(), std::move(text)};
  if (dialogs::DlgAddSteps(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  state.undoStack.Snapshot();
  const std::int32_t passedOver = take(*SelectedChannel(state.selection), Utf8FromWide(params.text));
  if (passedOver > 0) LogStatus(Message("Lines that are no steps and were passed over: {1}", passedOver));
  OptimizeMode(state.CurrentMode());
  return Changed::Yes;
}

std::size_t CountChannelSteps(const Mode& mode) {
  std::size_t count = 0;
  for (const Channel& channel : mode.channels) count += channel.size();
  return count;
}

Changed MoveSteps(AppState& state, void (*move)(StepSelection&), TextKey said) {
  if (SelectedChannel(state.selection) == nullptr) return Changed::No;
  state.undoStack.Snapshot();
  move(state.selection);
  LogStatus(Message(said));
  state.chartLayout.FocusLane(state.selection.channel);
  return Changed::Yes;
}

}  // namespace

Changed DeleteStep(CommandContext& context) {
  AppState& state = context.state;
  const std::size_t before = CountChannelSteps(state.CurrentMode());
  state.chartInput.OnKey(key::kDelete);
  if (CountChannelSteps(state.CurrentMode()) == before) return Changed::No;
  // The release of the key makes the entry of the history. From a menu no key is down, and from another
  // window's focus its release does not come here.
  if (context.fromKey && state.chartInput.WillSeeRelease()) return Changed::No;
  state.chartInput.OnKeyUp(key::kDelete);
  return Changed::Yes;
}

Changed ToggleJump(CommandContext& context) {
  context.state.chartInput.OnKey(key::kJ);
  return Changed::No;
}

Changed CopySteps(CommandContext& context) {
  CopyChannelSteps(context.state.selection, context.state.stepClipboard);
  LogStatus(Message("Copied steps to clipboard"));
  return Changed::Yes;
}

Changed PasteSteps(CommandContext& context) {
  if (!PasteChannelSteps(context.state.selection, context.state.stepClipboard)) return Changed::No;
  LogStatus(Message("Pasted steps from clipboard"));
  return Changed::Yes;
}

Changed MoveStepsUp(CommandContext& context) {
  return MoveSteps(context.state, MoveChannelUp, TextKey("Moved steps up"));
}

Changed MoveStepsDown(CommandContext& context) {
  return MoveSteps(context.state, MoveChannelDown, TextKey("Moved steps down"));
}

Changed ClearSteps(CommandContext& context) {
  ClearChannel(context.state.selection);
  LogStatus(Message("Cleared all steps"));
  return Changed::Yes;
}

Changed ChangeColor(CommandContext& context) {
  AppState& state = context.state;
  if (SelectedChannel(state.selection) == nullptr) return Changed::No;
  ChannelInfo& info = state.program.channelInfos.at(static_cast<std::size_t>(state.selection.channel));
  info.color = NextChannelColor(info.color);
  return Changed::Yes;
}

Changed RenameChannel(CommandContext& context) {
  AppState& state = context.state;
  if (SelectedChannel(state.selection) == nullptr) return Changed::No;
  ChannelInfo& info = state.program.channelInfos.at(static_cast<std::size_t>(state.selection.channel));
  dialogs::ModeNameParams params =
      NameDialog({TextKey("Edit channel name"), TextKey("Channel name (max 20 characters)"),
                  TextKey("Channel description"), kChannelNameLength},
                 DialogPlace(state.chartLayout.DialogAnchorChart()));
  params.name = WideFromUtf8(info.name);
  params.description = WideFromUtf8(info.description);
  if (dialogs::DlgModeName(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  state.undoStack.Snapshot();
  info.name = Utf8FromWide(params.name);
  info.description = Utf8FromWide(params.description);
  return Changed::Yes;
}

Changed AddTypedSteps(CommandContext& context) {
  if (SelectedChannel(context.state.selection) == nullptr) return Changed::No;
  return TypeSteps(context, TextKey("Manual steps add..."), {}, AddStepsFromText);
}

Changed EditTypedSteps(CommandContext& context) {
  const Channel* const channel = SelectedChannel(context.state.selection);
  if (channel == nullptr) return Changed::No;
  return TypeSteps(context, TextKey("Manual steps edit..."), StepsToText(*channel), ReplaceStepsFromText);
}

Changed ShowStepTable(CommandContext& context) {
  context.state.stepTable.Open();
  return Changed::No;
}

}  // namespace app
