#pragma once

// Small shapes that come many times in a frame, such as the step markers. Each is drawn once, and is put in
// place as a picture from then on. User interface thread.

#include <QColor>
#include <QImage>

#include <cstdint>
#include <vector>

#include "chart/canvas.h"

class QPainter;

namespace qt {

/// What a small shape looks like, wherever it is.
struct SpriteLook {
  bool round = false;  // an ellipse in the box; otherwise the box itself
  float width = 0.0F;  // of the box
  float height = 0.0F;
  float strokeWidth = 0.0F;  // 0 for a shape that is filled
  QRgb color = 0;
  // Where the box begins within a pixel of the device, in 256ths. Steps stand on whole pixels, so all steps
  // of one look share one picture.
  int xPart = 0;
  int yPart = 0;

  friend bool operator==(const SpriteLook&, const SpriteLook&) = default;
};

class Sprites {
 public:
  /// `scale` is the number of the device's pixels to a unit.
  explicit Sprites(double scale);

  /// Draws a circle or a rectangle, filled if `strokeWidth` is 0. False, and nothing is drawn, if the shape
  /// is another one or too large.
  bool Draw(QPainter& painter, const UX::Shape& shape, UX::Point offset, const QColor& color,
            float strokeWidth);

 private:
  struct Sprite {
    SpriteLook look;
    QImage image;
    std::uint64_t lastUse = 0;
  };

  const QImage& Find(const SpriteLook& look);
  QImage Make(const SpriteLook& look) const;

  const double scale_;
  std::vector<Sprite> sprites_;
  std::uint64_t uses_ = 0;
};

}  // namespace qt
