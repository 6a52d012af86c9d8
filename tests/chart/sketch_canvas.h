#pragma once

// A canvas that keeps what was drawn as values, for tests that reckon with it.

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "chart/canvas.h"
#include "tests/support/text_metric.h"

namespace chart_test {

enum class Done { Fill, Stroke, Text };

struct Drawn {
  Done done;
  UX::Shape shape;  // but for a text
  UX::Brush brush;
  float opacity;  // of the brush, at that moment
  float width;    // of a stroke
  UX::Transform transform;
};

/// All brushes are opaque at first. Figures and labels leave no trace.
class SketchCanvas final : public UX::Canvas {
 public:
  std::vector<Drawn> drawn;
  std::vector<float> opacities = std::vector<float>(UX::kBrushCount, 1.0F);
  UX::Transform transform;
  std::string text;     // laid out last,
  UX::TextSize limits;  // within these

  /// The shapes of one kind, in order.
  template <class Kind>
  std::vector<Kind> All(Done done) const {
    std::vector<Kind> found;
    for (const Drawn& item : drawn)
      if (item.done == done && std::holds_alternative<Kind>(item.shape))
        found.push_back(std::get<Kind>(item.shape));
    return found;
  }
  float& OpacityOf(UX::Brush brush) { return opacities[static_cast<std::size_t>(brush)]; }

  void SetBrush(UX::Brush brush, UX::Color, float opacity) override { OpacityOf(brush) = opacity; }
  void SetOpacity(UX::Brush brush, float opacity) override { OpacityOf(brush) = opacity; }
  void SetFont(UX::TextFormat, const UX::Font&) override {}
  void SetTransform(const UX::Transform& newTransform) override { transform = newTransform; }
  void Fill(const UX::Shape& shape, UX::Brush brush) override {
    drawn.push_back({Done::Fill, shape, brush, OpacityOf(brush), 0.0F, transform});
  }
  void Stroke(const UX::Shape& shape, UX::Brush brush, float width) override {
    drawn.push_back({Done::Stroke, shape, brush, OpacityOf(brush), width, transform});
  }
  void FillFigure(const UX::Figure&, UX::Brush) override {}
  void StrokeFigure(const UX::Figure&, UX::Brush, float) override {}
  void FillColumns(const UX::Rectangle&, std::span<const UX::Color>) override {}
  UX::TextSize LayOutText(UX::TextFormat, std::string_view newText, const UX::TextSize& newLimits) override {
    text = newText;
    limits = newLimits;
    return MeasureText({16.0F, false}, text, limits);  // 8 pixels a character, 20 a line
  }
  void DrawLayout(UX::Brush brush) override {
    drawn.push_back({Done::Text, {}, brush, OpacityOf(brush), 0.0F, transform});
  }
  void BeginLabel(UX::Label, std::int32_t, std::int32_t) override {}
  void EndLabel() override {}
  void DrawLabel(UX::Label) override {}
};

}  // namespace chart_test
