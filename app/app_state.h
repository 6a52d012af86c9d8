#pragma once

// All state of the running program, in the order of its construction. Belongs to the user interface thread;
// what the worker shares has locks of its own.

#include <memory>
#include <span>
#include <vector>

#include "app/chart/channel_power.h"
#include "app/chart/chart_description.h"
#include "app/chart/chart_input.h"
#include "app/chart/view_control.h"
#include "app/document/program_document.h"
#include "app/document/saved_baseline.h"
#include "app/document/undo_stack.h"
#include "app/table/step_table.h"
#include "app/window/command.h"
#include "app/window/ctrls.h"
#include "app/window/menu_bar.h"
#include "app/window/ports.h"
#include "app/window/refresh.h"
#include "chart/chart_layout.h"
#include "chart/renderer_base.h"
#include "common/log.h"
#include "common/timer.h"
#include "devices/device_info.h"
#include "devices/operations.h"
#include "devices/work_progress.h"
#include "devices/worker.h"
#include "program/builtin_modes.h"
#include "program/channel_edit.h"
#include "program/demo_state.h"
#include "program/step_group.h"

namespace app {

struct AppState {
  /// Builds what there is before any window. The worker thread runs from here on. The parts of `shell`
  /// outlive the state.
  explicit AppState(const Shell& shell);
  AppState(const AppState&) = delete;
  AppState& operator=(const AppState&) = delete;

  // Frame time: `now` is the clock's as of the present pass of the main loop, by which all that moves moves.
  timer_base::TimerFeatures<TimerCore_Counter> frameClock;
  double now = 0.0;

  TCBase::Program::ModeListView program = TCBase::Program::NewProgram();  // the only live document
  SavedBaseline savedProgram{program};
  UndoStack undoStack{program};
  TCBase::DemoState demoState;
  TCBase::WorkProgress workProgress;  // of the worker's jobs
  TCBase::Worker worker;
  std::vector<TCBase::DeviceInfo> devices;                 // as listed, with the user's ticks
  timer_base::TimerFeatures<TimerCore_Counter> idleTimer;  // since the user last touched the chart
  TCBase::Program::StepSelection selection{program};
  TCBase::Program::StepSelection hoverStep{program};  // under the mouse
  TCBase::Program::StepGroup stepGroup;               // counts while `selection` is of it
  UX::ChartOverlay chartOverlay;
  TCBase::Program::StepClipboard stepClipboard;
  UX::ChartLayout chartLayout{now};
  ShownHints shownHints;
  ChartInput chartInput;
  StepTable stepTable;
  std::unique_ptr<UX::RendererBase> renderer;

  // Null until BuildControls().
  std::unique_ptr<Ctrls> ctrls;
  std::unique_ptr<MenuBar> menuBar;
  std::unique_ptr<ViewControl> viewControl;
  std::unique_ptr<ChannelPowerControl> powerControl;
  std::unique_ptr<ChartDescription> chartDescription;
  std::unique_ptr<ProgramDocument> document;

  /// Builds what speaks to the window, once there is one.
  void BuildControls(const Shell& shell, std::span<const Command> commands);

  /// Brings parts of the window up to date with the document. Only once the controls are built.
  void Refresh(Parts parts);

  TCBase::Program::Mode& CurrentMode();
  /// What the worker's jobs work with.
  TCBase::OperationContext JobContext() { return {demoState, worker.StopToken(), workProgress}; }

 private:
  MainWindowPort& window_;
  Settings& settings_;
};

}  // namespace app
