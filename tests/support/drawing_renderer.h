#pragma once

// A renderer of the headless shell that draws, onto a canvas that keeps a number for a whole frame: two
// frames of the same number look the same. It also keeps what the labels show, and where markers of steps
// stand.

#include <array>
#include <bit>
#include <cstdint>
#include <map>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "chart/chart_drawing.h"
#include "tests/support/checking_canvas.h"
#include "tests/support/headless_shell.h"
#include "tests/support/recording_canvas.h"
#include "tests/support/text_metric.h"

namespace headless {

/// A step's marker as it was drawn.
struct DrawnMarker {
  float x = 0.0F;
  float y = 0.0F;
  bool isSquare = false;
  bool isSelected = false;

  friend auto operator<=>(const DrawnMarker&, const DrawnMarker&) = default;
};

class DigestCanvas final : public UX::Canvas {
 public:
  /// What the labels, brushes and fonts were made of; the same for the same.
  struct Made {
    std::array<std::uint64_t, UX::kLabelCount> labels{};
    std::array<std::uint64_t, UX::kBrushCount> brushes{};
    std::array<std::uint64_t, UX::kTextFormatCount> fonts{};

    friend bool operator==(const Made&, const Made&) = default;
  };

  std::uint64_t digest = 0;          // of what was drawn since BeginFrame, but for what labels show
  std::vector<DrawnMarker> markers;  // since then
  Made made;

  void BeginFrame() {
    digest = kBasis;
    opacities_.fill(1.0F);
    markers.clear();
  }

  void SetBrush(UX::Brush brush, UX::Color color, float opacity) override {
    std::uint64_t& into = made.brushes[static_cast<std::size_t>(brush)];
    into = kBasis;
    Add(into, color.red, color.green, color.blue, opacity);
    opacities_[static_cast<std::size_t>(brush)] = opacity;
  }
  void SetOpacity(UX::Brush brush, float opacity) override {
    opacities_[static_cast<std::size_t>(brush)] = opacity;
  }
  void SetFont(UX::TextFormat format, const UX::Font& font) override {
    fonts_[static_cast<std::size_t>(format)] = font;
    std::uint64_t& into = made.fonts[static_cast<std::size_t>(format)];
    into = kBasis;
    Add(into, font.size, font.bold);
  }
  void SetTransform(const UX::Transform& transform) override {
    isMoved_ = transform != UX::kIdentity;
    Note(2, transform.scale, transform.offset.x, transform.offset.y);
  }
  void Fill(const UX::Shape& shape, UX::Brush brush) override {
    NoteShape(3, shape);
    NoteBrush(brush);
    if (!isMoved_ && !label_ && (brush == UX::Brush::White || brush == UX::Brush::Salmon))
      AddMarker(shape, brush);
  }
  void Stroke(const UX::Shape& shape, UX::Brush brush, float width) override {
    NoteShape(4, shape);
    NoteBrush(brush, width);
  }
  void FillFigure(const UX::Figure& figure, UX::Brush brush) override { NoteFigure(5, figure, brush, 0.0F); }
  void StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) override {
    NoteFigure(6, figure, brush, width);
  }
  void FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) override {
    Note(7, box.x, box.y, box.width, box.height);
    for (const UX::Color& color : colors) Note(color.red, color.green, color.blue);
  }
  UX::TextSize LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) override {
    Note(8, format, limits.width, limits.height);
    for (const char c : text) Note(c);
    return chart_test::MeasureText(fonts_[static_cast<std::size_t>(format)], text, limits);
  }
  void DrawLayout(UX::Brush brush) override { NoteBrush(brush); }
  void BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) override {
    label_ = &made.labels[static_cast<std::size_t>(label)];
    *label_ = kBasis;
    Note(width, height);
  }
  void EndLabel() override { label_ = nullptr; }
  void DrawLabel(UX::Label label) override { Note(10, label); }

 private:
  static constexpr std::uint64_t kBasis = 0xCBF29CE484222325;

  static void AddBits(std::uint64_t& into, std::uint64_t bits) {
    into = (into ^ bits) * 0x100000001B3;
    into ^= into >> 29U;
  }
  template <class... Parts>
  static void Add(std::uint64_t& into, Parts... parts) {
    (AddBits(into, BitsOf(parts)), ...);
  }
  static std::uint64_t BitsOf(float number) { return std::bit_cast<std::uint32_t>(number); }
  template <class Number>
  static std::uint64_t BitsOf(Number number) {
    return static_cast<std::uint64_t>(number);
  }
  template <class... Parts>
  void Note(Parts... parts) {
    Add(label_ ? *label_ : digest, parts...);
  }
  void NoteBrush(UX::Brush brush, float width = 0.0F) {
    Note(brush, opacities_[static_cast<std::size_t>(brush)], width);
  }
  void NoteShape(int kind, const UX::Shape& shape) {
    Note(kind, shape.index());
    if (const auto* line = std::get_if<UX::Line>(&shape))
      Note(line->from.x, line->from.y, line->to.x, line->to.y);
    if (const auto* box = std::get_if<UX::Rectangle>(&shape)) Note(box->x, box->y, box->width, box->height);
    if (const auto* round = std::get_if<UX::RoundedRectangle>(&shape))
      Note(round->box.x, round->box.y, round->box.width, round->box.height, round->radius);
    if (const auto* circle = std::get_if<UX::Circle>(&shape))
      Note(circle->center.x, circle->center.y, circle->radius);
  }
  void NoteFigure(int kind, const UX::Figure& figure, UX::Brush brush, float width) {
    Note(kind);
    NoteBrush(brush, width);
    for (const UX::Point point : figure.Points()) Note(point.x, point.y);
  }
  void AddMarker(const UX::Shape& shape, UX::Brush brush) {
    const bool isSelected = brush == UX::Brush::Salmon;
    if (const auto* circle = std::get_if<UX::Circle>(&shape))
      markers.push_back({circle->center.x, circle->center.y, false, isSelected});
    if (const auto* box = std::get_if<UX::Rectangle>(&shape))
      markers.push_back({box->x + box->width / 2.0F, box->y + box->height / 2.0F, true, isSelected});
  }

  std::array<UX::Font, UX::kTextFormatCount> fonts_{};
  std::array<float, UX::kBrushCount> opacities_{};
  bool isMoved_ = false;
  std::uint64_t* label_ = nullptr;  // into which all goes until it ends
};

