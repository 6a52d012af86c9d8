#pragma once

// A shape of straight lines. Kept from frame to frame, it keeps its memory too.

#include <cstddef>
#include <span>
#include <vector>

namespace UX {

/// Pixels.
struct Point {
  float x = 0.0F;
  float y = 0.0F;

  friend bool operator==(const Point&, const Point&) = default;
};

/// Coordinates that are handed to a canvas go at most this far from the origin, in either direction. That is
/// well past every screen and every zoom of the day, and well within the platforms' own fixed-point numbers.
inline constexpr float kFarthest = 1.0e6F;
/// The middle of a thing with an extent goes this far from the origin, so that all of it is within kFarthest.
inline constexpr float kFarthestMiddle = 0.9e6F;

/// Brings a coordinate that any nonsense may have made within kFarthest.
constexpr float Bounded(float coordinate) {
  if (!(coordinate > -kFarthest)) return -kFarthest;  // and what is not a number
  return coordinate < kFarthest ? coordinate : kFarthest;
}
constexpr Point Bounded(Point point) {
  return {Bounded(point.x), Bounded(point.y)};
}

/// One or more contours, each a row of points that is open or closed.
class Figure {
 public:
  struct Contour {
    std::size_t begin = 0;  // of `Points()`
    std::size_t end = 0;
    bool closed = false;
  };

  void Clear() {
    points_.clear();
    contours_.clear();
  }
  /// Begins a contour at a point.
  void Begin(Point point) {
    contours_.push_back({points_.size(), points_.size(), false});
    LineTo(point);
  }
  void LineTo(Point point) {
    points_.push_back(point);
    contours_.back().end = points_.size();
  }
  /// The last point of the contour is joined to its first.
  void Close() { contours_.back().closed = true; }
  void AddLine(Point from, Point to) {
    Begin(from);
    LineTo(to);
  }

  std::span<const Point> Points() const { return points_; }
  std::span<const Contour> Contours() const { return contours_; }
  std::span<const Point> PointsOf(const Contour& contour) const {
    return Points().subspan(contour.begin, contour.end - contour.begin);
  }

 private:
  std::vector<Point> points_;
  std::vector<Contour> contours_;
};

}  // namespace UX
