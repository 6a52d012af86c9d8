#pragma once

// Long rows of points, drawn fast. Qt's rasterizer takes time with the square of the edges that cross a row
// of pixels, so a curve of many steps is cut into pieces that lie beside each other. User interface thread.

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <span>
#include <vector>

#include "chart/figure.h"

class QPainter;

namespace qt {

/// Draws the contours of figures; keeps its memory from one to the next.
class Outline {
 public:
  /// Takes over a contour, moved by `offset`. Of the points that follow each other in one column it keeps the
  /// first, the highest, the lowest and the last; these cover the same pixels. So a contour costs no more
  /// than the columns that it runs through, however many points it has.
  void SetStroke(std::span<const UX::Point> points, bool closed, UX::Point offset);
  /// The same for a contour that is filled. The highest and the lowest point of a column are not needed then.
  void SetFill(std::span<const UX::Point> points, UX::Point offset);

  /// The rectangle around the points; empty without any.
  QRectF Bounds() const;

  /// Draws what is within `reach`. Qt would leave out the rest by itself, but takes time with the square of
  /// the points that lie far off.
  void Stroke(QPainter& painter, const QPen& pen, const QRectF& reach);
  /// The same for the inside. On pixels, cuts fall between two columns of the painter's device.
  void Fill(QPainter& painter, const QColor& color, const QRectF& reach, bool onPixels);

 private:
  void StrokeWithin(QPainter& painter, const QPen& pen, const QRectF& reach);
  void StrokeRow(QPainter& painter, const QPen& pen);
  void CutTo(const QRectF& reach);
  void StrokeWhole(QPainter& painter, const QPen& pen);
  void StrokeInPieces(QPainter& painter, const QPen& pen);
  std::size_t EndOfPiece(std::size_t begin) const;
  bool GoesRight() const;
  bool IsTangled() const;
  bool IsBelowACurve() const;
  void FillBelowCurve(QPainter& painter, const QColor& color);

  std::vector<QPointF> points_;
  bool closed_ = false;
  std::vector<QPointF> uncut_;
  QPainterPath path_;
};

}  // namespace qt
