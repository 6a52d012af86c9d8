#pragma once

// What the user does to the chart with mouse and keyboard, and asking for the chart to be painted anew. The
// mouse is in chart_input.cpp, the keys are in chart_keys.cpp, and what several steps at once take is in
// group_input.cpp. User interface thread.

#include <cstdint>
#include <optional>
#include <string_view>

#include "app/chart/group_input.h"
#include "app/chart/held_keys.h"
#include "app/document/undo_stack.h"
#include "app/window/ports.h"
#include "chart/chart_layout.h"
#include "chart/chart_window.h"
#include "common/log.h"
#include "common/timer.h"
#include "program/demo_state.h"
#include "program/program.h"
#include "program/settings.h"
#include "program/step_group.h"

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
  TCBase::Program::StepGroup& group;
  UX::ChartOverlay& overlay;
  Settings& settings;
};

/// The setting by which the mouse is a careful one.
inline constexpr std::string_view kCarefulMouseSetting = "careful_mouse";
/// How far a careful mouse moves before it drags.
inline constexpr std::int32_t kCarefulPixels = 4;

class ChartInput {
 public:
  explicit ChartInput(const ChartParts& parts);

  // The mouse, in the chart window's coordinates.

  /// Takes the step under the mouse and holds it, or selects the lane under it, or, where that is selected
  /// already, adds a step and holds that. With Ctrl held adds the step to those that are selected or takes it
  /// from them, or draws a frame around others. Seeks while a demo runs.
  ///
  /// Where the mouse is a careful one (kCarefulMouseSetting) a step is added by the second of two quick
  /// presses, and what is held does not move before the mouse has moved by kCarefulPixels.
  void OnLeftDown(std::int32_t x, std::int32_t y, const HeldKeys& keys = {});
  /// Lets go of what is held. A drag from press to release makes one entry in the history.
  void OnLeftUp();
  /// The capture is gone, and the release with it: lets go as well. Nothing if nothing is held.
  void OnCaptureLost();
  /// A left press has taken hold of something, and its release has not come yet.
  bool IsHolding() const { return dragging_; }
  /// Marks the step under the mouse and moves the steps that are held, or the frame's corner, or seeks. With
  /// Shift held a step keeps its time or its percent, whichever has moved less.
  void OnMouseMove(std::int32_t x, std::int32_t y, const HeldKeys& keys = {});
  /// Selects the step or the lane under the mouse. Several steps stay selected if it is one of them.
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
  /// All steps of the selected channel; of the mode if these are selected already.
  void SelectAllSteps();

  void InvalidateChart();
  /// The lane and what sticks out of it. Nothing for a number that is no lane.
  void InvalidateLane(std::int32_t lane);

 private:
  // chart_input.cpp
  void PressWithCtrl(const std::optional<StepPlace>& hit, std::int32_t x, std::int32_t y);
  /// Several steps are not selected any more; at most the one that is.
  void DropGroup();
  /// The minute that a drag to a pixel gives, within the view, as a second; nothing off the day.
  std::optional<std::int32_t> SecondUnder(const UX::Rect& lane, std::int32_t x) const;
  /// Counts the press; true if it is the second of two.
  bool IsDoublePress(std::int32_t x, std::int32_t y);
  void AddStep(std::int32_t lane, std::int32_t x, std::int32_t y);
  /// The mouse has moved far enough from where it was pressed to drag what is held.
  bool HasBegunToDrag(std::int32_t x, std::int32_t y);
  void DragStep(std::int32_t x, std::int32_t y, const HeldKeys& keys);
  void LetGoOfSteps();
  void Select(std::int32_t channel, std::int32_t step);
  /// Holds the selected step from now on.
  void Grab(std::int32_t x, std::int32_t y);
  void LetGo();
  void UpdateHover(std::int32_t x, std::int32_t y);
  void SeekDemo(std::int32_t x);
  /// Sorts the selected channel; the selection goes with its step, which has the serial number `id`.
  void Resort(std::uint32_t id);
  TCBase::Program::Mode& CurrentMode();

  // chart_keys.cpp
  void DeleteStep();
  void DeleteGroup();
  void ToggleJump();
  void Nudge(std::int32_t minutes, float value);
  void PauseOrResumeDemo();

  UX::ChartWindowPort& chartWindow_;
  MenuPort& menu_;
  bool dragging_ = false;  // between a left press that took hold of something and its release
  bool moved_ = false;     // the mouse has moved since then, as far as it has to
  bool alone_ = false;     // the step that is held is the only one selected when it is let go in its place
  bool seeking_ = false;   // the press was during a demo, and no copy was kept of the document
  TCBase::Program::ModeListView& program_;
  TCBase::Program::StepSelection& selection_;
  TCBase::Program::StepSelection& hoverStep_;
  UndoStack& undoStack_;
  UX::ChartLayout& chartLayout_;
  TCBase::DemoState& demo_;
  ShownHints& shownHints_;
  TCBase::Program::StepGroup& group_;
  UX::ChartOverlay& overlay_;
  Settings& settings_;
  GroupInput groupInput_;
  Position press_;  // the last one
  timer_base::TimerFeatures<TimerCore_Counter> sincePress_;
  bool mayBeDouble_ = false;  // the next press, with the last one
};

}  // namespace app
