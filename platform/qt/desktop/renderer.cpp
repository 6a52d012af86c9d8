#include "platform/qt/desktop/renderer.h"

#include <QPainter>

#include <cmath>

namespace qt {

namespace {

// A demo moves less than a pixel in this time.
constexpr int kDemoFrameMilliseconds = 40;

// The way from the origin to the nearest whole pixel of the device, in units: what is drawn in whole pixels
// stays so where the widget begins between two.
QPointF ToWholePixel(const QPainter& painter) {
  const QTransform& toDevice = painter.deviceTransform();
  const QPointF origin = toDevice.map(QPointF());
  const QPointF off(std::round(origin.x()) - origin.x(), std::round(origin.y()) - origin.y());
  return off / painter.device()->devicePixelRatioF();
}

}  // namespace

Renderer::Renderer(const UX::ChartScene& scene, ChartWindow& chart, EventQueue& events)
    : RendererBase(scene), chart_(chart), events_(events), drawing_(scene) {}

void Renderer::Rebuild() {
  if (chart_.Widget() == nullptr) return;
  scale_ = chart_.Widget()->devicePixelRatioF();
  canvas_.emplace(Surface::Pixels, scale_);
  drawing_.Rebuild(*canvas_);
}

void Renderer::Relayout() {
  if (canvas_) drawing_.Relayout(*canvas_);
}

void Renderer::Render() {
  if (QPainter* const painter = chart_.Painter()) {
    Draw(*painter);
    return;
  }
  const bool isDemoAlone = demo.IsRunning() && !IsAnimating() && !layout.IsGliding();
  chart_.RequestFrame(isDemoAlone ? kDemoFrameMilliseconds : ChartWindow::kFrameMilliseconds);
  events_.AwaitEvent(ChartWindow::kFrameMilliseconds);
}

void Renderer::Draw(QPainter& painter) {
  if (!canvas_) return;
  // The window has come to a screen of another resolution.
  if (scale_ != chart_.Widget()->devicePixelRatioF()) Rebuild();
  painter.fillRect(chart_.Widget()->rect(), Qt::white);
  painter.translate(ToWholePixel(painter));
  canvas_->Begin(painter);
  drawing_.Draw(*canvas_);
  canvas_->End();
}

}  // namespace qt
