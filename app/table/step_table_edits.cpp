// What the user changes in the window.

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/table/step_cells.h"
#include "app/table/step_clipboard.h"
#include "app/table/step_table.h"
#include "common/log.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "program/step_gap.h"
#include "program/step_group.h"

namespace app {

using namespace TCBase::Program;

namespace {

// What is wrong with a text for a cell; nothing if it is right, and the step has it then.
std::optional<Message> Type(Step& step, int column, std::string_view text) {
  if (column == table_column::kTime) {
    const auto time = TimeFromText(text);
    if (!time) return Message("This is no time: type it as 8:30 or 0830, from 00:00 to 23:59.");
    SetTime(step, *time);
  } else if (column == table_column::kPercent) {
    const auto percent = PercentFromText(text);
    if (!percent) return Message("This is no percent: type a number from 0 to 100.");
    step.value = *percent;
  } else {
    const auto jump = JumpFromText(text);
    if (!jump) return Message("Type \"fade\" or \"jump\" here.");
    step.jump = *jump;
  }
  return std::nullopt;
}

// Steps of the same minute give way to the new ones.
void PutIn(Channel& channel, const Channel& steps) {
  std::erase_if(channel, [&steps](const Step& old) {
    return std::ranges::any_of(steps,
                               [&old](const Step& step) { return MinuteOfDay(step) == MinuteOfDay(old); });
  });
  for (const Step& step : steps) InsertStepSorted(channel, step);
}

void LogAdded(const Step& step, int count) {
  LogStatus(Message("Added new step {1}. Current number of steps: {2}", ToDescription(step), count));
  if (count != kManyModeSteps + 1) return;
  LogWarning(Message("You have added more than {1} steps. For more information check the \"Help / Known "
                     "issues\" information.",
                     kManyModeSteps)
                 .utf8());
}

void LogDeleted(const StepsDeleted& result, int count) {
  if (result.kept > 0) LogStatus(Message("Unable to delete step. Minimum 2 steps per channel is required."));
  if (result.deleted > 1) {
    LogStatus(Message("Deleted steps: {1}. Current number of steps: {2}", result.deleted, count));
  } else {
    LogStatus(Message("Step deleted. Current number of steps: {1}", count));
  }
}

std::int32_t RowAt(const Channel& channel, std::int64_t minute) {
  const auto found =
      std::ranges::find_if(channel, [minute](const Step& step) { return MinuteOfDay(step) == minute; });
  return found == channel.end() ? -1 : static_cast<std::int32_t>(found - channel.begin());
}

std::int32_t RowOf(const Channel& channel, std::uint32_t id) {
  const auto found = std::ranges::find(channel, id, &Step::id);
  return found == channel.end() ? -1 : static_cast<std::int32_t>(found - channel.begin());
}

// What the clipboard has of the channel's rows.
Channel StepsOf(const Channel& channel, const std::vector<std::int32_t>& rows) {
  Channel steps;
  for (const std::int32_t row : rows) steps.push_back(channel.at(static_cast<std::size_t>(row)));
  return steps;
}

}  // namespace

void StepTable::Say(Message message) {
  window_.SetFault(message.ToWide());
}

void StepTable::SayTooMany() {
  const Message told("Unable to add new step. Maximum number of {1} steps for the current mode reached",
                     kMaxModeSteps);
  LogStatus(told);
  Say(told);
}

bool StepTable::MayChange() {
  if (demo_.IsRunning()) return Say(Message("While a demo plays the steps stay as they are.")), false;
  return mainWindow_.TakesInput() && ShownChannel() != nullptr;
}

std::vector<std::int32_t> StepTable::SelectedRows() const {
  std::vector<std::int32_t> rows;
  const Channel* const channel = ShownChannel();
  if (channel == nullptr || selection_.channel != channel_) return rows;
  for (const Step& step : *channel) {
    if (IsStepSelected(selection_, group_, step))
      rows.push_back(static_cast<std::int32_t>(&step - channel->data()));
  }
  return rows;
}

void StepTable::SelectOnly(const std::vector<std::int32_t>& rows, std::int32_t current) {
  std::vector<std::uint32_t> ids;
  for (const Step& step : StepsOf(*ShownChannel(), rows)) ids.push_back(step.id);
  group_.Set(ids.size() > 1 ? std::move(ids) : std::vector<std::uint32_t>{});
  selection_.channel = channel_;
  selection_.step = current;
}

bool StepTable::Replace(Channel channel) {
  Mode& mode = CurrentMode(program_);
  Mode changed = mode;
  changed.channels.at(static_cast<std::size_t>(channel_)) = std::move(channel);
  const int rows = CountModeSteps(changed);
  if (rows > kMaxModeSteps && rows > CountModeSteps(mode)) return SayTooMany(), false;
  undoStack_.Snapshot();
  mode.channels = std::move(changed.channels);
  return true;
}

void StepTable::Show() {
  chartLayout_.FocusLane(channel_);
  refresh_(part::kChart | part::kPower | part::kDescription);
}

bool StepTable::OnTyped(std::int32_t row, int column, std::u16string_view text, bool goesOn) {
  if (!MayChange()) return false;
  Channel channel = *ShownChannel();
  const auto index = static_cast<std::size_t>(row);
  if (index >= channel.size()) return false;
  Step& step = channel[index];
  const bool isAsShown = StepCells(step).at(static_cast<std::size_t>(column)) == text;
  if (!isAsShown) {
    if (const auto fault = Type(step, column, Utf8FromWide(text))) return Say(*fault), false;
  }
  const bool isNew = step != ShownChannel()->at(index);
  const std::uint32_t id = step.id;
  if (isNew && !ReplaceStep(std::move(channel), index)) return false;
  window_.SetFault({});
  const std::int32_t now = isNew ? RowOf(*ShownChannel(), id) : row;
  SelectOnly({now}, now);
  if (goesOn) return GoOn(), true;
  return Show(), true;
}

bool StepTable::ReplaceStep(Channel channel, std::size_t row) {
  const Step step = channel[row];
  const bool hasMoved = MinuteOfDay(step) != MinuteOfDay(ShownChannel()->at(row));
  if (hasMoved && RowAt(*ShownChannel(), MinuteOfDay(step)) >= 0) {
    return Say(Message("There is a step at {1} already.", ToTimeText(step))), false;
  }
  SortSteps(channel);
  if (!Replace(std::move(channel))) return false;
  LogStatus(Message("Step {1}", ToDescription(step)));
  return true;
}

void StepTable::GoOn() {
  const Channel* const channel = ShownChannel();
  if (channel == nullptr) return;
  const std::int32_t next = std::min(selection_.channel == channel_ ? selection_.step + 1 : 0,
                                     static_cast<std::int32_t>(channel->size()) - 1);
  if (next >= 0) SelectOnly({next}, next);
  Show();
}

void StepTable::SelectAll() {
  const Channel* const channel = ShownChannel();
  if (channel == nullptr || channel->empty()) return;
  std::vector<std::int32_t> rows(channel->size());
  std::iota(rows.begin(), rows.end(), 0);
  const bool isHere = selection_.channel == channel_ && SelectedStep(selection_) != nullptr;
  SelectOnly(rows, isHere ? selection_.step : 0);
  Show();
}

void StepTable::Insert() {
  if (!MayChange()) return;
  Channel channel = *ShownChannel();
  const std::vector<std::int32_t> rows = SelectedRows();
  const auto last = static_cast<std::int32_t>(channel.size()) - 1;
  if (CountModeSteps(CurrentMode(program_)) >= kMaxModeSteps) return SayTooMany();
  const std::optional<Step> step = StepInGap(channel, rows.empty() ? last : selection_.step);
  if (!step) return Say(Message("No minute is free behind this step."));
  InsertStepSorted(channel, *step);
  if (!Replace(std::move(channel))) return;
  LogAdded(*step, CountModeSteps(CurrentMode(program_)));
  const std::int32_t row = RowAt(*ShownChannel(), MinuteOfDay(*step));
  SelectOnly({row}, row);
  Show();
}

bool StepTable::MayDelete(const std::vector<std::int32_t>& rows) {
  if (!MayChange() || rows.empty()) return false;
  if (ShownChannel()->size() > kMinChannelSteps) return true;
  const Message told("Unable to delete step. Minimum 2 steps per channel is required.");
  LogStatus(told);
  Say(told);
  return false;
}

void StepTable::DeleteRows(const std::vector<std::int32_t>& rows) {
  // Of a group that was selected on the chart only what stands in these rows.
  SelectOnly(rows, selection_.step);
  undoStack_.Snapshot();
  const StepsDeleted result = DeleteSelectedSteps(selection_, group_);
  const std::int32_t next = std::min(rows.front(), static_cast<std::int32_t>(ShownChannel()->size()) - 1);
  SelectOnly({next}, next);
  LogDeleted(result, CountModeSteps(CurrentMode(program_)));
  Show();
}

void StepTable::Delete() {
  if (const std::vector<std::int32_t> rows = SelectedRows(); MayDelete(rows)) DeleteRows(rows);
}

void StepTable::ToggleJumps() {
  const std::vector<std::int32_t> rows = SelectedRows();
  if (!MayChange() || rows.empty()) return;
  SelectOnly(rows, selection_.step);
  undoStack_.Snapshot();
  SetSelectedJumps(selection_, group_, !SelectedStep(selection_)->jump);
  LogStatus(Message("Step jump toggle"));
  Show();
}

void StepTable::Copy() {
  const std::vector<std::int32_t> rows = SelectedRows();
  if (rows.empty()) return;
  window_.SetClipboard(StepsForClipboard(StepsOf(*ShownChannel(), rows)));
  LogStatus(Message("Copied steps to clipboard"));
}

void StepTable::Cut() {
  const std::vector<std::int32_t> rows = SelectedRows();
  if (!MayDelete(rows)) return;
  Copy();
  DeleteRows(rows);
}

void StepTable::Paste() {
  if (!MayChange()) return;
  const PastedSteps pasted = StepsFromClipboard(window_.Clipboard());
  if (pasted.wrongLine > 0) return Say(Message("Line {1} of the clipboard is no step.", pasted.wrongLine));
  if (pasted.steps.empty()) return Say(Message("There are no steps on the clipboard."));
  Channel channel = *ShownChannel();
  PutIn(channel, pasted.steps);
  if (!Replace(std::move(channel))) return;
  LogStatus(Message("Pasted steps from clipboard"));
  std::vector<std::int32_t> rows;
  for (const Step& step : pasted.steps) rows.push_back(RowAt(*ShownChannel(), MinuteOfDay(step)));
  std::ranges::sort(rows);
  SelectOnly(rows, rows.front());
  Show();
}

}  // namespace app
