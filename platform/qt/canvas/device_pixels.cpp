#include "platform/qt/canvas/device_pixels.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace qt {

DevicePixels::DevicePixels(const QPainter& painter)
    : fromUnits_(painter.deviceTransform()),
      world_(painter.worldTransform()),
      worldOfPixels_(fromUnits_.inverted() * world_) {}

bool DevicePixels::AreToUnit(double count) const {
  // A device tells its painter of its pixels in steps of 1/65536.
  const auto isCount = [count](double scale) { return std::abs(scale - count) < 1.0 / 0x10000; };
  return fromUnits_.type() <= QTransform::TxScale && isCount(fromUnits_.m11()) && isCount(fromUnits_.m22());
}

void DevicePixels::Copy(QPainter& painter, QPoint leftTop, const QImage& picture, const QRect& part) const {
  // It takes long to change a painter's transform; a mere move is made up for.
  const bool isScaled = fromUnits_.type() > QTransform::TxTranslate;
  const QPointF origin = isScaled ? QPointF() : QPointF(fromUnits_.dx(), fromUnits_.dy());
  if (isScaled) painter.setWorldTransform(worldOfPixels_);
  painter.drawImage(QRectF(leftTop - origin, part.size()), picture, part);
  if (isScaled) painter.setWorldTransform(world_);
}

}  // namespace qt
