#pragma once

// Small shapes that come many times in a frame, as the step markers do: drawn once and put in place as
// pictures from then on. User interface thread.

#include <QColor>
#include <QImage>

#include <cstdint>
#include <vector>

#include "chart/canvas.h"

class QPainter;

namespace qt {

/// What a small shape looks like, wherever it is.
struct SpriteLook {
  bool round = false;  // an ellipse in the box, or the box itself
  float width = 0.0F;  // of the box
  float height = 0.0F;
  float strokeWidth = 0.0F;  // 0: filled
  QRgb color = 0;
  // The box begins so many 256ths into a pixel of the device. Steps stand on whole pixels, so all of one look
  // share one picture.
  int xPart = 0;
  int yPart = 0;

  friend bool operator==(const SpriteLook&, const SpriteLook&) = default;
};

class Sprites {
 public:
  /// `scale` is the number of the device's pixels to a unit.
  explicit Sprites(double scale);

  /// Draws a circle or a rectangle; false, and nothing drawn, if the shape is another or large. With
  /// `strokeWidth` 0 it is filled.
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
