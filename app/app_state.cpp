#include "app/app_state.h"

namespace app {

AppState::AppState(const Shell& shell)
    : chartInput({shell.chartWindow, shell.menu, program, selection, hoverStep, undoStack, chartLayout,
                  demoState, shownHints, stepGroup, chartOverlay, shell.settings}),
      stepTable({shell.stepTable, shell.mainWindow, program, selection, stepGroup, undoStack, chartLayout,
                 demoState, [this](Parts parts) { Refresh(parts); }}),
      renderer(shell.makeRenderer(
          {program, selection, hoverStep, chartLayout, demoState, now, stepGroup, chartOverlay})),
      window_(shell.mainWindow),
      settings_(shell.settings) {
  chartOverlay.comparison.saved = &savedProgram.copy;
  chartLayout.ShowStrip(settings_.IsOn(Settings::kLightStrip));
}

void AppState::BuildControls(const Shell& shell, std::span<const Command> commands) {
  const auto refresh = [this](Parts parts) { Refresh(parts); };
  ctrls = std::make_unique<Ctrls>(shell, commands, program, devices, chartLayout);
  menuBar = std::make_unique<MenuBar>(shell, commands, selection);
  viewControl = std::make_unique<ViewControl>(shell.controls, program, ctrls->ZoomSlider(), refresh);
  powerControl = std::make_unique<ChannelPowerControl>(selection, undoStack, ctrls->PowerSlider(), refresh);
  chartDescription = std::make_unique<ChartDescription>(shell.controls, selection);
  document = std::make_unique<ProgramDocument>(shell, program, undoStack, demoState, savedProgram, refresh);
}

void AppState::Refresh(Parts parts) {
  const auto has = [parts](Parts part) { return (parts & part) != 0; };
  if (has(part::kMenusInDemo)) menuBar->RefreshNow(0, settings_.LoggingEnabled());
  if (has(part::kMenusAtRest)) menuBar->RefreshNow(-1, settings_.LoggingEnabled());
  if (has(part::kTexts)) menuBar->ApplyTexts();
  if (has(part::kTexts)) ctrls->TranslateLabels();
  if (has(part::kDemo | part::kTexts)) ctrls->ShowDemoStatus(demoState);
  if (has(part::kTitle)) document->ShowTitle();
  if (has(part::kModeList)) ctrls->FillModeList();
  if (has(part::kDescription)) ctrls->ShowModeDescription();
  if (has(part::kScrollBar)) ctrls->UpdateScrollBar();
  if (has(part::kZoomSlider)) ctrls->UpdateZoomSlider();
  if (has(part::kReadOuts)) ctrls->UpdateReadOuts();
  if (has(part::kPower)) powerControl->Update();
  if (has(part::kDeviceList)) ctrls->FillDeviceList();
  if (has(part::kRenderer)) renderer->Rebuild();
  if (has(part::kPlaces)) renderer->Relayout();
  if (has(part::kChart)) chartInput.InvalidateChart();
  if (has(part::kLane)) chartInput.InvalidateLane(selection.channel);
  if (has(part::kTexts)) stepTable.ShowAnew();
  stepTable.Follow();
  if (has(part::kFocus)) window_.TakeFocus();
}

TCBase::Program::Mode& AppState::CurrentMode() {
  return TCBase::Program::CurrentMode(program);
}

}  // namespace app
