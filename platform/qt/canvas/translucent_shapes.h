#pragma once

// Large shapes in a colour that is not opaque. Qt divides the pixels of such a shape among threads, and waits
// for these longer than the pixels take. So the shape is drawn opaque into a picture of its own, which is
// then put in place as a whole. User interface thread.

#include <QColor>
#include <QImage>
#include <QRectF>

#include <functional>

class QPainter;

namespace qt {

class DevicePixels;

class TranslucentShapes {
 public:
  /// `scale` is the number of the device's pixels to a unit.
  explicit TranslucentShapes(double scale);

  /// Whether a shape within `bounds` is better drawn by this. Qt does not divide a few rows of pixels.
  bool IsFor(const QRectF& bounds, const QColor& color) const;
  /// Draws a shape within `bounds`. `draw` is called to draw it, with the painter and the opaque colour that
  /// it is to use. `pixels` are the painter's.
  void Draw(QPainter& painter, const DevicePixels& pixels, const QRectF& bounds, const QColor& color,
            const std::function<void(QPainter&, const QColor&)>& draw);

 private:
  const double scale_;
  QImage aside_;  // grows to what is needed
};

}  // namespace qt
