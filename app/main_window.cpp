#include "app/main_window.h"

#include "app/app_state.h"
#include "app/commands.h"
#include "app/main_loop.h"
#include "app/window/numbers.h"
#include "common/log.h"
#include "program/channel_edit.h"

namespace app {

namespace {

WorkSign SignOf(const TCBase::WorkStatus& status, bool pauses) {
  switch (status.kind) {
    case TCBase::WorkStatus::Unmeasured:
      return {WorkSign::Unmeasured};
    case TCBase::WorkStatus::Measured:
      return {pauses ? WorkSign::Paused : WorkSign::Running, status.percent};
    default:
      return {};
  }
}

}  // namespace

void MainWindow::Touch() {
  state_.idleTimer.Restart(0.0);
}

Outcome MainWindow::OnDestroy() {
  state_.stepTable.Close();
  shell_.mainWindow.StopTimer(kDemoTimer);
  shell_.mainWindow.PostQuit(0);
  return Outcome::Default;
}

Outcome MainWindow::OnSize(SizeKind kind) {
  Touch();
  if (kind != SizeKind::Restored && kind != SizeKind::Maximized) return Outcome::Default;
  UpdateLayout();
  if (state_.ctrls == nullptr) return Outcome::Default;  // the window is being made
  state_.ctrls->MoveControls();
  state_.Refresh(part::kRenderer);
  return Outcome::Default;
}

Outcome MainWindow::OnPaint() {
  UpdateLayout();
  const UX::Rect& client = state_.chartLayout.clientRect;
  shell_.mainWindow.PaintLogo(LogoRect(client.width, client.height));
  return Outcome::Default;
}

Outcome MainWindow::OnClose() {
  if (state_.document->AskToSave()) shell_.mainWindow.Destroy();
  return Outcome::Done;
}

void MainWindow::OnDrop(const std::vector<std::filesystem::path>& files) {
  state_.document->Open(files);
  state_.Refresh(part::kRenderer);
}

Outcome MainWindow::OnCommand(int id, int code) {
  commands_.Dispatch(id, code);
  return Outcome::Done;
}

void MainWindow::OnAccelerator(int command) {
  commands_.DispatchKey(command);
}

Outcome MainWindow::OnTimer(int id) {
  if (id != kDemoTimer) return Outcome::Default;
  ShowWork();
  state_.document->KeepForCrash(state_.frameClock.Now());
  if (!state_.demoState.IsRunning()) {
    MoveChartOn();
    return Outcome::Done;
  }
  state_.Refresh(part::kChart | part::kDemo);
  return Outcome::Done;
}

void MainWindow::ShowWork() {
  const WorkSign sign = SignOf(state_.workProgress.Status(), state_.demoState.state == TCBase::StatePaused);
  if (sign == shownWork_) return;
  shownWork_ = sign;
  shell_.mainWindow.ShowWork(sign);
}

void MainWindow::MoveChartOn() {
  if (!IsChartMoving(*state_.renderer, state_.chartLayout)) return;
  state_.now = state_.frameClock.Now();
  state_.renderer->Update();
  state_.Refresh(part::kChart);
}

Outcome MainWindow::OnHorizontalScroll(Control sender, int code, int position) {
  switch (sender) {
    case Control::ScrollBar:
      state_.viewControl->OnScrollBar(code, position);
      break;
    case Control::ZoomSlider:
      state_.viewControl->OnZoomSlider(code, position);
      break;
    case Control::PowerSlider:
      state_.powerControl->OnSlider(code, position);
      break;
    default:
      break;
  }
  return Outcome::Done;
}

Outcome MainWindow::OnInitMenuPopup() {
  state_.menuBar->Refresh(state_.demoState.position, shell_.settings.LoggingEnabled());
  const UX::Comparison::With with = state_.chartOverlay.comparison.with;
  shell_.menu.SetChecked(command::kCompareWithSaved, with == UX::Comparison::With::Saved);
  shell_.menu.SetChecked(command::kCompareWithThis, with == UX::Comparison::With::Kept);
  return Outcome::Default;
}

Outcome MainWindow::OnLeftButtonDown() {
  state_.idleTimer.Stop();  // stands at 0 until the next event restarts it
  state_.chartLayout.ClearFocus();
  state_.Refresh(part::kChart);
  return Outcome::Default;
}

bool MainWindow::IsForChart(int key) const {
  switch (key) {
    case key::kLeft:
    case key::kUp:
    case key::kRight:
    case key::kDown:
    case key::kJ:
    case key::kSpace:
      return TCBase::Program::SelectedStep(state_.selection) != nullptr;
    default:
      return false;
  }
}

Outcome MainWindow::OnKeyDown(int key) {
  if (IsForChart(key)) ChartWindow(state_).OnKeyDown(key);
  return Outcome::Default;
}

Outcome MainWindow::OnKeyUp(int key) {
  if (IsForChart(key)) ChartWindow(state_).OnKeyUp(key);
  return Outcome::Default;
}

Outcome MainWindow::OnSizing() {
  state_.now = state_.frameClock.Now();  // the main loop does not turn meanwhile
  Touch();
  return Outcome::Done;
}

Outcome MainWindow::OnExitSizeMove() {
  Touch();
  state_.Refresh(part::kRenderer | part::kChart);
  return Outcome::Default;
}

Outcome MainWindow::OnEvent(std::uint32_t event, std::uintptr_t, std::intptr_t) {
  switch (event) {
    case WM_LOG_PENDING:
      statusLog.DrainBefore(warningLog);
      return Outcome::Done;
    case WM_SCAN_FINISHED:
    case WM_DEVICES_CHANGED:
      state_.ctrls->SetDevices(state_.worker.GetDevices());
      return Outcome::Done;
    case WM_DEMO_STATE:
      ShowDemoAtRest();
      return Outcome::Done;
    default:
      return Outcome::Default;
  }
}

void MainWindow::UpdateLayout() {
  const Size client = shell_.mainWindow.ClientSize();
  state_.chartLayout.Update(client.width, client.height);
}

void MainWindow::ShowDemoAtRest() {
  TCBase::DemoState atRest;
  state_.ctrls->ShowDemoStatus(atRest);
  state_.Refresh(part::kMenusAtRest | part::kChart);
}

void ChartWindow::OnPaint() {
  state_.renderer->Render();
  // Whatever changes the selection has the chart painted.
  state_.chartDescription->Update();
}

void ChartWindow::Touch() {
  state_.idleTimer.Restart(0.0);
}

void ChartWindow::OnKeyDown(int key) {
  Touch();
  state_.chartInput.OnKey(key);
  state_.Refresh(part::kPower);
}

void ChartWindow::OnKeyUp(int key) {
  Touch();
  state_.chartInput.OnKeyUp(key);
  state_.Refresh(part::kDescription);
}

void ChartWindow::OnMouseMove(std::int32_t x, std::int32_t y, bool leftButton, const HeldKeys& keys) {
  Touch();
  if (!leftButton && state_.chartInput.IsHolding()) OnLeftUp(x, y);
  state_.renderer->MouseMoved(x, y);
  state_.chartInput.OnMouseMove(x, y, keys);
  if (state_.demoState.IsRunning()) return;  // the labels show the demo's time
  state_.ctrls->ShowModeAt(state_.chartInput.TimeAt(x));
}

void ChartWindow::OnLeftDown(std::int32_t x, std::int32_t y, const HeldKeys& keys) {
  Touch();
  state_.chartInput.OnLeftDown(x, y, keys);
}

void ChartWindow::OnLeftUp(std::int32_t, std::int32_t) {
  Touch();
  state_.chartInput.OnLeftUp();
  ShowChange();
}

void ChartWindow::OnCaptureLost() {
  if (!state_.chartInput.IsHolding()) return;
  state_.chartInput.OnCaptureLost();
  ShowChange();
}

void ChartWindow::ShowChange() {
  state_.Refresh(part::kPower | part::kDescription);
}

void ChartWindow::OnRightDown(std::int32_t x, std::int32_t y) {
  Touch();
  state_.chartInput.OnRightDown(x, y);
}

void ChartWindow::OnRightUp(std::int32_t x, std::int32_t y) {
  Touch();
  state_.chartInput.OnRightUp(x, y);
}

void ChartWindow::OnWheel(std::int32_t x, std::int32_t y, int delta, bool shift, bool ctrl,
                          bool otherButtons) {
  Touch();
  switch (state_.chartInput.OnWheel(x, y, delta, {shift, ctrl, otherButtons})) {
    case WheelUse::View:
      return state_.Refresh(part::kScrollBar | part::kPlaces | part::kZoomSlider | part::kChart);
    case WheelUse::Power:
      return state_.powerControl->OnWheel(delta);
    case WheelUse::Nothing:
      return;
  }
}

}  // namespace app
