#pragma once

// A canvas that writes down what it is asked to draw, one line each, for golden files and tests:
//
//   brush orange #ffa500 50%
//   font small 7.55
//   label hours 884x8                           and what it shows, indented, up to its
//   end
//   fill circle 452,62 r8.18 white
//   stroke box 6,6 892x113 cornflowerBlue w3
//   fill round 20,30 34x15 r5 white 70%         the opacity that the brush has, unless it is full
//   stroke line 1,2 3,4 gray w1
//   stroke figure gray w0.5 at 10,10: across 0..884 at 0 10.5 | 0,0 884,0 884,105 0,105 close
//   stroke figure gray w0.5 at 10,129: the same          as the figure before
//   fill columns 10,10 884x16: 100x #000000 3x #0a0a12 ...          runs of one colour, from left to right
//   text small "08:00" within 100x50 gray at 30,40
//   draw hours at 10,101
//
// Behind "at" stands where the transform moves things; before it, "x0.5" if it scales them. Numbers have at
// most two places.

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "chart/canvas.h"

namespace chart_test {

/// As in the lines above; that of a channel ends with its number from 1.
std::string NameOf(UX::Brush brush);
std::string NameOf(UX::Label label);
std::string NameOf(UX::TextFormat format);

class RecordingCanvas final : public UX::Canvas {
 public:
  /// What was drawn since the start or the last Clear().
  const std::vector<std::string>& Lines() const { return lines_; }
  /// The lines, or those of them that contain `part`, each with its end.
  std::string Text(std::string_view part = "") const;
  /// Forgets the lines, but no brush, font or transform.
  void Clear() {
    lines_.clear();
    figure_.clear();
  }

  void SetBrush(UX::Brush brush, UX::Color color, float opacity) override;
  void SetOpacity(UX::Brush brush, float opacity) override;
  void SetFont(UX::TextFormat format, const UX::Font& font) override;

  void SetTransform(const UX::Transform& transform) override { transform_ = transform; }
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
  void Write(const std::string& line);
  std::string Told(UX::Brush brush) const;
  std::string ToldTransform() const;
  std::string ToldAnew(const UX::Figure& figure);

  std::vector<std::string> lines_;
  std::array<float, UX::kBrushCount> opacities_{};
  std::array<UX::Font, UX::kTextFormatCount> fonts_{};
  UX::Transform transform_;
  std::string layout_;  // as told; empty before the first
  std::string figure_;  // the last one, as told
  bool inLabel_ = false;
};

}  // namespace chart_test
