#include "platform/qt/canvas/svg_canvas.h"

#include <QString>
#include <QTextLine>

#include <algorithm>
#include <charconv>
#include <utility>
#include <variant>

namespace qt {

namespace {

std::string Number(float number) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

std::string Attribute(const char* name, float number) {
  return std::string(" ") + name + "=\"" + Number(number) + '"';
}

std::string Pair(UX::Point point) {
  return Number(point.x) + ' ' + Number(point.y);
}

struct ShapeElement {
  std::string operator()(const UX::Line& line) const {
    return "<path d=\"M" + Pair(line.from) + 'L' + Pair(line.to) + '"';
  }
  std::string operator()(const UX::Rectangle& box) const {
    // A rectangle without an extent would not be drawn at all.
    if (box.width <= 0.0F || box.height <= 0.0F)
      return (*this)(UX::Line{{box.x, box.y}, {box.x + box.width, box.y + box.height}});
    return "<rect" + Attribute("x", box.x) + Attribute("y", box.y) + Attribute("width", box.width) +
           Attribute("height", box.height);
  }
  std::string operator()(const UX::RoundedRectangle& shape) const {
    return (*this)(shape.box) + Attribute("rx", shape.radius);
  }
  std::string operator()(const UX::Circle& circle) const {
    return "<circle" + Attribute("cx", circle.center.x) + Attribute("cy", circle.center.y) +
           Attribute("r", circle.radius);
  }
};

std::string PathElement(const UX::Figure& figure) {
  std::string path = "<path d=\"";
  for (const auto& contour : figure.Contours()) {
    char verb = 'M';
    for (const UX::Point point : figure.PointsOf(contour)) path += std::exchange(verb, 'L') + Pair(point);
    if (contour.closed) path += 'Z';
  }
  return path + '"';
}

std::string HexOf(UX::Color color) {
  return QString::asprintf("#%02x%02x%02x", color.red, color.green, color.blue).toStdString();
}

std::string SizeOf(std::int32_t width, std::int32_t height) {
  return " width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + '"';
}

}  // namespace

void SvgCanvas::BeginFrame() {
  drawn_.clear();
  transform_ = UX::kIdentity;
}

std::string SvgCanvas::Document(std::int32_t width, std::int32_t height) const {
  // The miter limit makes corners as sharp as on the screen.
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"" +
         SizeOf(width, height) + " viewBox=\"0 0 " + std::to_string(width) + ' ' + std::to_string(height) +
         "\">\n"
         "<title>Light program</title>\n"
         "<desc>Five channels over a day, drawn by Lumarine</desc>\n"
         "<defs>\n" +
         labels_ +
         "</defs>\n"
         "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
         "<g fill=\"none\" fill-rule=\"evenodd\" stroke-miterlimit=\"10\">\n" +
         drawn_ + "</g>\n</svg>\n";
}

void SvgCanvas::SetBrush(UX::Brush brush, UX::Color color, float opacity) {
  paints_[static_cast<std::size_t>(brush)].color = color;
  SetOpacity(brush, opacity);
}

void SvgCanvas::SetOpacity(UX::Brush brush, float opacity) {
  // std::max last, so that not-a-number is 0.
  paints_[static_cast<std::size_t>(brush)].opacity = std::max(0.0F, std::min(opacity, 1.0F));
}

void SvgCanvas::SetFont(UX::TextFormat format, const UX::Font& font) {
  text_ = nullptr;
  fonts_[static_cast<std::size_t>(format)] = font;
  texts_.SetFont(format, font);
}

void SvgCanvas::SetTransform(const UX::Transform& transform) {
  transform_ = transform;
}

std::string SvgCanvas::TransformNow() const {
  if (transform_ == UX::kIdentity) return {};
  const std::string scale = transform_.scale == 1.0F ? "" : " scale(" + Number(transform_.scale) + ')';
  return " transform=\"translate(" + Pair(transform_.offset) + ')' + scale + '"';
}

std::string SvgCanvas::PaintOf(const char* use, UX::Brush brush) const {
  const auto& [color, opacity] = paints_[static_cast<std::size_t>(brush)];
  const std::string name = std::string(" ") + use;
  return name + "=\"" + HexOf(color) + '"' +
         (opacity == 1.0F ? "" : name + "-opacity=\"" + Number(opacity) + '"');
}

std::string SvgCanvas::StrokeOf(UX::Brush brush, float width) const {
  return PaintOf("stroke", brush) + Attribute("stroke-width", width) + TransformNow() + "/>\n";
}

void SvgCanvas::Fill(const UX::Shape& shape, UX::Brush brush) {
  drawn_ += std::visit(ShapeElement(), shape) + PaintOf("fill", brush) + TransformNow() + "/>\n";
}

void SvgCanvas::Stroke(const UX::Shape& shape, UX::Brush brush, float width) {
  drawn_ += std::visit(ShapeElement(), shape) + StrokeOf(brush, width);
}

void SvgCanvas::FillFigure(const UX::Figure& figure, UX::Brush brush) {
  drawn_ += PathElement(figure) + PaintOf("fill", brush) + TransformNow() + "/>\n";
}

void SvgCanvas::StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) {
  drawn_ += PathElement(figure) + StrokeOf(brush, width);
}

