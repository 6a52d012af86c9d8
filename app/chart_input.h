#pragma once

// What the user does to the chart with the keyboard, and asking for the chart to be painted anew.

#include "app/undo_stack.h"
#include "chart/chart_layout.h"
#include "chart/chart_window.h"
#include "program/program.h"

namespace app {

class ChartInput {
 public:
  ChartInput(UX::ChartWindowPort& chartWindow, TCBase::Program::ModeListView& program,
             TCBase::Program::StepSelection& selection, UndoStack& undoStack, UX::ChartLayout& chartLayout);

  /// A key that went down or repeats. Unknown numbers do nothing.
  void OnKey(int key);
  /// Ends the gesture that the key began: the mode is brought within the step limit, and all that happened
  /// since the key first went down becomes one entry of the history.
  void OnKeyUp(int key);

  void InvalidateChart();
  /// The lane and what sticks out of it; 0 to 4.
  void InvalidateLane(int lane);

 private:
  void DeleteStep();
  void ToggleJump();
  void Nudge(int minutes, float value);
  void PauseOrResumeDemo();

  UX::ChartWindowPort& chartWindow_;
  TCBase::Program::ModeListView& program_;
  TCBase::Program::StepSelection& selection_;
  UndoStack& undoStack_;
  UX::ChartLayout& chartLayout_;
};

/// The selected step, or null where channel or step are out of range.
TCBase::Program::Step* SelectedStep(const TCBase::Program::StepSelection& selection);

}  // namespace app
