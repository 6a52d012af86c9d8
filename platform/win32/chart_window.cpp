#include "platform/win32/chart_window.h"

#include <array>

#include "platform/win32/scale.h"

namespace win32 {

namespace {

app::HeldKeys KeysHeldAt(const Event& event) {
  return {(event.first & MK_CONTROL) != 0, (event.first & MK_SHIFT) != 0};
}

}  // namespace

void ChartWindow::Attach(HWND handle) {
  handle_ = handle;
}

void ChartWindow::Invalidate(const Rect& area) {
  const RECT pixels = Scale(handle_).Pixels(area);
  InvalidateRect(handle_, &pixels, FALSE);
}

void ChartWindow::TakeFocus() {
  SetFocus(handle_);
}

bool ChartWindow::HasFocus() const {
  return GetFocus() == handle_;
}

void ChartWindow::Capture() {
  SetCapture(handle_);
}

double ChartWindow::DoubleClickSeconds() const {
  return GetDoubleClickTime() / 1000.0;
}

void ChartWindow::ReleaseCapture() {
  ::ReleaseCapture();
}

std::span<const Handler<ChartWindow>> ChartWindow::Handlers() {
  using Logic = app::ChartWindow;
  static constexpr auto kHandlers = std::to_array<Handler<ChartWindow>>({
      {WM_PAINT, &ChartWindow::OnPaint},
      {WM_KEYDOWN, &ChartWindow::OnKey<&Logic::OnKeyDown>},
      {WM_KEYUP, &ChartWindow::OnKey<&Logic::OnKeyUp>},
      {WM_MOUSEMOVE, &ChartWindow::OnMouseMove},
      {WM_LBUTTONDOWN, &ChartWindow::OnLeftDown},
      {WM_LBUTTONUP, &ChartWindow::OnMouse<&Logic::OnLeftUp>},
      {WM_RBUTTONDOWN, &ChartWindow::OnMouse<&Logic::OnRightDown>},
      {WM_RBUTTONUP, &ChartWindow::OnMouse<&Logic::OnRightUp>},
      {WM_MOUSEWHEEL, &ChartWindow::OnWheel},
      {WM_CAPTURECHANGED, &ChartWindow::OnCaptureChanged},
      {WM_COMMAND, &ChartWindow::OnCommand},
  });
  return kHandlers;
}

template <void (app::ChartWindow::*method)(int)>
LRESULT ChartWindow::OnKey(const Event& event) {
  (logic_->*method)(static_cast<int>(event.first));
  return event.Default();
}

template <void (app::ChartWindow::*method)(std::int32_t, std::int32_t)>
LRESULT ChartWindow::OnMouse(const Event& event) {
  const Scale scale(handle_);
  const POINT point = event.Point();
  (logic_->*method)(scale.Units(point.x), scale.Units(point.y));
  return event.Default();
}

LRESULT ChartWindow::OnMouseMove(const Event& event) {
  const Scale scale(handle_);
  const POINT point = event.Point();
  logic_->OnMouseMove(scale.Units(point.x), scale.Units(point.y), (event.first & MK_LBUTTON) != 0,
                      KeysHeldAt(event));
  return event.Default();
}

LRESULT ChartWindow::OnLeftDown(const Event& event) {
  const Scale scale(handle_);
  const POINT point = event.Point();
  logic_->OnLeftDown(scale.Units(point.x), scale.Units(point.y), KeysHeldAt(event));
  return event.Default();
}

LRESULT ChartWindow::OnCaptureChanged(const Event& event) {
  // A window that captures once more what it has is told of it, too.
  if (reinterpret_cast<HWND>(event.second) != handle_) logic_->OnCaptureLost();
  return event.Default();
}

LRESULT ChartWindow::OnCommand(const Event& event) {
  return SendMessageW(GetParent(handle_), event.message, event.first, event.second);
}

LRESULT ChartWindow::OnPaint(const Event& event) {
  logic_->OnPaint();
  return event.Default();
}

LRESULT ChartWindow::OnWheel(const Event& event) {
  const Scale scale(handle_);
  POINT point = event.Point();
  ScreenToClient(handle_, &point);
  const int keys = GET_KEYSTATE_WPARAM(event.first);
  const bool otherButtons = (keys & ~(MK_SHIFT | MK_CONTROL)) != 0;
  logic_->OnWheel(scale.Units(point.x), scale.Units(point.y), GET_WHEEL_DELTA_WPARAM(event.first),
                  (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0, otherButtons);
  return event.Default();
}

}  // namespace win32
