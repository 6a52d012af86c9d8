#pragma once

// What a frame of the chart is drawn with. The frame's logic is written once against this; a canvas carries
// it to Direct2D, to Qt's painter, or to the text that tests compare.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "chart/figure.h"
#include "program/program.h"

namespace UX {

// Shapes, in pixels.

struct Line {
  Point from;
  Point to;
};

struct Rectangle {
  float x = 0.0F;
  float y = 0.0F;
  float width = 0.0F;  // a rectangle of no width or no height is stroked as a line
  float height = 0.0F;
};

struct RoundedRectangle {
  Rectangle box;
  float radius = 0.0F;
};

struct Circle {
  Point center;
  float radius = 0.0F;
};

using Shape = std::variant<Line, Rectangle, RoundedRectangle, Circle>;

// Brushes.

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Color&, const Color&) = default;
};

enum class Brush : std::uint8_t {
  Black,
  White,
  DarkGray,
  Gray,
  LightSalmon,
  Orange,
  Salmon,
  LightSkyBlue,
  CornflowerBlue,
  FirstChannel,  // and one for each of the others
};
inline constexpr int kBrushCount = static_cast<int>(Brush::FirstChannel) + TCBase::Program::kChannelCount;

/// The brush in the colour of a channel, 0 to 4.
constexpr Brush ChannelBrush(std::int32_t channel) {
  return static_cast<Brush>(static_cast<int>(Brush::FirstChannel) + channel);
}

// Text. All of it is Tahoma, or what stands in for it, set from the left and from the top.

enum class TextFormat : std::uint8_t { Small, Medium, Large };
inline constexpr int kTextFormatCount = 3;

struct Font {
  float size = 1.0F;  // pixels, above 0
  bool bold = false;
};

struct TextSize {
  float width = 0.0F;
  float height = 0.0F;
};

// Labels: pictures of text that stands still, made once and put into each frame.

enum class Label : std::uint8_t {
  Hours,
  FirstPercent,                          // 10 %, and so on up to 100 %
  FirstChannelName = FirstPercent + 10,  // and one for each of the others
  End = FirstChannelName + TCBase::Program::kChannelCount,
};
inline constexpr int kLabelCount = static_cast<int>(Label::End);

/// `percent` is 10, 20 up to 100.
constexpr Label PercentLabel(int percent) {
  return static_cast<Label>(static_cast<int>(Label::FirstPercent) + percent / 10 - 1);
}
constexpr Label ChannelNameLabel(std::int32_t channel) {
  return static_cast<Label>(static_cast<int>(Label::FirstChannelName) + channel);
}

/// Moves drawn things: they are scaled first and then moved.
struct Transform {
  float scale = 1.0F;
  Point offset;

  friend bool operator==(const Transform&, const Transform&) = default;
};
inline constexpr Transform kIdentity{};
constexpr Transform Translation(float x, float y) {
  return {1.0F, {x, y}};
}

/// User interface thread. Coordinates are finite and of a size that any platform draws (see kFarthest).
/// Shapes are smooth (anti-aliased). Brushes, fonts and labels last until they are set anew; each has been
/// set before it is used, but for labels: one that was never made, or in an area without size, draws nothing.
/// Implementations reuse what they allocate: a frame like the one before leaves the heap as it was.
class Canvas {
 public:
  virtual ~Canvas() = default;

  // Brushes and fonts.

  virtual void SetBrush(Brush brush, Color color, float opacity) = 0;
  /// `opacity` is from 0 to 1; the brush keeps it for all that is drawn from now on.
  virtual void SetOpacity(Brush brush, float opacity) = 0;
  virtual void SetFont(TextFormat format, const Font& font) = 0;

  // Drawing.

  /// Holds for all that is drawn from now on.
  virtual void SetTransform(const Transform& transform) = 0;
  /// A line has no inside.
  virtual void Fill(const Shape& shape, Brush brush) = 0;
  virtual void Stroke(const Shape& shape, Brush brush, float width) = 0;
  virtual void FillFigure(const Figure& figure, Brush brush) = 0;
  virtual void StrokeFigure(const Figure& figure, Brush brush, float width) = 0;
  /// Fills a box of some size with columns of equal width, opaque, the first colour at the left. There is at
  /// least one, and nothing shows between two. The transform must not scale.
  virtual void FillColumns(const Rectangle& box, std::span<const Color> colors) = 0;

  /// Sets a text (UTF-8, lines ended by LF), broken at `limits.width`. The size is that of the text as laid
  /// out, which can be larger than the limits.
  virtual TextSize LayOutText(TextFormat format, std::string_view text, const TextSize& limits) = 0;
  /// Draws the text laid out last, its left top at the origin.
  virtual void DrawLayout(Brush brush) = 0;

  // Labels.

  /// What is drawn up to EndLabel goes into a label of this size, in pixels, both above 0, transparent at
  /// first, with the identity for its transform. Not between two others.
  virtual void BeginLabel(Label label, std::int32_t width, std::int32_t height) = 0;
  virtual void EndLabel() = 0;
  /// Draws the label, opaque, its left top at the origin.
  virtual void DrawLabel(Label label) = 0;
};

}  // namespace UX
