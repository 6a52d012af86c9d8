#include "app/chart_input.h"

#include <algorithm>
#include <cstddef>

#include "app/demo_control.h"
#include "app/numbers.h"
#include "common/log.h"
#include "common/message.h"
#include "devices/demo_state.h"
#include "program/channel_edit.h"
#include "program/optimize.h"

namespace app {

using namespace TCBase::Program;

ChartInput::ChartInput(UX::ChartWindowPort& chartWindow, ModeListView& program, StepSelection& selection,
                       UndoStack& undoStack, UX::ChartLayout& chartLayout)
    : chartWindow_(chartWindow),
      program_(program),
      selection_(selection),
      undoStack_(undoStack),
      chartLayout_(chartLayout) {}

void ChartInput::OnKey(int key) {
  switch (key) {
    case key::kBackspace:
    case key::kDelete:
      return DeleteStep();
    case key::kSpace:
      return PauseOrResumeDemo();
    case key::kLeft:
      return Nudge(-1, 0.0F);
    case key::kUp:
      return Nudge(0, 1.0F);
    case key::kRight:
      return Nudge(1, 0.0F);
    case key::kDown:
      return Nudge(0, -1.0F);
    case key::kJ:
    case key::kF1:
      return ToggleJump();
    default:
      return;
  }
}

void ChartInput::OnKeyUp(int key) {
  switch (key) {
    case key::kBackspace:
    case key::kLeft:
    case key::kUp:
    case key::kRight:
    case key::kDown:
    case key::kDelete:
      OptimizeMode(program_.modes.at(static_cast<std::size_t>(program_.currentMode)));
      undoStack_.CommitPending();
      return;
    default:
      return;
  }
}

void ChartInput::DeleteStep() {
  if (SelectedStep(selection_) == nullptr) return;
  if (SelectedChannel(selection_)->size() <= kMinChannelSteps) {
    LogStatus(Message("Unable to delete step. Minimum 2 steps per channel is required."));
    return;
  }
  undoStack_.BeginPending();
  DeleteSelectedStep(selection_);
  InvalidateChart();
  const Mode& mode = program_.modes.at(static_cast<std::size_t>(program_.currentMode));
  LogStatus(Message("Step deleted. Current number of steps: {1}", CountModeSteps(mode)));
}

void ChartInput::ToggleJump() {
  undoStack_.Snapshot();
  if (Step* step = SelectedStep(selection_)) step->jump = !step->jump;
  InvalidateChart();
  LogStatus(Message("Step jump toggle"));
}

void ChartInput::Nudge(int minutes, float value) {
  undoStack_.BeginPending();
  if (const Step* step = SelectedStep(selection_)) {
    const std::uint32_t id = step->id;
    NudgeSelectedStep(selection_, 0, minutes, value);
    // The step may have come to stand before or behind others; the selection goes with it.
    Channel& channel = *SelectedChannel(selection_);
    SortSteps(channel);
    const auto moved =
        std::find_if(channel.begin(), channel.end(), [id](const Step& s) { return s.id == id; });
    selection_.step = static_cast<std::int32_t>(moved - channel.begin());
  }
  InvalidateChart();
}

void ChartInput::PauseOrResumeDemo() {
  const std::int32_t position = TCBase::demoState.position;
  if (position < 0) return;
  if (TCBase::demoState.state == TCBase::StatePaused) {
    TCBase::PostCommand(TCBase::CommandResume);
    LogStatus(Message("Demo playback resumed"));
  } else {
    TCBase::PostCommand(TCBase::CommandPause);
    LogStatus(Message("Demo playback paused at {1}", DayTimeText(position)));
  }
}

void ChartInput::InvalidateChart() {
  const UX::Rect chart = chartLayout_.ChartWindowRect();
  chartWindow_.Invalidate({0, 0, chart.width, chart.height});
}

void ChartInput::InvalidateLane(int lane) {
  const UX::Rect rect = chartLayout_.LaneRect(lane);
  chartWindow_.Invalidate({rect.x - 9, rect.y - 13, rect.width + 18, rect.height + 26});
}

Step* SelectedStep(const StepSelection& selection) {
  Channel* channel = SelectedChannel(selection);
  const auto index = static_cast<std::size_t>(selection.step);
  return channel != nullptr && index < channel->size() ? &(*channel)[index] : nullptr;
}

}  // namespace app
