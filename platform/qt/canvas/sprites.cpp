#include "platform/qt/canvas/sprites.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

#include "common/truncate.h"

namespace qt {

namespace {

// More looks than two frames have. The dots of a demo take new looks as they grow, and these must not drive
// out those of the markers.
constexpr std::size_t kMostSprites = 48;
// Pixels of the device; a larger shape is better drawn than copied.
constexpr double kLargestSprite = 96.0;
constexpr int kParts = 256;

struct Box {
  float x;
  float y;
  float width;
  float height;
  bool round;
};

std::optional<Box> BoxOf(const UX::Shape& shape) {
  if (const auto* const circle = std::get_if<UX::Circle>(&shape)) {
    if (circle->radius <= 0.0F) return std::nullopt;
    const float side = 2.0F * circle->radius;
    return Box{circle->center.x - circle->radius, circle->center.y - circle->radius, side, side, true};
  }
  const auto* const box = std::get_if<UX::Rectangle>(&shape);
  if (box == nullptr || box->width <= 0.0F || box->height <= 0.0F) return std::nullopt;
  return Box{box->x, box->y, box->width, box->height, false};
}

// Pixels that a sprite has around its box, for the stroke and for a box that begins within a pixel.
int MarginOf(const SpriteLook& look, double scale) {
  return 2 + static_cast<int>(std::ceil(look.strokeWidth * scale / 2.0));
}

}  // namespace

Sprites::Sprites(double scale) : scale_(scale) {
  sprites_.reserve(kMostSprites);
}

bool Sprites::Draw(QPainter& painter, const UX::Shape& shape, UX::Point offset, const QColor& color,
                   float strokeWidth) {
  const auto box = BoxOf(shape);
  if (!box || (std::max(box->width, box->height) + strokeWidth) * scale_ > kLargestSprite) return false;
  // Places are counted in 256ths of the device's pixels, which hides what floats lose on the way.
  const auto x = std::llround((static_cast<double>(box->x) + offset.x) * scale_ * kParts);
  const auto y = std::llround((static_cast<double>(box->y) + offset.y) * scale_ * kParts);
  const SpriteLook look{box->round,
                        box->width,
                        box->height,
                        strokeWidth,
                        color.rgba(),
                        static_cast<int>(x & (kParts - 1)),
                        static_cast<int>(y & (kParts - 1))};
  const int margin = MarginOf(look, scale_);
  const auto left = static_cast<double>((x >> 8) - margin);
  const auto top = static_cast<double>((y >> 8) - margin);
  painter.drawImage(QPointF(left / scale_, top / scale_), Find(look));
  return true;
}

const QImage& Sprites::Find(const SpriteLook& look) {
  auto found = std::ranges::find(sprites_, look, &Sprite::look);
  if (found == sprites_.end()) {
    if (sprites_.size() < kMostSprites) {
      sprites_.emplace_back();
      found = std::prev(sprites_.end());
    } else {
      found = std::ranges::min_element(sprites_, {}, &Sprite::lastUse);
    }
    found->look = look;
    found->image = Make(look);
  }
  found->lastUse = ++uses_;
  return found->image;
}

QImage Sprites::Make(const SpriteLook& look) const {
  const int margin = MarginOf(look, scale_);
  const QSize size(static_cast<int>(std::ceil(look.width * scale_)) + 2 * margin,
                   static_cast<int>(std::ceil(look.height * scale_)) + 2 * margin);
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(margin + look.xPart / double{kParts}, margin + look.yPart / double{kParts});
  painter.scale(scale_, scale_);
  const QColor color = QColor::fromRgba(look.color);
  painter.setPen(look.strokeWidth > 0.0F
                     ? QPen(color, look.strokeWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin)
                     : QPen(Qt::NoPen));
  painter.setBrush(look.strokeWidth > 0.0F ? QBrush(Qt::NoBrush) : QBrush(color));
  const QRectF box(0.0, 0.0, look.width, look.height);
  if (look.round) {
    painter.drawEllipse(box);
  } else {
    painter.drawRect(box);
  }
  painter.end();
  image.setDevicePixelRatio(scale_);
  return image;
}

}  // namespace qt
