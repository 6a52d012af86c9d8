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
  /// Takes over a contour, moved by `offset`. Of the points that follow each other in one column only the
  /// first, the farthest up and down and the last are kept, which cover the same pixels: so a contour costs
  /// no more than the columns that it runs through, however many points it has.
  void SetStroke(std::span<const UX::Point> points, bool closed, UX::Point offset);
  /// The same for an inside, which has no use for the farthest.
  void SetFill(std::span<const UX::Point> points, UX::Point offset);

  /// The rectangle around the points; empty without any.
  QRectF Bounds() const;

  /// What is outside `reach` is left out: Qt cuts far points off too, but takes time with their square.
  void Stroke(QPainter& painter, const QPen& pen, const QRectF& reach);
  /// `columns`: device pixels a unit, for cuts that fall between two of them; 0 for a device without pixels.
  void Fill(QPainter& painter, const QColor& color, const QRectF& reach, double columns);

 private:
  void StrokeWithin(QPainter& painter, const QPen& pen, const QRectF& reach);
  void StrokeRow(QPainter& painter, const QPen& pen);
  void CutTo(const QRectF& reach);
  void StrokeWhole(QPainter& painter, const QPen& pen);
  void StrokeInPieces(QPainter& painter, const QPen& pen);
  bool GoesRight() const;
  bool IsTangled() const;
  bool IsBelowACurve() const;
  void FillBelowCurve(QPainter& painter, const QColor& color, double columns);

  std::vector<QPointF> points_;
  bool closed_ = false;
  std::vector<QPointF> uncut_;
  QPainterPath path_;
};

}  // namespace qt
