#include "platform/qt/canvas/qt_canvas.h"

#include <QPen>

#include <algorithm>
#include <cmath>
#include <variant>

namespace qt {

namespace {

// Pixels; what of a label is beyond is on no screen.
constexpr int kLargestLabel = 16384;

// Flat ends and sharp corners, as far out as Direct2D draws them. What Qt rasterizes itself it measures in
// whole widths of the stroke, a PDF in halves.
QPen PenOf(const QColor& color, float width, Surface surface) {
  QPen pen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  pen.setMiterLimit(surface == Surface::Pixels ? 5.0 : 10.0);
  return pen;
}

// Inch by inch is Qt's way to carry a picture to another device; ours goes unit by unit.
void PlayPicture(QPainter& painter, QPointF place, const QPicture& picture) {
  painter.save();
  painter.translate(place);
  painter.scale(1.0 * picture.logicalDpiX() / painter.device()->logicalDpiX(),
                1.0 * picture.logicalDpiY() / painter.device()->logicalDpiY());
  painter.drawPicture(QPointF(), picture);
  painter.restore();
}

int LabelPixels(std::int32_t units, double scale) {
  return static_cast<int>(std::clamp(std::ceil(units * scale), 1.0, double{kLargestLabel}));
}

const QRectF kEverything(QPointF(-UX::kFarthest, -UX::kFarthest) * 4.0,
                         QPointF(UX::kFarthest, UX::kFarthest) * 4.0);

bool IsSingleLine(const UX::Figure::Contour& contour) {
  return !contour.closed && contour.end - contour.begin == 2;
}

}  // namespace

QtCanvas::QtCanvas(Surface surface, double scale)
    : surface_(surface), scale_(scale), sprites_(scale), translucentShapes_(scale) {}

void QtCanvas::Begin(QPainter& painter) {
  UseStage(painter);
}

void QtCanvas::End() {
  stage_ = {};
}

void QtCanvas::UseStage(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  stage_ = {&painter, painter.worldTransform(), DevicePixels(painter), UX::kIdentity, {}, false};
}

void QtCanvas::SetBrush(UX::Brush brush, UX::Color color, float opacity) {
  colors_[static_cast<std::size_t>(brush)] = QColor(color.red, color.green, color.blue);
  SetOpacity(brush, opacity);
}

void QtCanvas::SetOpacity(UX::Brush brush, float opacity) {
  // std::max last, so that not-a-number is 0.
  colors_[static_cast<std::size_t>(brush)].setAlphaF(std::max(0.0F, std::min(opacity, 1.0F)));
}

void QtCanvas::SetFont(UX::TextFormat format, const UX::Font& font) {
  text_ = nullptr;
  texts_.SetFont(format, font);
}

void QtCanvas::SetTransform(const UX::Transform& transform) {
  if (transform == stage_.transform) return;
  stage_.transform = transform;
  const bool moved = transform.scale != 1.0F;
  stage_.offset = moved ? UX::Point{} : transform.offset;
  if (moved) {
    const QTransform placed(transform.scale, 0.0, 0.0, transform.scale, transform.offset.x,
                            transform.offset.y);
    stage_.painter->setWorldTransform(placed * stage_.base);
  } else if (stage_.moved) {
    stage_.painter->setWorldTransform(stage_.base);
  }
  stage_.moved = moved;
}

QRectF QtCanvas::Reach() const {
  if (surface_ == Surface::Vectors) return kEverything;
  const QTransform& toDevice = stage_.painter->worldTransform();
  // The room around is for strokes.
  constexpr double kRoom = 256.0;
  return toDevice.inverted().mapRect(
      QRectF(stage_.painter->viewport()).marginsAdded({kRoom, kRoom, kRoom, kRoom}));
}

bool QtCanvas::DrawSprite(const UX::Shape& shape, const QColor& color, float strokeWidth) {
  return IsOnPixels() &&
         sprites_.Draw(*stage_.painter, stage_.pixels, shape, stage_.offset, color, strokeWidth);
}

void QtCanvas::DrawLine(const UX::Line& line, const QColor& color, float width) {
  if (IsOnPixels() && sprites_.DrawLine(*stage_.painter, stage_.pixels, line, stage_.offset, color, width))
    return;
  lines_.emplace_back(At(line.from), At(line.to));
}

template <class Draw>
void QtCanvas::Paint(const QRectF& bounds, const QColor& color, Draw draw) {
  if (IsOnPixels() && translucentShapes_.IsFor(bounds, color)) {
    translucentShapes_.Draw(*stage_.painter, stage_.pixels, bounds, color, draw);
  } else {
    draw(*stage_.painter, color);
  }
}

void QtCanvas::MakePath(const UX::Shape& shape) {
  path_.clear();
  if (const auto* const line = std::get_if<UX::Line>(&shape)) {
    path_.moveTo(At(line->from));
    path_.lineTo(At(line->to));
  } else if (const auto* const box = std::get_if<UX::Rectangle>(&shape)) {
    const QPointF corner = At({box->x, box->y});
    if (box->width > 0.0F && box->height > 0.0F) {
      path_.addRect({corner, QSizeF(box->width, box->height)});
    } else {
      path_.moveTo(corner);
      path_.lineTo(corner + QPointF(box->width, box->height));
    }
  } else if (const auto* const rounded = std::get_if<UX::RoundedRectangle>(&shape)) {
    const QSizeF size(rounded->box.width, rounded->box.height);
    path_.addRoundedRect({At({rounded->box.x, rounded->box.y}), size}, rounded->radius, rounded->radius);
  } else if (const auto* const circle = std::get_if<UX::Circle>(&shape)) {
    path_.addEllipse(At(circle->center), circle->radius, circle->radius);
  }
}

void QtCanvas::Fill(const UX::Shape& shape, UX::Brush brush) {
  const QColor& color = ColorOf(brush);
  if (DrawSprite(shape, color, 0.0F)) return;
  if (const auto* const box = std::get_if<UX::Rectangle>(&shape)) {
    stage_.painter->fillRect({At({box->x, box->y}), QSizeF(box->width, box->height)}, color);
    return;
  }
  if (std::holds_alternative<UX::Line>(shape)) return;
  MakePath(shape);
  stage_.painter->fillPath(path_, color);
}

void QtCanvas::Stroke(const UX::Shape& shape, UX::Brush brush, float width) {
  const QColor& color = ColorOf(brush);
  if (DrawSprite(shape, color, width)) return;
  MakePath(shape);
  const QMarginsF margins(width, width, width, width);
  Paint(path_.boundingRect() + margins, color, [&](QPainter& painter, const QColor& paint) {
    painter.strokePath(path_, PenOf(paint, width, surface_));
  });
}

void QtCanvas::FillFigure(const UX::Figure& figure, UX::Brush brush) {
  const QColor& color = ColorOf(brush);
  if (figure.Contours().size() == 1) {
    outline_.SetFill(figure.Points(), stage_.offset);
    Paint(outline_.Bounds(), color, [this](QPainter& painter, const QColor& paint) {
      outline_.Fill(painter, paint, Reach(), IsOnPixels());
    });
    return;
  }
  // Together, since where two contours overlap there is a hole.
  path_.clear();
  for (const auto& contour : figure.Contours()) {
    const auto points = figure.PointsOf(contour);
    path_.moveTo(At(points.front()));
    for (const UX::Point point : points.subspan(1)) path_.lineTo(At(point));
    path_.closeSubpath();
  }
  stage_.painter->fillPath(path_, color);
}

void QtCanvas::StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) {
  const QColor& color = ColorOf(brush);
  const QPen pen = PenOf(color, width, surface_);
  lines_.clear();
  for (const auto& contour : figure.Contours()) {
    const auto points = figure.PointsOf(contour);
    if (IsSingleLine(contour)) {
      DrawLine({points.front(), points.back()}, color, width);
    } else {
      outline_.SetStroke(points, contour.closed, stage_.offset);
      outline_.Stroke(*stage_.painter, pen, Reach());
    }
  }
  if (lines_.empty()) return;
  stage_.painter->setPen(pen);
  stage_.painter->drawLines(lines_.data(), static_cast<int>(lines_.size()));
}

