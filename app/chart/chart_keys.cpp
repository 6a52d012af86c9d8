// The keys on the chart.

#include "app/chart/chart_input.h"
#include "app/window/numbers.h"
#include "common/log.h"
#include "common/message.h"
#include "program/channel_edit.h"
#include "program/optimize.h"

namespace app {

using namespace TCBase::Program;

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
      OptimizeMode(CurrentMode());
      undoStack_.CommitPending();
      return;
    default:
      return;
  }
}

void ChartInput::DeleteStep() {
  if (SelectedStep(selection_) == nullptr) return;
  if (IsGroupSelected(selection_, group_)) return DeleteGroup();
  if (SelectedChannel(selection_)->size() <= kMinChannelSteps) {
    LogStatus(Message("Unable to delete step. Minimum 2 steps per channel is required."));
    return;
  }
  undoStack_.BeginPending();
  DeleteSelectedStep(selection_);
  InvalidateChart();
  LogStatus(Message("Step deleted. Current number of steps: {1}", CountModeSteps(CurrentMode())));
}

void ChartInput::DeleteGroup() {
  undoStack_.BeginPending();
  const StepsDeleted result = DeleteSelectedSteps(selection_, group_);
  InvalidateChart();
  if (result.kept > 0) LogStatus(Message("Unable to delete step. Minimum 2 steps per channel is required."));
  if (result.deleted == 0) return;
  LogStatus(Message("Deleted steps: {1}. Current number of steps: {2}", result.deleted,
                    CountModeSteps(CurrentMode())));
}

void ChartInput::SelectAllSteps() {
  groupInput_.SelectAll();
  chartLayout_.FocusLane(selection_.channel);
  InvalidateChart();
}

void ChartInput::ToggleJump() {
  undoStack_.Snapshot();
  if (const Step* step = SelectedStep(selection_)) SetSelectedJumps(selection_, group_, !step->jump);
  InvalidateChart();
  LogStatus(Message("Step jump toggle"));
}

void ChartInput::Nudge(std::int32_t minutes, float value) {
  undoStack_.BeginPending();
  if (IsGroupSelected(selection_, group_)) {
    StepMove(selection_, group_).MoveTo(selection_, minutes, value);
  } else if (const Step* step = SelectedStep(selection_)) {
    NudgeSelectedStep(selection_, 0, minutes, value);
    // The step may have come to stand before or behind others.
    Resort(step->id);
  }
  InvalidateChart();
}

void ChartInput::PauseOrResumeDemo() {
  const std::int32_t position = demo_.position;
  if (position < 0) return;
  if (demo_.state == TCBase::StatePaused) {
    demo_.PostCommand(TCBase::CommandResume);
    LogStatus(Message("Demo playback resumed"));
  } else {
    demo_.PostCommand(TCBase::CommandPause);
    LogStatus(Message("Demo playback paused at {1}", TimeTextWithSeconds(position)));
  }
}

}  // namespace app
