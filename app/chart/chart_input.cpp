// The mouse on the chart.

#include "app/chart/chart_input.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "app/chart/chart_hit.h"
#include "app/window/command.h"
#include "common/log.h"
#include "common/message.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "program/view.h"

namespace app {

using namespace TCBase::Program;

namespace {

constexpr std::int32_t kPanSecondsPerCount = 5;  // 120 counts a notch: ten minutes

// What sticks out of a lane: half a marker, and the labels of steps at its edges.
constexpr std::int32_t kBesideLane = 9;
constexpr std::int32_t kAboveLane = 13;

// Percent under a pixel. A lane without height has none that is a number.
float StrengthAt(const UX::Rect& lane, std::int32_t y) {
  const float percent = UX::YToPercent(lane, y);
  return percent > 0.0F ? std::min(percent, 100.0F) : 0.0F;
}

bool IsOnChart(const UX::Rect& window, std::int32_t x, std::int32_t y) {
  return x >= 0 && x < window.width && y >= 0 && y < window.height;
}

}  // namespace

ChartInput::ChartInput(const ChartParts& parts)
    : chartWindow_(parts.chartWindow),
      menu_(parts.menu),
      program_(parts.program),
      selection_(parts.selection),
      hoverStep_(parts.hoverStep),
      undoStack_(parts.undoStack),
      chartLayout_(parts.chartLayout),
      demo_(parts.demo),
      shownHints_(parts.shownHints),
      group_(parts.group),
      overlay_(parts.overlay),
      settings_(parts.settings),
      groupInput_({parts.program, parts.selection, parts.group, parts.chartLayout, parts.overlay}) {}

void ChartInput::OnLeftDown(std::int32_t x, std::int32_t y, const HeldKeys& keys) {
  chartWindow_.TakeFocus();
  if (demo_.IsRunning()) {
    dragging_ = seeking_ = true;
    SeekDemo(x);
    return;
  }
  const bool isDouble = IsDoublePress(x, y);
  const auto hit = HitStep(chartLayout_, program_, x, y);
  if (keys.ctrl) return PressWithCtrl(hit, x, y);
  if (hit) {
    const bool isOfSeveral = groupInput_.Holds(*hit);
    if (!isOfSeveral) DropGroup();
    Select(hit->channel, hit->step);
    undoStack_.BeginPending();
    Grab(x, y);
    alone_ = isOfSeveral;
    return;
  }
  DropGroup();
  const std::int32_t lane = chartLayout_.LaneAt(x, y);
  if (lane != selection_.channel) {
    Select(lane, -1);
  } else if (isDouble || !settings_.IsOn(kCarefulMouseSetting)) {
    AddStep(lane, x, y);
  }
}

void ChartInput::PressWithCtrl(const std::optional<StepPlace>& hit, std::int32_t x, std::int32_t y) {
  if (!hit) {
    groupInput_.BeginFrame(x, y);
    Grab(x, y);
  } else if (groupInput_.Toggle(*hit)) {
    chartLayout_.FocusLane(selection_.channel);
    undoStack_.BeginPending();
    Grab(x, y);
  }
  InvalidateChart();
}

bool ChartInput::IsDoublePress(std::int32_t x, std::int32_t y) {
  const bool isNear = std::abs(x - press_.x) < kCarefulPixels && std::abs(y - press_.y) < kCarefulPixels;
  const bool isDouble = mayBeDouble_ && isNear && sincePress_.Elapsed() < chartWindow_.DoubleClickSeconds();
  press_ = {x, y};
  sincePress_.Restart(0.0);
  // A third one begins anew.
  mayBeDouble_ = !isDouble;
  return isDouble;
}

void ChartInput::DropGroup() {
  if (group_.Ids().empty()) return;
  group_.Clear();
  InvalidateChart();
}

void ChartInput::AddStep(std::int32_t lane, std::int32_t x, std::int32_t y) {
  // Before the lane is looked at: a press beside all lanes with none selected says so, too.
  Mode& mode = CurrentMode();
  if (CountModeSteps(mode) >= kMaxModeSteps) {
    LogStatus(Message("Unable to add new step. Maximum number of {1} steps for the current mode reached",
                      kMaxModeSteps));
    return;
  }
  if (lane < 0) return;
  const UX::Rect rect = chartLayout_.LaneRect(lane);
  const std::int32_t second = UX::XToTime(rect, program_, x);
  if (!UX::IsOnDay(second)) return;

  Step step;
  SetTime(step, second);
  step.value = StrengthAt(rect, y);
  undoStack_.Snapshot();
  Channel& channel = mode.channels.at(static_cast<std::size_t>(lane));
  InsertStepSorted(channel, step);
  const int count = CountModeSteps(mode);
  LogStatus(Message("Added new step {1}. Current number of steps: {2}", ToDescription(step), count));
  if (count == kManyModeSteps + 1) {
    LogWarning(Message("You have added more than {1} steps. For more information check the \"Help / Known "
                       "issues\" information.",
                       kManyModeSteps)
                   .utf8());
  }
  const auto added = std::find_if(channel.begin(), channel.end(), [&step](const Step& other) {
    return other.hour == step.hour && other.minute == step.minute;
  });
  Select(lane, added == channel.end() ? -1 : static_cast<std::int32_t>(added - channel.begin()));
  Grab(x, y);
}

void ChartInput::OnLeftUp() {
  LetGo();
  // The window then tells of a lost capture. Nothing is held any more.
  chartWindow_.ReleaseCapture();
}

void ChartInput::OnCaptureLost() {
  // The capture is not given back: another window may have it by now.
  LetGo();
}

void ChartInput::LetGo() {
  if (!dragging_) return;
  dragging_ = seeking_ = false;
  if (groupInput_.IsFraming()) {
    groupInput_.EndFrame();
    chartLayout_.FocusLane(selection_.channel);
    InvalidateChart();
    return;
  }
  LetGoOfSteps();
  groupInput_.EndDrag();
}

void ChartInput::LetGoOfSteps() {
  const Step* step = SelectedStep(selection_);
  if (demo_.IsRunning() || step == nullptr) return;
  if (alone_ && !moved_) DropGroup();
  const auto count = static_cast<std::int32_t>(SelectedStepIds(selection_, group_).size());
  if (count > 1) {
    LogStatus(Message(moved_ ? TextKey("Moved steps: {1}") : TextKey("Selected steps: {1}"), count));
  } else {
    LogStatus(Message("Step {1}", ToDescription(*step)));
  }
  Hint("Press DELETE or BACKSPACE to remove the selected step.", shownHints_);
  Hint("You can also use keyboard ARROWS to move the step with higher accuracy.", shownHints_);
  OptimizeMode(CurrentMode());
  undoStack_.CommitPending();
}

void ChartInput::OnMouseMove(std::int32_t x, std::int32_t y, const HeldKeys& keys) {
  UpdateHover(x, y);
  if (!dragging_) return;
  if (groupInput_.IsFraming()) {
    groupInput_.DrawFrame(x, y);
    InvalidateChart();
  } else if (demo_.IsRunning()) {
    SeekDemo(x);
  } else if (HasBegunToDrag(x, y)) {
    DragStep(x, y, keys);
  }
}

bool ChartInput::HasBegunToDrag(std::int32_t x, std::int32_t y) {
  const std::int32_t distance = std::max(std::abs(x - press_.x), std::abs(y - press_.y));
  const bool isCareful = settings_.IsOn(kCarefulMouseSetting);
  moved_ = moved_ || distance >= (isCareful ? kCarefulPixels : 1);
  // A single step goes under the mouse at the first sign of it.
  return moved_ || !(isCareful || IsGroupSelected(selection_, group_));
}

std::optional<std::int32_t> ChartInput::SecondUnder(const UX::Rect& lane, std::int32_t x) const {
  const std::int32_t pointed = UX::XToTime(lane, program_, x);
  if (!UX::IsOnDay(pointed)) return std::nullopt;
  // A view may begin within a minute, so that the full minute is before it.
  return std::max(std::min(WholeMinute(pointed), program_.viewEnd - 1), program_.viewStart);
}

void ChartInput::DragStep(std::int32_t x, std::int32_t y, const HeldKeys& keys) {
  Step* step = SelectedStep(selection_);
  if (step == nullptr) return;
  const UX::Rect lane = chartLayout_.LaneRect(selection_.channel);
  const GroupInput::Target target = groupInput_.TargetOf(x, y, keys);
  const auto second = target.x ? SecondUnder(lane, *target.x) : groupInput_.OriginSecond();
  // Off the day the step stays as it is, its value too.
  if (!second) return;
  const float value = target.y ? StrengthAt(lane, *target.y) : groupInput_.OriginValue();
  // A seek whose demo has ended under it goes on as a drag.
  if (seeking_) undoStack_.BeginPending();
  if (groupInput_.DragTo(*second, value)) return InvalidateChart();
  step->value = value;
  SetTime(*step, *second);
  Resort(step->id);
  InvalidateLane(selection_.channel);
}

void ChartInput::Select(std::int32_t channel, std::int32_t step) {
  InvalidateLane(selection_.channel);
  selection_.channel = channel;
  selection_.step = step;
  chartLayout_.FocusLane(channel);
  InvalidateLane(channel);
}

void ChartInput::Grab(std::int32_t x, std::int32_t y) {
  dragging_ = true;
  moved_ = alone_ = seeking_ = false;
  groupInput_.BeginDrag(x, y);
  chartWindow_.Capture();
  InvalidateLane(selection_.channel);
}

void ChartInput::UpdateHover(std::int32_t x, std::int32_t y) {
  const auto hovered = HoveredStep(chartLayout_, program_, x, y);
  if (!hovered) return;
  hoverStep_.channel = hovered->channel;
  hoverStep_.step = hovered->step;
}

void ChartInput::Resort(std::uint32_t id) {
  Channel& channel = *SelectedChannel(selection_);
  SortSteps(channel);
  const auto moved =
      std::find_if(channel.begin(), channel.end(), [id](const Step& step) { return step.id == id; });
  selection_.step = moved == channel.end() ? -1 : static_cast<std::int32_t>(moved - channel.begin());
}

void ChartInput::OnRightDown(std::int32_t x, std::int32_t y) {
  chartWindow_.TakeFocus();
  const StepPlace place =
      HitStep(chartLayout_, program_, x, y).value_or(StepPlace{chartLayout_.LaneAt(x, y), -1});
  if (place.channel < 0) return;
  if (!groupInput_.Holds(place)) DropGroup();
  Select(place.channel, place.step);
}

void ChartInput::OnRightUp(std::int32_t x, std::int32_t y) {
  if (IsMenuEnabled(menu::kChannel, demo_.IsRunning())) menu_.OpenAtChart(menu::kChannel, x, y);
}

WheelUse ChartInput::OnWheel(std::int32_t x, std::int32_t y, std::int32_t delta, const WheelKeys& keys) {
  if (keys.shift || keys.other || !IsOnChart(chartLayout_.ChartWindowRect(), x, y)) {
    return keys.shift ? WheelUse::Power : WheelUse::Nothing;
  }
  if (!keys.ctrl) {
    PanView(program_, delta * kPanSecondsPerCount);
  } else if (delta > 0) {
    ViewZoomIn(program_);
  } else {
    ViewZoomOut(program_);
  }
  return WheelUse::View;
}

void ChartInput::SeekDemo(std::int32_t x) {
  const std::int32_t second = TimeAt(x);
  demo_.PostSeek(UX::IsOnDay(second) ? second : 0);
  InvalidateChart();
}

std::int32_t ChartInput::TimeAt(std::int32_t x) {
  return WholeMinute(UX::XToTime(chartLayout_.LaneRect(0), program_, x));
}

void ChartInput::InvalidateChart() {
  const UX::Rect chart = chartLayout_.ChartWindowRect();
  chartWindow_.Invalidate({0, 0, chart.width, chart.height});
}

void ChartInput::InvalidateLane(std::int32_t lane) {
  if (lane < 0 || lane >= kChannelCount) return;
  const UX::Rect rect = chartLayout_.LaneRect(lane);
  chartWindow_.Invalidate({rect.x - kBesideLane, rect.y - kAboveLane, rect.width + 2 * kBesideLane,
                           rect.height + 2 * kAboveLane});
}

Mode& ChartInput::CurrentMode() {
  return TCBase::Program::CurrentMode(program_);
}

}  // namespace app
