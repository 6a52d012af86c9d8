#include "platform/qt/canvas/translucent_shapes.h"

#include <QPainter>

#include "platform/qt/canvas/device_pixels.h"

namespace qt {

namespace {

// Rows of the device's pixels. Qt divides a shape among threads if it has some hundred spans or more; a row
// has three of them or more.
constexpr double kFewRows = 24.0;

// The part of `bounds` that the painter can reach, grown to whole pixels of the device.
QRect ReachedPixels(const QPainter& painter, const DevicePixels& pixels, const QRectF& bounds) {
  const QRectF reach = painter.worldTransform().inverted().mapRect(QRectF(painter.viewport()));
  return pixels.FromUnits().mapRect(bounds.intersected(reach)).toAlignedRect();
}

}  // namespace

TranslucentShapes::TranslucentShapes(double scale) : scale_(scale) {}

bool TranslucentShapes::IsFor(const QRectF& bounds, const QColor& color) const {
  return color.alpha() < 255 && bounds.height() * scale_ > kFewRows;
}

void TranslucentShapes::Draw(QPainter& painter, const DevicePixels& pixels, const QRectF& bounds,
                             const QColor& color, const std::function<void(QPainter&, const QColor&)>& draw) {
  const QRect place = ReachedPixels(painter, pixels, bounds);
  if (place.isEmpty()) return;
  if (aside_.width() < place.width() || aside_.height() < place.height())
    aside_ = QImage(aside_.size().expandedTo(place.size()), QImage::Format_ARGB32_Premultiplied);
  if (aside_.isNull()) return;

  const QRect part({0, 0}, place.size());
  QColor opaque = color;
  opaque.setAlpha(255);
  QPainter aside(&aside_);
  aside.setCompositionMode(QPainter::CompositionMode_Source);
  aside.fillRect(part, Qt::transparent);
  aside.setCompositionMode(QPainter::CompositionMode_SourceOver);
  aside.setRenderHint(QPainter::Antialiasing);
  aside.setWorldTransform(pixels.FromUnits() * QTransform::fromTranslate(-place.x(), -place.y()));
  draw(aside, opaque);
  aside.end();

  painter.setOpacity(color.alphaF());
  pixels.Copy(painter, place.topLeft(), aside_, part);
  painter.setOpacity(1.0);
}

}  // namespace qt
