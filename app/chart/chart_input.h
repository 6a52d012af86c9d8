#pragma once

// What the user does to the chart with mouse and keyboard, and asking for the chart to be painted anew. The
// mouse is in chart_input.cpp, the keys are in chart_keys.cpp. User interface thread.

#include <cstdint>

#include "app/document/undo_stack.h"
#include "app/window/ports.h"
#include "chart/chart_layout.h"
#include "chart/chart_window.h"
#include "common/log.h"
#include "program/demo_state.h"
#include "program/program.h"

namespace app {

/// What is held while the wheel turns.
struct WheelKeys {
  bool shift = false;
  bool ctrl = false;
  bool other = false;  // mouse buttons
};

/// What a turn of the wheel was for.
enum class WheelUse {
  Nothing,
  View,   // the view has changed
  Power,  // the selected channel's power is to change
};

/// What the chart's input works on; all of it outlives the input.
struct ChartParts {
  UX::ChartWindowPort& chartWindow;
  MenuPort& menu;
  TCBase::Program::ModeListView& program;
  TCBase::Program::StepSelection& selection;
  TCBase::Program::StepSelection& hoverStep;
  UndoStack& undoStack;
  UX::ChartLayout& chartLayout;
  TCBase::DemoState& demo;
  ShownHints& shownHints;
};

class ChartInput {
 public:
  explicit ChartInput(const ChartParts& parts);

  // The mouse, in the chart window's coordinates.

  /// Takes the step under the mouse and holds it, or selects the lane under it, or, where that is selected
  /// already, adds a step and holds that. Seeks while a demo runs.
  void OnLeftDown(std::int32_t x, std::int32_t y);
  /// Lets go of what is held. A drag from press to release makes one entry in the history.
  void OnLeftUp();
  /// The capture is gone, and the release with it: lets go as well. Nothing if nothing is held.
  void OnCaptureLost();
  /// A left press has taken hold of something, and its release has not come yet.
  bool IsHolding() const { return dragging_; }
  /// Marks the step under the mouse and moves the step that is held, or seeks.
  void OnMouseMove(std::int32_t x, std::int32_t y);
  /// Selects the step or the lane under the mouse.
  void OnRightDown(std::int32_t x, std::int32_t y);
  /// Opens the Channel menu, except during a demo.
  void OnRightUp(std::int32_t x, std::int32_t y);
  /// Zooms or moves the view if the mouse is over the chart; tells what the caller must bring up to date. 120
  /// is a notch away from the user.
  WheelUse OnWheel(std::int32_t x, std::int32_t y, std::int32_t delta, const WheelKeys& keys);

  /// The second of the day under the mouse, of the full minute; off the day left and right of it.
  std::int32_t TimeAt(std::int32_t x);

  // Keys.

  /// A key that went down or repeats. Unknown numbers do nothing.
  void OnKey(int key);
  /// Ends the gesture that the key began: the mode is brought within the step limit, and all that happened
  /// since the key first went down becomes one entry of the history.
  void OnKeyUp(int key);
  /// Whether a key that went down brings its release to the chart.
  bool WillSeeRelease() const { return chartWindow_.HasFocus(); }

  void InvalidateChart();
  /// The lane and what sticks out of it. Nothing for a number that is no lane.
  void InvalidateLane(std::int32_t lane);

 private:
  // chart_input.cpp
  void AddStep(std::int32_t lane, std::int32_t x, std::int32_t y);
  void DragStep(std::int32_t x, std::int32_t y);
  void Select(std::int32_t channel, std::int32_t step);
  /// Holds the selected step from now on.
  void Grab();
  void LetGo();
  void UpdateHover(std::int32_t x, std::int32_t y);
  void SeekDemo(std::int32_t x);
  /// Sorts the selected channel; the selection goes with its step, which has the serial number `id`.
  void Resort(std::uint32_t id);
  TCBase::Program::Mode& CurrentMode();

  // chart_keys.cpp
  void DeleteStep();
  void ToggleJump();
  void Nudge(std::int32_t minutes, float value);
  void PauseOrResumeDemo();

  UX::ChartWindowPort& chartWindow_;
  MenuPort& menu_;
  bool dragging_ = false;  // between a left press that took hold of something and its release
  bool seeking_ = false;   // the press was during a demo, and no copy was kept of the document
  TCBase::Program::ModeListView& program_;
  TCBase::Program::StepSelection& selection_;
  TCBase::Program::StepSelection& hoverStep_;
  UndoStack& undoStack_;
  UX::ChartLayout& chartLayout_;
  TCBase::DemoState& demo_;
  ShownHints& shownHints_;
};

}  // namespace app
