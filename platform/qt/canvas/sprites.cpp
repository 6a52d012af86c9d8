#include "platform/qt/canvas/sprites.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <variant>

#include "platform/qt/canvas/device_pixels.h"

namespace qt {

namespace {

// More than two frames have. The dots of a demo take new looks as they grow, and these must not drive out
// those of the markers.
constexpr qsizetype kMostBytes = qsizetype{8} * 1024 * 1024;
// Pixels of the device; a larger shape is better drawn than copied. Lines are thin: a long one is not.
constexpr double kLargestSprite = 96.0;
constexpr double kLongestLine = 8192.0;
constexpr int kParts = 256;

std::optional<SpriteBox> RoundBox(const UX::Circle& circle) {
  if (circle.radius <= 0.0F) return std::nullopt;
  const float side = 2.0F * circle.radius;
  return SpriteBox{circle.center.x - circle.radius, circle.center.y - circle.radius, side, side, true};
}

// A box without width or height.
std::optional<SpriteBox> BoxOf(const UX::Line& line) {
  const auto [left, right] = std::minmax(line.from.x, line.to.x);
  const auto [top, bottom] = std::minmax(line.from.y, line.to.y);
  if ((left == right) == (top == bottom)) return std::nullopt;
  return SpriteBox{left, top, right - left, bottom - top, false};
}

std::optional<SpriteBox> BoxOf(const UX::Shape& shape) {
  if (const auto* const circle = std::get_if<UX::Circle>(&shape)) return RoundBox(*circle);
  const auto* const box = std::get_if<UX::Rectangle>(&shape);
  if (box == nullptr || box->width <= 0.0F || box->height <= 0.0F) return std::nullopt;
  return SpriteBox{box->x, box->y, box->width, box->height, false};
}

// Pixels that a sprite has around its box, for the stroke.
int MarginOf(const SpriteLook& look, double scale) {
  return look.strokeWidth > 0.0F ? 1 + static_cast<int>(std::ceil(look.strokeWidth * scale / 2.0)) : 0;
}

int PixelsOf(double length, int part) {
  return static_cast<int>(std::ceil(length + part / double{kParts}));
}

}  // namespace

Sprites::Sprites(double scale) : scale_(scale) {}

bool Sprites::Draw(QPainter& painter, const DevicePixels& pixels, const UX::Shape& shape, UX::Point offset,
                   const QColor& color, float strokeWidth) {
  const auto box = BoxOf(shape);
  if (!box || (std::max(box->width, box->height) + strokeWidth) * scale_ > kLargestSprite) return false;
  DrawBox(painter, pixels, *box, offset, color, strokeWidth);
  return true;
}

bool Sprites::DrawLine(QPainter& painter, const DevicePixels& pixels, const UX::Line& line, UX::Point offset,
                       const QColor& color, float width) {
  const auto box = BoxOf(line);
  if (!box || width * scale_ > kLargestSprite || std::max(box->width, box->height) * scale_ > kLongestLine)
    return false;
  DrawBox(painter, pixels, *box, offset, color, width);
  return true;
}

void Sprites::DrawBox(QPainter& painter, const DevicePixels& pixels, const SpriteBox& box, UX::Point offset,
                      const QColor& color, float strokeWidth) {
  // Places are counted in 256ths of the device's pixels, which hides what floats lose on the way.
  const QPointF place = pixels.FromUnits().map(QPointF(double{box.x} + offset.x, double{box.y} + offset.y));
  const auto x = std::llround(place.x() * kParts);
  const auto y = std::llround(place.y() * kParts);
  const SpriteLook look{box.round,
                        box.width,
                        box.height,
                        strokeWidth,
                        color.rgb(),
                        static_cast<int>(x & (kParts - 1)),
                        static_cast<int>(y & (kParts - 1))};
  const int margin = MarginOf(look, scale_);
  const QPoint leftTop(static_cast<int>(x >> 8) - margin, static_cast<int>(y >> 8) - margin);
  const QImage& image = Find(look);
  const bool isOpaque = color.alpha() == 255;
  if (!isOpaque) painter.setOpacity(color.alphaF());
  pixels.Copy(painter, leftTop, image, image.rect());
  if (!isOpaque) painter.setOpacity(1.0);
}

const QImage& Sprites::Find(const SpriteLook& look) {
  auto found = sprites_.find(look);
  if (found == sprites_.end()) {
    QImage image = Make(look);
    MakeRoom(image.sizeInBytes());
    bytes_ += image.sizeInBytes();
    found = sprites_.emplace(look, Sprite{std::move(image)}).first;
  }
  found->second.lastUse = ++uses_;
  return found->second.image;
}

void Sprites::MakeRoom(qsizetype bytes) {
  while (!sprites_.empty() && bytes_ + bytes > kMostBytes) {
    const auto longestUnused =
        std::ranges::min_element(sprites_, {}, [](const auto& sprite) { return sprite.second.lastUse; });
    bytes_ -= longestUnused->second.image.sizeInBytes();
    sprites_.erase(longestUnused);
  }
}

QImage Sprites::Make(const SpriteLook& look) const {
  const int margin = MarginOf(look, scale_);
  const QSize size(PixelsOf(look.width * scale_, look.xPart) + 2 * margin,
                   PixelsOf(look.height * scale_, look.yPart) + 2 * margin);
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(margin + look.xPart / double{kParts}, margin + look.yPart / double{kParts});
  painter.scale(scale_, scale_);
  const QColor color(look.color);
  painter.setPen(look.strokeWidth > 0.0F
                     ? QPen(color, look.strokeWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin)
                     : QPen(Qt::NoPen));
  painter.setBrush(look.strokeWidth > 0.0F ? QBrush(Qt::NoBrush) : QBrush(color));
  const QRectF box(0.0, 0.0, look.width, look.height);
  if (look.round) {
    painter.drawEllipse(box);
  } else if (box.isEmpty()) {
    painter.drawLine(box.topLeft(), box.bottomRight());
  } else {
    painter.drawRect(box);
  }
  return image;
}

}  // namespace qt
