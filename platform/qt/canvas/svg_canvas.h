#pragma once

// UX::Canvas as an SVG document. Texts stay texts. What a picture of pixels cuts off is cut off here, too;
// Qt's own SVG generator does not do that.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "chart/canvas.h"
#include "platform/qt/canvas/text_layouts.h"

namespace qt {

/// User interface thread; needs a QGuiApplication, for the measures of the fonts.
class SvgCanvas final : public UX::Canvas {
 public:
  /// Forgets what was drawn. Brushes, fonts and labels stay.
  void BeginFrame();
  /// The document with all that was drawn, on white; its sizes are pixels.
  std::string Document(std::int32_t width, std::int32_t height) const;

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
  struct Paint {
    UX::Color color;
    float opacity = 1.0F;
  };

  void SetTextLine(const QTextLine& line, UX::Brush brush);
  std::string PaintOf(const char* use, UX::Brush brush) const;
  std::string StrokeOf(UX::Brush brush, float width) const;
  /// The transform in use, as an attribute; empty for the identity.
  std::string TransformNow() const;

  std::array<Paint, UX::kBrushCount> paints_;
  std::array<UX::Font, UX::kTextFormatCount> fonts_;
  TextLayouts texts_;
  const LaidOutText* text_ = nullptr;  // laid out last
  UX::Transform transform_;

  std::string drawn_;  // elements
  std::string labels_;
  std::array<int, UX::kLabelCount> labelIds_{};  // the number that each label has among those made; 0: none
  int labelsMade_ = 0;
  // Between BeginLabel() and EndLabel(): what was drawn before, and under which transform.
  std::string drawnBefore_;
  UX::Transform transformBefore_;
};

}  // namespace qt
