#pragma once

// Large shapes in a colour that is not opaque. Qt hands the pixels of such a shape to other threads in bits,
// and waits for them longer than the pixels take; so it is drawn opaque aside, and put in place as a whole.
// User interface thread.

#include <QColor>
#include <QImage>
#include <QRectF>

#include <functional>

class QPainter;

namespace qt {

class TranslucentShapes {
 public:
  /// `scale` is the number of the device's pixels to a unit.
  explicit TranslucentShapes(double scale);

  /// Whether a shape within `bounds` is better drawn by this. A few rows of pixels are not divided.
  bool IsFor(const QRectF& bounds, const QColor& color) const;
  /// Has `draw` draw a shape within `bounds`, opaque, with the painter and in the colour that it is given.
  void Draw(QPainter& painter, const QRectF& bounds, const QColor& color,
            const std::function<void(QPainter&, const QColor&)>& draw);

 private:
  const double scale_;
  QImage aside_;  // grows to what is needed
};

}  // namespace qt
