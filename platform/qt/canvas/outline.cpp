#include "platform/qt/canvas/outline.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace qt {

namespace {

// Points of a piece: the number that was fastest of those tried (bench/qt_chart_bench.cpp).
constexpr std::size_t kPiece = 4;

// Pixels from the left to the right of a stroke's piece: where steps are few, a piece has fewer points.
constexpr double kWidePiece = 16.0;

// A figure of more points than this that go to and fro is drawn without smooth edges. Nobody could tell its
// edges apart, and smooth ones would take seconds.
constexpr std::size_t kTangle = 500;

// A piece begins this many pixels before the end of the piece before it, so that the corner between the two
// is drawn.
constexpr double kOverlap = 4.0;

QPointF Moved(UX::Point point, UX::Point offset) {
  return {double{point.x} + offset.x, double{point.y} + offset.y};
}

bool IsHigher(UX::Point a, UX::Point b) {
  return a.y < b.y;
}

// The point on the line that lies kOverlap before `to`; `from` if the line is shorter than that.
QPointF ShortlyBefore(QPointF from, QPointF to) {
  const QPointF way = from - to;
  const double length = std::hypot(way.x(), way.y());
  return length > kOverlap ? to + way * (kOverlap / length) : from;
}

// The part of a line that is within `reach`, if any is.
std::optional<QLineF> PartWithin(const QLineF& line, const QRectF& reach) {
  double begin = 0.0;
  double end = 1.0;
  // Cuts at a side of `reach`. The line begins `room` inside of that side and goes `way` towards it.
  const auto cut = [&](double way, double room) {
    if (way == 0.0) return room >= 0.0;
    (way < 0.0 ? begin : end) = way < 0.0 ? std::max(begin, room / way) : std::min(end, room / way);
    return begin <= end;
  };
  const bool seen = cut(-line.dx(), line.x1() - reach.left()) && cut(line.dx(), reach.right() - line.x1()) &&
                    cut(-line.dy(), line.y1() - reach.top()) && cut(line.dy(), reach.bottom() - line.y1());
  if (!seen) return std::nullopt;
  return QLineF(begin == 0.0 ? line.p1() : line.pointAt(begin), end == 1.0 ? line.p2() : line.pointAt(end));
}

// Calls `action` with the first and the end of each row of points in one column.
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
  if (points_.empty()) return {};
  QPointF least = points_.front();
  QPointF most = least;
  for (const QPointF& point : points_) {
    least = {std::min(least.x(), point.x()), std::min(least.y(), point.y())};
    most = {std::max(most.x(), point.x()), std::max(most.y(), point.y())};
  }
  return {least, most};
}

void Outline::Stroke(QPainter& painter, const QPen& pen, const QRectF& reach) {
  reach.contains(Bounds()) ? StrokeRow(painter, pen) : StrokeWithin(painter, pen, reach);
}

void Outline::StrokeWithin(QPainter& painter, const QPen& pen, const QRectF& reach) {
  if (closed_) points_.push_back(points_.front());
  closed_ = false;
  uncut_.swap(points_);
  points_.clear();
  const auto finishRow = [&] {
    if (points_.size() > 1) StrokeRow(painter, pen);
    points_.clear();
  };
  for (std::size_t i = 1; i < uncut_.size(); ++i) {
    const auto part = PartWithin({uncut_[i - 1], uncut_[i]}, reach);
    if (!part) continue;
    if (points_.empty() || points_.back() != part->p1()) {
      finishRow();
      points_.push_back(part->p1());
    }
    points_.push_back(part->p2());
  }
  finishRow();
}

void Outline::StrokeRow(QPainter& painter, const QPen& pen) {
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

std::size_t Outline::EndOfPiece(std::size_t begin) const {
  const std::size_t most = std::min(begin + kPiece, points_.size() - 1);
  std::size_t end = begin + 1;
  while (end < most && std::abs(points_[end].x() - points_[begin].x()) < kWidePiece) ++end;
  return end;
}

void Outline::StrokeInPieces(QPainter& painter, const QPen& pen) {
  const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::Antialiasing, smooth && !IsTangled());
  for (std::size_t begin = 0; begin + 1 < points_.size();) {
    path_.clear();
    path_.moveTo(begin == 0 ? points_[0] : ShortlyBefore(points_[begin - 1], points_[begin]));
    if (begin > 0) path_.lineTo(points_[begin]);
    const std::size_t end = EndOfPiece(begin);
    for (std::size_t i = begin + 1; i <= end; ++i) path_.lineTo(points_[i]);
    painter.strokePath(path_, pen);
    begin = end;
  }
  painter.setRenderHint(QPainter::Antialiasing, smooth);
}

// Cuts the inside at one side of `reach` after the other. The edges that this makes run along the sides,
// where they are not seen.
void Outline::CutTo(const QRectF& reach) {
  const auto cut = [this](auto inside, auto crossing) {
    uncut_.swap(points_);
    points_.clear();
    for (std::size_t i = 0; i < uncut_.size(); ++i) {
      const QPointF from = uncut_[i == 0 ? uncut_.size() - 1 : i - 1];
      const QPointF to = uncut_[i];
      if (inside(from) != inside(to)) points_.push_back(crossing(from, to));
      if (inside(to)) points_.push_back(to);
    }
  };
  const auto atX = [](double x) {
    return [x](QPointF a, QPointF b) {
      return QPointF(x, a.y() + (b.y() - a.y()) * (x - a.x()) / (b.x() - a.x()));
    };
  };
  const auto atY = [](double y) {
    return [y](QPointF a, QPointF b) {
      return QPointF(a.x() + (b.x() - a.x()) * (y - a.y()) / (b.y() - a.y()), y);
    };
  };
  cut([&](QPointF p) { return p.x() >= reach.left(); }, atX(reach.left()));
  cut([&](QPointF p) { return p.x() <= reach.right(); }, atX(reach.right()));
  cut([&](QPointF p) { return p.y() >= reach.top(); }, atY(reach.top()));
  cut([&](QPointF p) { return p.y() <= reach.bottom(); }, atY(reach.bottom()));
}

void Outline::Fill(QPainter& painter, const QColor& color, const QRectF& reach, bool onPixels) {
  if (!reach.contains(Bounds())) CutTo(reach);
  if (points_.empty()) return;
  if (onPixels && points_.size() > kPiece + 2 && IsBelowACurve()) {
    FillBelowCurve(painter, color);
    return;
  }
  path_.clear();
  path_.moveTo(points_.front());
  for (const QPointF& point : std::span(points_).subspan(1)) path_.lineTo(point);
  path_.closeSubpath();
  const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::Antialiasing, smooth && !IsTangled());
  painter.fillPath(path_, color);
  painter.setRenderHint(QPainter::Antialiasing, smooth);
}

bool Outline::GoesRight() const {
  return std::ranges::is_sorted(points_, {}, [](const QPointF& point) { return point.x(); });
}

bool Outline::IsTangled() const {
  return points_.size() > kTangle && !GoesRight();
}

// Where the way back to the first point is level, an upright cut makes two contours that are like that, too.
bool Outline::IsBelowACurve() const {
  return points_.front().y() == points_.back().y() && GoesRight();
}

void Outline::FillBelowCurve(QPainter& painter, const QColor& color) {
  // A cut within a column of pixels would be seen.
  const auto mayCut = [toDevice = painter.deviceTransform()](const QPointF& point) {
    const double column = toDevice.map(point).x();
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