void QtCanvas::FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) {
  const auto count = static_cast<int>(colors.size());
  if (columns_.width() != count) columns_ = QImage(count, 1, QImage::Format_RGB32);
  auto* pixel = reinterpret_cast<QRgb*>(columns_.scanLine(0));
  for (const UX::Color& color : colors) *pixel++ = qRgb(color.red, color.green, color.blue);
  stage_.painter->drawImage(QRectF(At({box.x, box.y}), QSizeF(box.width, box.height)), columns_);
}

UX::TextSize QtCanvas::LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) {
  text_ = &texts_.LayOut(format, text, limits);
  return text_->size;
}

void QtCanvas::DrawLayout(UX::Brush brush) {
  if (text_ == nullptr) return;
  if (!stage_.moved) stage_.painter->translate(stage_.offset.x, stage_.offset.y);
  DrawLaidOutText(*stage_.painter, *text_, ColorOf(brush));
  if (!stage_.moved) stage_.painter->setWorldTransform(stage_.base);
}

void QtCanvas::BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) {
  stageBefore_ = stage_;
  label_ = &labels_[static_cast<std::size_t>(label)];
  if (surface_ == Surface::Pixels) {
    QImage& pixels = label_->pixels;
    pixels =
        QImage(LabelPixels(width, scale_), LabelPixels(height, scale_), QImage::Format_ARGB32_Premultiplied);
    pixels.setDevicePixelRatio(scale_);
    pixels.fill(Qt::transparent);
    labelPainter_.emplace(&pixels);
  } else {
    label_->vectors = QPicture();
    labelPainter_.emplace(&label_->vectors);
    labelPainter_->setClipRect(0, 0, width, height);
  }
  UseStage(*labelPainter_);
}

void QtCanvas::EndLabel() {
  labelPainter_.reset();
  label_ = nullptr;
  stage_ = stageBefore_;
}

void QtCanvas::DrawPixels(const QPointF& origin, const QImage& pixels) {
  if (IsOnPixels()) {
    const QPoint leftTop = stage_.pixels.FromUnits().map(origin).toPoint();
    stage_.pixels.Copy(*stage_.painter, leftTop, pixels, pixels.rect());
  } else {
    stage_.painter->drawImage(origin, pixels);
  }
}

void QtCanvas::DrawLabel(UX::Label label) {
  LabelPicture& picture = labels_[static_cast<std::size_t>(label)];
  const QPointF origin = At({});
  if (surface_ == Surface::Vectors) {
    if (!picture.vectors.isNull()) PlayPicture(*stage_.painter, origin, picture.vectors);
  } else if (!picture.pixels.isNull()) {
    DrawPixels(origin, picture.pixels);
  }
}

}  // namespace qt
