// What the window shows, and its keys.

#include "app/table/step_table.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/table/step_cells.h"
#include "app/table/step_clipboard.h"
#include "app/window/numbers.h"
#include "chart/static_labels.h"
#include "common/log.h"
#include "program/channel_edit.h"

namespace app {

using namespace TCBase::Program;

namespace {

// Not a number is the same as itself here: what was shown needs no showing.
bool LooksSame(const Step& a, const Step& b) {
  return a == b || (a.hour == b.hour && a.minute == b.minute && a.jump == b.jump && a.value != a.value &&
                    b.value != b.value);
}

bool LookSame(const Channel& a, const Channel& b) {
  return std::ranges::equal(a, b, LooksSame);
}

std::vector<TableRow> MergedCellsOf(const Mode& mode) {
  std::vector<ModeStep> rows;
  CollectModeSteps(mode, rows);
  std::vector<TableRow> cells;
  for (const ModeStep& row : rows) cells.push_back(MergedCells(row));
  return cells;
}

}  // namespace

StepTable::StepTable(const StepTableParts& parts)
    : window_(parts.window),
      mainWindow_(parts.mainWindow),
      program_(parts.program),
      selection_(parts.selection),
      group_(parts.group),
      undoStack_(parts.undoStack),
      chartLayout_(parts.chartLayout),
      demo_(parts.demo),
      refresh_(parts.refresh) {}

void StepTable::Open() {
  window_.Open();
  if (std::exchange(open_, true)) return;
  shown_.reset();
  Follow();
}

void StepTable::Close() {
  if (std::exchange(open_, false)) window_.Close();
}

void StepTable::ShowAnew() {
  shown_.reset();
  Follow();
}

Channel* StepTable::ShownChannel() const {
  return SelectedChannel({program_, channel_, -1});
}

void StepTable::Follow() {
  const Mode* const mode = FindCurrentMode(program_);
  if (!open_ || mode == nullptr) return;
  if (SelectedChannel(selection_) != nullptr) channel_ = selection_.channel;
  const bool named = shown_ && ShowsNames(*mode);
  const bool listed = named && ShowsSteps(*mode);
  if (!shown_) shown_.emplace();
  if (!named) ShowNames(*mode);
  if (!listed) ShowSteps(*mode);
  shown_->channel = channel_;
  if (TableSelection selection = SelectionToShow(); !listed || selection != shown_->selection) {
    window_.SetSelection(selection);
    shown_->selection = std::move(selection);
  }
}

bool StepTable::ShowsNames(const Mode& mode) const {
  return shown_->channel == channel_ && shown_->modeName == mode.name &&
         std::ranges::equal(shown_->channelNames, program_.channelInfos, {}, {}, &ChannelInfo::name);
}

bool StepTable::ShowsSteps(const Mode& mode) const {
  return std::ranges::equal(shown_->channels, mode.channels, LookSame);
}

void StepTable::ShowNames(const Mode& mode) {
  TableRow merged{Message("Time").ToWide()};
  for (std::int32_t channel = 0; channel < kChannelCount; ++channel) {
    shown_->channelNames.at(static_cast<std::size_t>(channel)) =
        program_.channelInfos.at(static_cast<std::size_t>(channel)).name;
    merged.push_back(WideFromUtf8(UX::ShownChannelName(program_, channel)));
  }
  shown_->modeName = mode.name;
  const std::string name = UX::ShownChannelName(program_, channel_);
  window_.SetTitle(Message("Step table: {1}, {2}", mode.name, name).ToWide());
  window_.SetHeadings(
      TableSheet::Steps, WideFromUtf8(name),
      {Message("Time").ToWide(), Message("Percent").ToWide(), Message("To the next").ToWide()});
  mergedColumns_ = std::move(merged);
}

void StepTable::ShowSteps(const Mode& mode) {
  // What was typed or asked for wrongly was so of other steps.
  window_.SetFault({});
  shown_->channels = mode.channels;
  std::vector<TableRow> rows;
  for (const Step& step : mode.channels.at(static_cast<std::size_t>(channel_)))
    rows.push_back(StepCells(step));
  window_.SetRows(TableSheet::Steps, rows);
  const std::vector<TableRow> merged = MergedCellsOf(mode);
  window_.SetHeadings(
      TableSheet::Merged,
      Message("As sent: {1} of {2}", static_cast<std::int32_t>(merged.size()), kMaxModeSteps).ToWide(),
      mergedColumns_);
  window_.SetRows(TableSheet::Merged, merged);
}

TableSelection StepTable::SelectionToShow() const {
  std::vector<std::int32_t> rows = SelectedRows();
  const std::int32_t current = rows.empty() ? -1 : selection_.step;
  return {std::move(rows), current};
}

void StepTable::OnSelect(const TableSelection& selection) {
  const Channel* const channel = ShownChannel();
  if (channel == nullptr || !mainWindow_.TakesInput()) return;
  if (shown_) shown_->selection = selection;
  // What the window shows may be a turn older than the channel.
  TableSelection there = selection;
  std::erase_if(there.rows,
                [channel](std::int32_t row) { return static_cast<std::size_t>(row) >= channel->size(); });
  const bool isAmong = std::ranges::find(there.rows, there.current) != there.rows.end();
  SelectOnly(there.rows, isAmong ? there.current : there.rows.empty() ? -1 : there.rows.back());
  Show();
}

void StepTable::SelectChannel(std::int32_t channel) {
  if (channel < 0 || channel >= kChannelCount) return;
  channel_ = channel;
  SelectOnly({}, -1);
  Show();
}

bool StepTable::OnEdit() {
  window_.SetFault({});
  return MayChange();
}

void StepTable::OnEditGivenUp() {
  window_.SetFault({});
}

bool StepTable::OnKey(TableSheet sheet, int key, bool ctrl) {
  if (!mainWindow_.TakesInput()) return true;
  window_.SetFault({});
  if (sheet == TableSheet::Merged && ctrl && key == 'C') {
    window_.SetClipboard(RowsForClipboard(MergedCellsOf(CurrentMode(program_))));
    LogStatus(Message("Copied steps to clipboard"));
    return true;
  }
  if (ctrl && key == 'T') {
    Close();
    return true;
  }
  if (ctrl && (key == key::kPageUp || key == key::kPageDown)) {
    SelectChannel(channel_ + (key == key::kPageUp ? -1 : 1));
    return true;
  }
  if (sheet == TableSheet::Merged) return false;
  return ctrl ? OnCtrlKey(key) : OnPlainKey(key);
}

bool StepTable::OnPlainKey(int key) {
  switch (key) {
    case key::kInsert:
      return Insert(), true;
    case key::kDelete:
      return Delete(), true;
    case key::kSpace:
      return ToggleJumps(), true;
    case key::kEnter:
      return GoOn(), true;
    default:
      return false;
  }
}

bool StepTable::OnCtrlKey(int key) {
  switch (key) {
    case 'A':
      return SelectAll(), true;
    case 'C':
      return Copy(), true;
    case 'X':
      return Cut(), true;
    case 'V':
      return Paste(), true;
    default:
      return false;
  }
}

}  // namespace app
