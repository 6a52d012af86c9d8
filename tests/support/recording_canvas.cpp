#include "tests/support/recording_canvas.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <span>
#include <utility>
#include <variant>

#include "tests/support/text_metric.h"

namespace chart_test {

namespace {

using namespace UX;

// One text of several. Not with +, in which GCC 12 sees copies that overlap.
template <class... Parts>
std::string Join(const Parts&... parts) {
  std::string text;
  (text.append(parts), ...);
  return text;
}

// At most two places. Not by printf: its rounding is the platform's.
std::string Told(float number) {
  char digits[64];
  std::string text(digits, std::to_chars(digits, digits + sizeof digits, static_cast<double>(number),
                                         std::chars_format::fixed, 2)
                               .ptr);
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  return text == "-0" ? "0" : text;
}

std::string Told(Point point) {
  return Join(Told(point.x), ",", Told(point.y));
}

std::string Told(const Rectangle& box) {
  return Join(Told(Point{box.x, box.y}), " ", Told(box.width), "x", Told(box.height));
}

struct ShapeTeller {
  std::string operator()(const Line& line) const {
    return Join("line ", Told(line.from), " ", Told(line.to));
  }
  std::string operator()(const Rectangle& box) const { return Join("box ", Told(box)); }
  std::string operator()(const RoundedRectangle& round) const {
    return Join("round ", Told(round.box), " r", Told(round.radius));
  }
  std::string operator()(const Circle& circle) const {
    return Join("circle ", Told(circle.center), " r", Told(circle.radius));
  }
};

std::string Told(Color color) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string hex = "#";
  for (const unsigned part : {color.red, color.green, color.blue}) {
    hex += kDigits[part / 16];
    hex += kDigits[part % 16];
  }
  return hex;
}

std::string Told(const Shape& shape) {
  return std::visit(ShapeTeller(), shape);
}

// A contour as what it has in common with its neighbours, and what it has not.
struct ContourTeller {
  std::string common;
  std::string own;

  ContourTeller(std::span<const Point> points, bool closed) {
    const bool isLine = points.size() == 2 && !closed;
    if (isLine && points[0].y == points[1].y) {
      common = Join("across ", Told(points[0].x), "..", Told(points[1].x), " at");
      own = Join(" ", Told(points[0].y));
    } else if (isLine && points[0].x == points[1].x) {
      common = Join("down ", Told(points[0].y), "..", Told(points[1].y), " at");
      own = Join(" ", Told(points[0].x));
    } else {
      for (const Point point : points) own += Join(own.empty() ? "" : " ", Told(point));
      if (closed) own += " close";
    }
  }
};

std::string Told(const Figure& figure) {
  std::string text;
  std::string common;
  for (const Figure::Contour& contour : figure.Contours()) {
    const ContourTeller told(figure.PointsOf(contour), contour.closed);
    if (told.common.empty() || told.common != common)
      text += Join(text.empty() ? " " : " | ", common = told.common);
    text += told.own;
  }
  return text;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '\n' ? std::string("\\n") : std::string(1, c);
  quoted += '"';
  return quoted;
}

std::string ToldOpacity(float opacity) {
  return opacity == 1.0F ? "" : Join(" ", Told(opacity * 100.0F), "%");
}

}  // namespace

std::string NameOf(Brush brush) {
  static constexpr const char* kNames[] = {"black",  "white",  "darkGray",     "gray",          "lightSalmon",
                                           "orange", "salmon", "lightSkyBlue", "cornflowerBlue"};
  if (brush >= Brush::FirstChannel)
    return Join("channel",
                std::to_string(static_cast<int>(brush) - static_cast<int>(Brush::FirstChannel) + 1));
  return kNames[static_cast<std::size_t>(brush)];
}

std::string NameOf(Label label) {
  const int index = static_cast<int>(label);
  constexpr int kFirstPercent = static_cast<int>(Label::FirstPercent);
  constexpr int kFirstName = static_cast<int>(Label::FirstChannelName);
  if (index >= kFirstName) return Join("name", std::to_string(index - kFirstName + 1));
  if (index >= kFirstPercent) return Join(std::to_string((index - kFirstPercent + 1) * 10), "%");
  return "hours";
}

