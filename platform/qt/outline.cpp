#include "platform/qt/outline.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace qt {

namespace {

/// Points of a piece; the fastest of those tried (bench/qt_chart_bench.cpp).
constexpr std::size_t kPiece = 4;

/// Pixels from the end of a piece that the next one begins at, so that it makes the corner between them.
constexpr double kOverlap = 4.0;

QPointF Moved(UX::Point point, UX::Point offset) {
  return {double{point.x} + offset.x, double{point.y} + offset.y};
}

bool IsHigher(UX::Point a, UX::Point b) {
  return a.y < b.y;
}

/// The point on the way from `to` back to `from`, near `to`.
QPointF ShortlyBefore(QPointF from, QPointF to) {
  const QPointF way = from - to;
  const double length = std::hypot(way.x(), way.y());
  return length > kOverlap ? to + way * (kOverlap / length) : from;
}

/// Calls `action` with the first and the end of each row of points in one column.
template <class Action>
void ForEachColumn(std::span<const UX::Point> points, Action action) {
  for (auto begin = points.begin(); begin != points.end();) {
    const auto end = std::find_if(begin, points.end(), [x = begin->x](UX::Point p) { return p.x != x; });
    action(begin, end);
    begin = end;
  }
}

}  // namespace

void Outline::SetStroke(std::span<const UX::Point> points, bool closed, UX::Point offset) {
  points_.clear();
  closed_ = closed;
  ForEachColumn(points, [&](auto begin, auto end) {
    const auto last = std::prev(end);
    const auto [highest, lowest] = std::minmax_element(begin, end, IsHigher);
    const auto earlier = std::min(highest, lowest);
    const auto later = std::max(highest, lowest);
    points_.push_back(Moved(*begin, offset));
    if (earlier != begin && earlier != last) points_.push_back(Moved(*earlier, offset));
    if (later != earlier && later != begin && later != last) points_.push_back(Moved(*later, offset));
    if (last != begin) points_.push_back(Moved(*last, offset));
  });
}

void Outline::SetFill(std::span<const UX::Point> points, UX::Point offset) {
  points_.clear();
  closed_ = true;
  ForEachColumn(points, [&](auto begin, auto end) {
    points_.push_back(Moved(*begin, offset));
    if (std::prev(end) != begin) points_.push_back(Moved(*std::prev(end), offset));
  });
}

QRectF Outline::Bounds() const {
  const auto [left, right] = std::ranges::minmax(points_, {}, [](const QPointF& point) { return point.x(); });
  const auto [top, bottom] = std::ranges::minmax(points_, {}, [](const QPointF& point) { return point.y(); });
  return {QPointF(left.x(), top.y()), QPointF(right.x(), bottom.y())};
}

void Outline::Stroke(QPainter& painter, const QPen& pen) {
  // Pieces overlap a little, which would show through a brush that is not opaque.
  const bool inPieces = points_.size() > kPiece && !closed_ && pen.color().alpha() == 255;
  inPieces ? StrokeInPieces(painter, pen) : StrokeWhole(painter, pen);
}

void Outline::StrokeWhole(QPainter& painter, const QPen& pen) {
  path_.clear();
  path_.moveTo(points_.front());
  for (const QPointF& point : std::span(points_).subspan(1)) path_.lineTo(point);
  if (closed_) path_.closeSubpath();
  painter.strokePath(path_, pen);
}

void Outline::StrokeInPieces(QPainter& painter, const QPen& pen) {
  for (std::size_t begin = 0; begin + 1 < points_.size(); begin += kPiece) {
    const std::size_t end = std::min(begin + kPiece + 1, points_.size());
    path_.clear();
    path_.moveTo(begin == 0 ? points_[0] : ShortlyBefore(points_[begin - 1], points_[begin]));
    for (std::size_t i = begin == 0 ? 1 : begin; i < end; ++i) path_.lineTo(points_[i]);
    painter.strokePath(path_, pen);
  }
}

void Outline::Fill(QPainter& painter, const QColor& color, double columns) {
  if (columns > 0.0 && points_.size() > kPiece + 2 && IsBelowACurve()) {
    FillBelowCurve(painter, color, columns);
    return;
  }
  path_.clear();
  path_.moveTo(points_.front());
  for (const QPointF& point : std::span(points_).subspan(1)) path_.lineTo(point);
  path_.closeSubpath();
  painter.fillPath(path_, color);
}

/// Whether the points go from left to right, and the way back is level: then every upright cut leaves two
/// contours like it.
bool Outline::IsBelowACurve() const {
  return points_.front().y() == points_.back().y() &&
         std::ranges::is_sorted(points_, {}, [](const QPointF& point) { return point.x(); });
}

void Outline::FillBelowCurve(QPainter& painter, const QColor& color, double columns) {
  // A cut within a column of pixels would be seen.
  const auto mayCut = [columns](const QPointF& point) {
    const double column = point.x() * columns;
    return column == std::floor(column);
  };
  const double ground = points_.front().y();
  for (std::size_t begin = 0; begin + 1 < points_.size();) {
    path_.clear();
    path_.moveTo(points_[begin].x(), ground);
    path_.lineTo(points_[begin]);
    std::size_t end = begin + 1;
    for (std::size_t count = 1; end + 1 < points_.size() && (count < kPiece || !mayCut(points_[end]));
         ++count)
      path_.lineTo(points_[end++]);
    path_.lineTo(points_[end]);
    path_.lineTo(points_[end].x(), ground);
    path_.closeSubpath();
    painter.fillPath(path_, color);
    begin = end;
  }
}

}  // namespace qt
