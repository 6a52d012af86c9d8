#pragma once

// A canvas that draws nothing and holds the caller to the contract (canvas.h), whatever the document: it
// counts what is drawn, and what is wrong with it. Allocates nothing.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

#include "chart/canvas.h"
#include "tests/support/text_metric.h"

namespace chart_test {

class CheckingCanvas final : public UX::Canvas {
 public:
  std::int64_t operations = 0;  // drawn
  std::int64_t points = 0;      // of figures
  /// What was wrong last; empty if nothing ever was.
  std::string_view fault;

  void SetBrush(UX::Brush brush, UX::Color, float opacity) override {
    brushes_[static_cast<std::size_t>(brush)] = true;
    CheckOpacity(opacity);
  }
  void SetOpacity(UX::Brush brush, float opacity) override {
    CheckBrush(brush);
    CheckOpacity(opacity);
  }
  void SetFont(UX::TextFormat format, const UX::Font& font) override {
    Require(font.size > 0.0F && std::isfinite(font.size), "a font without a size");
    fonts_[static_cast<std::size_t>(format)] = font;
  }

  void SetTransform(const UX::Transform& transform) override {
    CheckPoint(transform.offset);
    Require(std::isfinite(transform.scale), "a scale that is no number");
  }
  void Fill(const UX::Shape& shape, UX::Brush brush) override {
    Require(!std::holds_alternative<UX::Line>(shape), "a line that is filled");
    CheckShape(shape, brush);
  }
  void Stroke(const UX::Shape& shape, UX::Brush brush, float width) override {
    CheckWidth(width);
    CheckShape(shape, brush);
  }
  void FillFigure(const UX::Figure& figure, UX::Brush brush) override { CheckFigure(figure, brush); }
  void StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) override {
    CheckWidth(width);
    CheckFigure(figure, brush);
  }

  void FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) override {
    CheckBox(box);
    Require(box.width > 0.0F && box.height > 0.0F, "columns without a size");
    Require(!colors.empty(), "no columns");
    ++operations;
  }

  UX::TextSize LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) override {
    const UX::Font& font = fonts_[static_cast<std::size_t>(format)];
    Require(font.size != kNoFont.size, "a font that was not set");
    hasLayout_ = true;
    return MeasureText(font, text, limits);
  }
  void DrawLayout(UX::Brush brush) override {
    Require(hasLayout_, "a text that was not laid out");
    CheckBrush(brush);
    ++operations;
  }

  void BeginLabel(UX::Label, std::int32_t width, std::int32_t height) override {
    Require(width > 0 && height > 0, "a label without a size");
    Require(!inLabel_, "a label within a label");
    inLabel_ = true;
  }
  void EndLabel() override {
    Require(inLabel_, "the end of no label");
    inLabel_ = false;
  }
  void DrawLabel(UX::Label) override {
    Require(!inLabel_, "a label drawn into a label");
    ++operations;
  }

 private:
  static constexpr UX::Font kNoFont{-1.0F, false};

  void Require(bool holds, std::string_view otherwise) {
    if (!holds) fault = otherwise;
  }
  void CheckNumber(float number) {
    Require(std::fabs(number) <= UX::kFarthest, "a coordinate out of reach");  // not so for not a number
  }
  void CheckPoint(UX::Point point) {
    CheckNumber(point.x);
    CheckNumber(point.y);
  }
  void CheckOpacity(float opacity) { Require(opacity >= 0.0F && opacity <= 1.0F, "an opacity that is none"); }
  void CheckWidth(float width) { Require(width > 0.0F && width < 100.0F, "a line without width"); }
  void CheckBrush(UX::Brush brush) {
    Require(brushes_[static_cast<std::size_t>(brush)], "a brush that was not set");
  }
  void CheckBox(const UX::Rectangle& box) {
    CheckPoint({box.x, box.y});
    CheckPoint({box.x + box.width, box.y + box.height});
  }
  void CheckShape(const UX::Shape& shape, UX::Brush brush) {
    if (const auto* line = std::get_if<UX::Line>(&shape)) {
      CheckPoint(line->from);
      CheckPoint(line->to);
    } else if (const auto* box = std::get_if<UX::Rectangle>(&shape)) {
      CheckBox(*box);
    } else if (const auto* round = std::get_if<UX::RoundedRectangle>(&shape)) {
      CheckBox(round->box);
      CheckNumber(round->radius);
    } else if (const auto* circle = std::get_if<UX::Circle>(&shape)) {
      CheckPoint(circle->center);
      CheckNumber(circle->radius);
    }
    CheckBrush(brush);
    ++operations;
  }
  void CheckFigure(const UX::Figure& figure, UX::Brush brush) {
    Require(!figure.Points().empty(), "a figure without a point");
    for (const UX::Point point : figure.Points()) CheckPoint(point);
    points += static_cast<std::int64_t>(figure.Points().size());
    CheckBrush(brush);
    ++operations;
  }

  std::array<bool, UX::kBrushCount> brushes_{};
  std::array<UX::Font, UX::kTextFormatCount> fonts_{kNoFont, kNoFont, kNoFont};
  bool hasLayout_ = false;
  bool inLabel_ = false;
};

}  // namespace chart_test
