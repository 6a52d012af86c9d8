#pragma once

// The chart's window: its events go to app::ChartWindow.

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "app/main_window.h"
#include "chart/chart_window.h"
#include "platform/qt/desktop/wheel_notches.h"

class QPainter;

namespace qt {

class ChartWindow final : public UX::ChartWindowPort {
 public:
  /// Frames that come faster than this nobody sees.
  static constexpr int kFrameMilliseconds = 16;

  ChartWindow();
  ~ChartWindow() override;
  ChartWindow(const ChartWindow&) = delete;
  ChartWindow& operator=(const ChartWindow&) = delete;

  /// Before the window is made.
  void Connect(app::ChartWindow& logic) { logic_ = &logic; }
  /// Makes the widget, which `parent` owns.
  QWidget* Create(QWidget* parent);
  /// Null before it is made and after it has gone.
  QWidget* Widget() const { return widget_; }

  /// The painter of the paint event that is handled; null outside of one.
  QPainter* Painter() const { return painter_; }
  bool IsCaptured() const { return captured_; }
  /// Has a frame painted, but so many milliseconds behind the last one at the earliest. The paint event comes
  /// later; a nearer time that was asked for already stands.
  void RequestFrame(int milliseconds);

  void Invalidate(const Rect& area) override;
  void TakeFocus() override;
  bool HasFocus() const override;
  void Capture() override;
  void ReleaseCapture() override;
  double DoubleClickSeconds() const override;

 private:
  class Area;

  void Paint();
  void LoseCapture();

  app::ChartWindow* logic_ = nullptr;
  QPointer<QWidget> widget_;
  QPainter* painter_ = nullptr;
  bool captured_ = false;
  WheelNotches wheel_;
  QTimer frameTimer_;
  QElapsedTimer sinceFrame_;  // since the last paint event, or since it was asked for
};

}  // namespace qt
