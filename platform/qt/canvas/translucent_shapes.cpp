#include "platform/qt/canvas/translucent_shapes.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

// Rows of the device's pixels. Qt divides a shape among threads if it has some hundred spans or more; a row
// has three of them or more.
constexpr double kFewRows = 24.0;

// The part of `bounds` that the painter can reach, grown to whole pixels of the device. So the picture of it
// lands exactly in its place.
QRect ReachedPixels(const QPainter& painter, const QRectF& bounds, double scale) {
  const QRectF reach = painter.worldTransform().inverted().mapRect(QRectF(painter.viewport()));
  const QRectF reached = bounds.intersected(reach);
  const QPointF leftTop = reached.topLeft() * scale;
  const QPointF rightBottom = reached.bottomRight() * scale;
  return QRect(QPoint(static_cast<int>(std::floor(leftTop.x())), static_cast<int>(std::floor(leftTop.y()))),
               QPoint(static_cast<int>(std::ceil(rightBottom.x())) - 1,
                      static_cast<int>(std::ceil(rightBottom.y())) - 1));
}

}  // namespace

TranslucentShapes::TranslucentShapes(double scale) : scale_(scale) {}

bool TranslucentShapes::IsFor(const QRectF& bounds, const QColor& color) const {
  return color.alpha() < 255 && bounds.height() * scale_ > kFewRows;
}

void TranslucentShapes::Draw(QPainter& painter, const QRectF& bounds, const QColor& color,
                             const std::function<void(QPainter&, const QColor&)>& draw) {
  const QRect pixels = ReachedPixels(painter, bounds, scale_);
  if (pixels.isEmpty()) return;
  if (aside_.width() < pixels.width() || aside_.height() < pixels.height())
    aside_ = QImage(aside_.size().expandedTo(pixels.size()), QImage::Format_ARGB32_Premultiplied);
  if (aside_.isNull()) return;

  QColor opaque = color;
  opaque.setAlpha(255);
  QPainter aside(&aside_);
  aside.setCompositionMode(QPainter::CompositionMode_Source);
  aside.fillRect(QRect({0, 0}, pixels.size()), Qt::transparent);
  aside.setCompositionMode(QPainter::CompositionMode_SourceOver);
  aside.setRenderHint(QPainter::Antialiasing);
  aside.translate(-pixels.topLeft());
  aside.scale(scale_, scale_);
  draw(aside, opaque);
  aside.end();

  const QRectF place(QPointF(pixels.topLeft()) / scale_, QSizeF(pixels.size()) / scale_);
  painter.setOpacity(color.alphaF());
  painter.drawImage(place, aside_, QRectF({0, 0}, pixels.size()));
  painter.setOpacity(1.0);
}

}  // namespace qt
