#pragma once

// Small shapes and thin ones that come many times in a frame, such as the step markers and the lines of the
// grid. Each is drawn once, and is put in place as a picture from then on. User interface thread.

#include <QColor>
#include <QImage>

#include <compare>
#include <cstdint>
#include <map>

#include "chart/canvas.h"

class QPainter;

namespace qt {

class DevicePixels;

/// Where a small shape is.
struct SpriteBox {
  float x = 0.0F;
  float y = 0.0F;
  float width = 0.0F;
  float height = 0.0F;
  bool round = false;  // an ellipse in the box; otherwise the box itself
};

/// What it looks like, wherever it is.
struct SpriteLook {
  bool round = false;
  float width = 0.0F;  // of the box
  float height = 0.0F;
  float strokeWidth = 0.0F;  // 0 for a shape that is filled
  QRgb color = 0;            // opaque
  // Where the box begins within a pixel of the device, in 256ths. Steps stand on whole pixels, so all steps
  // of one look share one picture.
  int xPart = 0;
  int yPart = 0;

  friend auto operator<=>(const SpriteLook&, const SpriteLook&) = default;
};

class Sprites {
 public:
  /// `scale` is the number of the device's pixels to a unit.
  explicit Sprites(double scale);

  /// Draws a circle or a rectangle, filled if `strokeWidth` is 0. False, and nothing is drawn, if the shape
  /// is another one or too large. `pixels` are the painter's, of this scale.
  bool Draw(QPainter& painter, const DevicePixels& pixels, const UX::Shape& shape, UX::Point offset,
            const QColor& color, float strokeWidth);
  /// The same for a line that is level or upright.
  bool DrawLine(QPainter& painter, const DevicePixels& pixels, const UX::Line& line, UX::Point offset,
                const QColor& color, float width);

 private:
  struct Sprite {
    QImage image;
    std::uint64_t lastUse = 0;
  };

  void DrawBox(QPainter& painter, const DevicePixels& pixels, const SpriteBox& box, UX::Point offset,
               const QColor& color, float strokeWidth);
  const QImage& Find(const SpriteLook& look);
  QImage Make(const SpriteLook& look) const;
  void MakeRoom(qsizetype bytes);

  const double scale_;
  std::map<SpriteLook, Sprite> sprites_;
  qsizetype bytes_ = 0;  // of all images
  std::uint64_t uses_ = 0;
};

}  // namespace qt
