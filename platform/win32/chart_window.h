#pragma once

// The chart's window: its events go to app::ChartWindow. All of them get the default handling afterwards.

#include <span>

#include "app/main_window.h"
#include "chart/chart_window.h"
#include "platform/win32/window_events.h"

namespace win32 {

class ChartWindow final : public UX::ChartWindowPort {
 public:
  ChartWindow() = default;
  ChartWindow(const ChartWindow&) = delete;
  ChartWindow& operator=(const ChartWindow&) = delete;

  /// Before the window is made.
  void Connect(app::ChartWindow& logic) { logic_ = &logic; }
  /// Null before it is made.
  HWND Handle() const { return handle_; }

  void Invalidate(const Rect& area) override;
  void TakeFocus() override;
  bool HasFocus() const override;
  void Capture() override;
  void ReleaseCapture() override;
  double DoubleClickSeconds() const override;

  // For the window procedure.
  void Attach(HWND handle);
  static std::span<const Handler<ChartWindow>> Handlers();

 private:
  template <void (app::ChartWindow::*method)(int)>
  LRESULT OnKey(const Event& event);
  template <void (app::ChartWindow::*method)(std::int32_t, std::int32_t)>
  LRESULT OnMouse(const Event& event);
  LRESULT OnMouseMove(const Event& event);
  LRESULT OnLeftDown(const Event& event);
  LRESULT OnCaptureChanged(const Event& event);
  LRESULT OnCommand(const Event& event);
  LRESULT OnPaint(const Event& event);
  LRESULT OnWheel(const Event& event);

  app::ChartWindow* logic_ = nullptr;
  HWND handle_ = nullptr;
};

}  // namespace win32
