#include "app/app_state.h"

namespace app {

AppState::AppState(const Shell& shell)
    : chartInput(
          {shell.chartWindow, shell.menu, program, selection, hoverStep, undoStack, chartLayout, demoState}),
      renderer(shell.makeRenderer({program, selection, hoverStep, chartLayout, demoState, now})) {}

void AppState::BuildControls(const Shell& shell) {
  ctrls = std::make_unique<Ctrls>(shell, program, devices, chartLayout);
  menuBar = std::make_unique<MenuBar>(shell, selection);
  viewControl = std::make_unique<ViewControl>(shell, program, *ctrls, chartInput, *renderer);
  powerControl =
      std::make_unique<ChannelPowerControl>(shell, selection, undoStack, chartInput, ctrls->PowerSlider());
  document = std::make_unique<ProgramDocument>(shell, program, undoStack, demoState, *ctrls, *powerControl,
                                               chartInput, savedProgram);
}

TCBase::Program::Mode& AppState::CurrentMode() {
  return program.modes.at(static_cast<std::size_t>(program.currentMode));
}

}  // namespace app