std::string NameOf(TextFormat format) {
  static constexpr const char* kNames[] = {"small", "medium", "large"};
  return kNames[static_cast<std::size_t>(format)];
}

std::string RecordingCanvas::Text(std::string_view part) const {
  std::string text;
  for (const std::string& line : lines_) {
    if (line.find(part) != std::string::npos) text += Join(line, "\n");
  }
  return text;
}

void RecordingCanvas::Write(const std::string& line) {
  lines_.push_back(Join(inLabel_ ? "  " : "", line));
}

std::string RecordingCanvas::Told(Brush brush) const {
  return Join(NameOf(brush), ToldOpacity(opacities_[static_cast<std::size_t>(brush)]));
}

std::string RecordingCanvas::ToldTransform() const {
  std::string text;
  if (transform_.scale != 1.0F) text += Join(" x", chart_test::Told(transform_.scale));
  if (transform_.offset != Point()) text += Join(" at ", chart_test::Told(transform_.offset));
  return text;
}

std::string RecordingCanvas::ToldAnew(const Figure& figure) {
  std::string text = chart_test::Told(figure);
  if (text == figure_) return " the same";
  return figure_ = std::move(text);
}

void RecordingCanvas::SetBrush(Brush brush, Color color, float opacity) {
  opacities_[static_cast<std::size_t>(brush)] = opacity;
  Write(Join("brush ", NameOf(brush), " ", chart_test::Told(color), ToldOpacity(opacity)));
}

void RecordingCanvas::SetOpacity(Brush brush, float opacity) {
  opacities_[static_cast<std::size_t>(brush)] = opacity;
}

void RecordingCanvas::SetFont(TextFormat format, const Font& font) {
  fonts_[static_cast<std::size_t>(format)] = font;
  Write(Join("font ", NameOf(format), " ", chart_test::Told(font.size), font.bold ? " bold" : ""));
}

void RecordingCanvas::Fill(const Shape& shape, Brush brush) {
  Write(Join("fill ", chart_test::Told(shape), " ", Told(brush), ToldTransform()));
}

void RecordingCanvas::Stroke(const Shape& shape, Brush brush, float width) {
  Write(Join("stroke ", chart_test::Told(shape), " ", Told(brush), " w", chart_test::Told(width),
             ToldTransform()));
}

void RecordingCanvas::FillFigure(const Figure& figure, Brush brush) {
  Write(Join("fill figure ", Told(brush), ToldTransform(), ":", ToldAnew(figure)));
}

void RecordingCanvas::StrokeFigure(const Figure& figure, Brush brush, float width) {
  Write(Join("stroke figure ", Told(brush), " w", chart_test::Told(width), ToldTransform(), ":",
             ToldAnew(figure)));
}

void RecordingCanvas::FillColumns(const Rectangle& box, std::span<const Color> colors) {
  std::string runs;
  for (auto begin = colors.begin(); begin != colors.end();) {
    const auto end = std::find_if(begin, colors.end(), [&](Color color) { return color != *begin; });
    runs += Join(" ", std::to_string(end - begin), "x ", chart_test::Told(*begin));
    begin = end;
  }
  Write(Join("fill columns ", chart_test::Told(box), ToldTransform(), ":", runs));
}

TextSize RecordingCanvas::LayOutText(TextFormat format, std::string_view text, const TextSize& limits) {
  layout_ = Join("text ", NameOf(format), " ", Quoted(text), " within ", chart_test::Told(limits.width), "x",
                 chart_test::Told(limits.height));
  return MeasureText(fonts_[static_cast<std::size_t>(format)], text, limits);
}

void RecordingCanvas::DrawLayout(Brush brush) {
  Write(Join(layout_, " ", Told(brush), ToldTransform()));
}

void RecordingCanvas::BeginLabel(Label label, std::int32_t width, std::int32_t height) {
  Write(Join("label ", NameOf(label), " ", std::to_string(width), "x", std::to_string(height)));
  inLabel_ = true;
  transform_ = kIdentity;
}

void RecordingCanvas::EndLabel() {
  inLabel_ = false;
  Write("end");
}

void RecordingCanvas::DrawLabel(Label label) {
  Write(Join("draw ", NameOf(label), ToldTransform()));
}

}  // namespace chart_test
