#pragma once

// UX::Canvas over Qt's painter: pictures of the chart here, its window on the Linux desktop.

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPicture>
#include <QTransform>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "chart/canvas.h"
#include "platform/qt/canvas/device_pixels.h"
#include "platform/qt/canvas/outline.h"
#include "platform/qt/canvas/sprites.h"
#include "platform/qt/canvas/text_layouts.h"
#include "platform/qt/canvas/translucent_shapes.h"

namespace qt {

/// What the canvas is drawn on. Vectors, as of a PDF, keep text as text, and everything sharp at any size.
enum class Surface { Pixels, Vectors };

/// User interface thread; needs a QGuiApplication, for the fonts. Drawing goes to the painter between Begin()
/// and End() or into a label, all else is possible at any time.
class QtCanvas final : public UX::Canvas {
 public:
  /// `scale` is the device pixel ratio of what will be drawn on; 1 for vectors.
  explicit QtCanvas(Surface surface, double scale = 1.0);

  /// From now on `painter` is drawn on, under the transform that it has now. Its pen, brush, transform and
  /// hints are the canvas's until End().
  void Begin(QPainter& painter);
  void End();

  // Canvas.
  void SetBrush(UX::Brush brush, UX::Color color, float opacity) override;
  void SetOpacity(UX::Brush brush, float opacity) override;
  void SetFont(UX::TextFormat format, const UX::Font& font) override;
  void SetTransform(const UX::Transform& transform) override;
  void Fill(const UX::Shape& shape, UX::Brush brush) override;
  void Stroke(const UX::Shape& shape, UX::Brush brush, float width) override;
  void FillFigure(const UX::Figure& figure, UX::Brush brush) override;
  void StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) override;
  void FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) override;
  UX::TextSize LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) override;
  void DrawLayout(UX::Brush brush) override;
  void BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) override;
  void EndLabel() override;
  void DrawLabel(UX::Label label) override;

 private:
  /// What is drawn on now. A mere move is added to the coordinates, since it takes long to change a painter's
  /// transform.
  struct Stage {
    QPainter* painter = nullptr;
    QTransform base;
    DevicePixels pixels;  // under `base`
    UX::Transform transform;
    UX::Point offset;    // added to coordinates
    bool moved = false;  // the painter has more than `base`
  };
  struct LabelPicture {
    QImage pixels;
    QPicture vectors;
  };

  const QColor& ColorOf(UX::Brush brush) const { return colors_[static_cast<std::size_t>(brush)]; }
  QPointF At(UX::Point point) const {
    return {double{point.x} + stage_.offset.x, double{point.y} + stage_.offset.y};
  }
  /// Whether what is drawn on has pixels, and where they are is known.
  bool IsOnPixels() const {
    return surface_ == Surface::Pixels && !stage_.moved && stage_.pixels.AreToUnit(scale_);
  }
  void UseStage(QPainter& painter);
  /// Beyond this nothing is seen; in the coordinates that the painter takes.
  QRectF Reach() const;
  /// Draws a shape as a picture, if it is one of those that are drawn so.
  bool DrawSprite(const UX::Shape& shape, const QColor& color, float strokeWidth);
  /// Draws a line, or adds it to those that are drawn together.
  void DrawLine(const UX::Line& line, const QColor& color, float width);
  /// Has `draw` draw with a painter and a colour.
  template <class Draw>
  void Paint(const QRectF& bounds, const QColor& color, Draw draw);
  void MakePath(const UX::Shape& shape);
  /// Puts a label in place.
  void DrawPixels(const QPointF& origin, const QImage& pixels);

  const Surface surface_;
  const double scale_;
  std::array<QColor, UX::kBrushCount> colors_;
  TextLayouts texts_;
  const LaidOutText* text_ = nullptr;  // laid out last
  Sprites sprites_;
  TranslucentShapes translucentShapes_;
  std::array<LabelPicture, UX::kLabelCount> labels_;
  QImage columns_;  // of FillColumns, kept while their number stays

  Stage stage_;
  // Between BeginLabel() and EndLabel().
  LabelPicture* label_ = nullptr;
  Stage stageBefore_;
  std::optional<QPainter> labelPainter_;

  // Kept for their memory.
  QPainterPath path_;
  Outline outline_;
  std::vector<QLineF> lines_;
};

}  // namespace qt
