#pragma once

// The chart on the screen: the frame of UX::ChartDrawing, carried by Qt's painter.

#include <cstdint>
#include <optional>

#include "chart/chart_drawing.h"
#include "chart/renderer_base.h"
#include "platform/qt/canvas/qt_canvas.h"
#include "platform/qt/desktop/chart_window.h"
#include "platform/qt/desktop/event_queue.h"

namespace qt {

class Renderer final : public UX::RendererBase {
 public:
  /// Both outlive the renderer; the widget is made before Initialise.
  Renderer(const UX::ChartScene& scene, ChartWindow& chart, EventQueue& events);

  void Initialise() override { Rebuild(); }
  void Release() override { canvas_.reset(); }
  /// Within a paint event it draws. From the main loop it waits until a frame is due or something else
  /// happens: no more frames are drawn than a screen shows.
  void Render() override;
  void Update() override { drawing_.Update(); }
  void Rebuild() override;
  void Relayout() override;
  void MouseMoved(std::int32_t x, std::int32_t y) override { drawing_.MouseMoved(x, y); }
  bool IsAnimating() override { return drawing_.IsAnimating(); }

 private:
  void Draw(QPainter& painter);

  ChartWindow& chart_;
  EventQueue& events_;
  UX::ChartDrawing drawing_;
  std::optional<QtCanvas> canvas_;
  double scale_ = 0.0;  // of the canvas: pixels of the device to a unit
};

}  // namespace qt