void SvgCanvas::FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) {
  const float width = box.width / static_cast<float>(colors.size());
  // No reader smooths the edges, which would let what is below show between two columns.
  drawn_ += "<g shape-rendering=\"crispEdges\"" + TransformNow() + ">\n";
  for (auto begin = colors.begin(); begin != colors.end();) {
    const auto end = std::find_if(begin, colors.end(), [&](UX::Color color) { return color != *begin; });
    const auto first = static_cast<float>(begin - colors.begin());
    const UX::Rectangle run{box.x + first * width, box.y, static_cast<float>(end - begin) * width,
                            box.height};
    drawn_ += ShapeElement()(run) + " fill=\"" + HexOf(*begin) + "\"/>\n";
    begin = end;
  }
  drawn_ += "</g>\n";
}

UX::TextSize SvgCanvas::LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) {
  text_ = &texts_.LayOut(format, text, limits);
  return text_->size;
}

void SvgCanvas::DrawLayout(UX::Brush brush) {
  if (text_ == nullptr) return;
  for (int line = 0; line < text_->layout->lineCount(); ++line)
    SetTextLine(text_->layout->lineAt(line), brush);
}

void SvgCanvas::SetTextLine(const QTextLine& line, UX::Brush brush) {
  QString text = text_->layout->text().mid(line.textStart(), line.textLength());
  while (!text.isEmpty() && text.back().isSpace()) text.chop(1);  // the line's end is one of them
  if (text.isEmpty()) return;
  const UX::Font& font = fonts_[static_cast<std::size_t>(text_->format)];
  // Blanks count, as on the screen. Without the second font a reader that has no Tahoma would take one with
  // serifs.
  drawn_ += "<text xml:space=\"preserve\" font-family=\"Tahoma, sans-serif\"" +
            Attribute("font-size", font.size) + (font.bold ? " font-weight=\"700\"" : "") +
            Attribute("y", static_cast<float>(line.y() + line.ascent()) * text_->scale) +
            PaintOf("fill", brush) + TransformNow() + '>' + text.toHtmlEscaped().toStdString() + "</text>\n";
}

void SvgCanvas::BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) {
  labelIds_[static_cast<std::size_t>(label)] = ++labelsMade_;
  const std::string id = std::to_string(labelsMade_);
  drawnBefore_ = std::exchange(drawn_, {});
  transformBefore_ = std::exchange(transform_, UX::kIdentity);
  labels_ += "<clipPath id=\"size-" + id + "\"><rect" + SizeOf(width, height) +
             "/></clipPath>\n<g id=\"label-" + id + "\" clip-path=\"url(#size-" + id + ")\">\n";
}

void SvgCanvas::EndLabel() {
  labels_ += std::exchange(drawn_, std::move(drawnBefore_)) + "</g>\n";
  transform_ = transformBefore_;
}

void SvgCanvas::DrawLabel(UX::Label label) {
  const int id = labelIds_[static_cast<std::size_t>(label)];
  if (id == 0) return;
  drawn_ += "<use xlink:href=\"#label-" + std::to_string(id) + '"' + TransformNow() + "/>\n";
}

}  // namespace qt
