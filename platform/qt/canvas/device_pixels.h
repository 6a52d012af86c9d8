#pragma once

// The pixels of what a painter draws on. A picture that is made of them is copied to them one by one: sampled
// anew, it would lose its sharpness. User interface thread.

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QTransform>

class QImage;
class QPainter;

namespace qt {

class DevicePixels {
 public:
  DevicePixels() = default;
  /// Those of `painter` under the transform that it has now.
  explicit DevicePixels(const QPainter& painter);

  /// Whether a unit has as many of them as this in both directions, and nothing is turned. Otherwise nothing
  /// is to be copied.
  bool AreToUnit(double count) const;

  /// From the coordinates that the painter takes to pixels. A widget may begin between two of them.
  const QTransform& FromUnits() const { return fromUnits_; }

  /// Draws a part of a picture with its left top at a pixel. The painter has the transform of the
  /// constructor.
  void Copy(QPainter& painter, QPoint leftTop, const QImage& picture, const QRect& part) const;

 private:
  QTransform fromUnits_;
  QTransform world_;          // the painter's
  QTransform worldOfPixels_;  // under this one a unit is a pixel
};

}  // namespace qt