/// What stands still is looked at: lanes, curves, steps and the strip. Balloons, the crosshair and what a
/// demo moves are drawn as well, and must keep to the canvas's contract.
class DrawingRenderer final : public RecordingRenderer {
 public:
  DrawingRenderer(const UX::ChartScene& scene, Journal& journal)
      : RecordingRenderer(scene, journal), scene_(scene), drawing_(scene), lanes_(scene), strip_(scene) {}

  void Render() override {
    if (keepsFrames) DrawShown();
    if (frames % kMovingEvery == 0) drawing_.Draw(checking);
    RecordingRenderer::Render();
  }
  void Update() override {
    drawing_.Update();
    // The main loop rests as soon as the lanes stand, and leaves the frame before that: a part of a pixel.
    const bool glides = scene_.layout.IsGliding();
    if (std::exchange(glided_, glides) && !glides && keepsFrames) DrawShown();
  }
  void Rebuild() override {
    drawing_.Rebuild(checking);
    drawing_.Rebuild(labels);
    drawing_.Rebuild(text_);
  }
  void Relayout() override { drawing_.Relayout(labels); }
  void MouseMoved(std::int32_t x, std::int32_t y) override { drawing_.MouseMoved(x, y); }
  bool IsAnimating() override { return drawing_.IsAnimating(); }

  /// The frame that would be shown if one were drawn now.
  DigestCanvas DrawnNow() {
    DigestCanvas canvas = shown;
    Draw(canvas);
    return canvas;
  }
  /// The same as text.
  std::vector<std::string> TextNow() {
    text_.Clear();
    DrawStill(text_);
    return text_.Lines();
  }
  /// What labels, brushes and fonts would be made of now.
  DigestCanvas::Made MadeNow() const {
    DigestCanvas canvas;
    UX::ChartDrawing(scene_).Rebuild(canvas);
    return canvas.made;
  }
  const UX::ChartScene& Scene() const { return scene_; }

  bool keepsFrames = false;            // draws what `shown` keeps
  DigestCanvas shown;                  // the frame drawn last
  DigestCanvas labels;                 // what was made for frames last
  bool keepsText = false;              // of each frame, which takes its time
  std::vector<std::string> shownText;  // of that frame, if so
  chart_test::CheckingCanvas checking;

 private:
  static constexpr int kMovingEvery = 8;  // frame: all of it is drawn, with what moves

  void DrawShown() {
    Draw(shown);
    if (keepsText) shownText = TextNow();
  }
  void Draw(DigestCanvas& canvas) {
    canvas.BeginFrame();
    DrawStill(canvas);
  }
  void DrawStill(UX::Canvas& canvas) {
    canvas.SetTransform(UX::kIdentity);
    strip_.Draw(canvas);
    for (std::int32_t lane = 0; lane < TCBase::Program::kChannelCount; ++lane) {
      lanes_.DrawBackground(canvas, lane);
      lanes_.DrawComparedCurve(canvas, lane);
      lanes_.DrawCurve(canvas, lane);
      lanes_.DrawSteps(canvas, lane);
    }
  }

  const UX::ChartScene scene_;
  UX::ChartDrawing drawing_;
  UX::LaneDrawing lanes_;
  UX::LightStrip strip_;
  chart_test::RecordingCanvas text_;
  bool glided_ = false;
};

}  // namespace headless
