#include "chart/chart_drawing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "chart/static_labels.h"
#include "program/channel_edit.h"
#include "program/program.h"

namespace UX {

namespace {

using TCBase::Program::ChannelInfo;
using TCBase::Program::kChannelCount;
using TCBase::Program::ModeListView;

struct BrushRow {
  Brush brush;
  Color color;
  float opacity;
};
constexpr BrushRow kBrushes[] = {
    {Brush::Black, {0, 0, 0}, 1.0F},
    {Brush::White, {255, 255, 255}, 1.0F},
    {Brush::DarkGray, {169, 169, 169}, 1.0F},
    {Brush::Gray, {128, 128, 128}, 1.0F},
    {Brush::LightSalmon, {255, 160, 122}, 1.0F},
    {Brush::Orange, {255, 165, 0}, 0.5F},
    {Brush::Salmon, {250, 128, 114}, 1.0F},
    {Brush::LightSkyBlue, {135, 206, 250}, 1.0F},
    {Brush::CornflowerBlue, {100, 149, 237}, 1.0F},
};
constexpr float kChannelOpacity = 0.5F;
constexpr float kFrameOpacity = 0.15F;

struct FontRow {
  TextFormat format;
  float part;  // of the height of a collapsed lane
  bool bold;
};
constexpr FontRow kFonts[] = {
    {TextFormat::Small, 11.0F, false},
    {TextFormat::Medium, 8.0F, true},
    {TextFormat::Large, 3.0F, true},
};

Color ColorOf(const ChannelInfo& channel) {
  const auto part = [&](int shift) { return static_cast<std::uint8_t>(channel.color >> shift); };
  return {part(16), part(8), part(0)};
}

void SetBrushes(Canvas& canvas, const ModeListView& program) {
  for (const auto& [brush, color, opacity] : kBrushes) canvas.SetBrush(brush, color, opacity);
  for (std::int32_t channel = 0; channel < kChannelCount; ++channel)
    canvas.SetBrush(ChannelBrush(channel), ColorOf(program.channelInfos[static_cast<std::size_t>(channel)]),
                    kChannelOpacity);
}

void SetFonts(Canvas& canvas, const ChartLayout& layout) {
  // A window may be too small to show anything; a font has a size all the same.
  const auto height = static_cast<float>(std::max(layout.collapsedHeight, 1));
  for (const auto& [format, part, bold] : kFonts) canvas.SetFont(format, {height / part, bold});
}

void DrawSelectionFrame(Canvas& canvas, const Rect& frame) {
  const Rectangle area{static_cast<float>(frame.x), static_cast<float>(frame.y),
                       static_cast<float>(frame.width), static_cast<float>(frame.height)};
  canvas.SetOpacity(Brush::CornflowerBlue, kFrameOpacity);
  canvas.Fill(area, Brush::CornflowerBlue);
  canvas.SetOpacity(Brush::CornflowerBlue, 1.0F);
  canvas.Stroke(area, Brush::CornflowerBlue, 1.0F);
}

}  // namespace

ChartDrawing::ChartDrawing(const ChartScene& scene)
    : scene_(scene), lanes_(scene), strip_(scene), cursorLabels_(scene), popups_(scene), demoCursor_(scene) {}

void ChartDrawing::Rebuild(Canvas& canvas) {
  SetBrushes(canvas, scene_.program);
  SetFonts(canvas, scene_.layout);
  MakeAxisLabels(canvas, scene_);
  MakeChannelNames(canvas, scene_);
}

void ChartDrawing::Relayout(Canvas& canvas) {
  MakeAxisLabels(canvas, scene_);
}

void ChartDrawing::Draw(Canvas& canvas) {
  const bool hovers = SelectedStep(scene_.hoverStep) != nullptr;
  // Asked for once, so that all that stands at it stands together.
  const Point follower = follower_.Position();
  canvas.SetTransform(kIdentity);
  strip_.Draw(canvas);
  for (std::int32_t lane = 0; lane < kChannelCount; ++lane) lanes_.DrawBackground(canvas, lane);
  cursorLabels_.DrawCursorLabels(canvas, follower);
  for (std::int32_t lane = 0; lane < kChannelCount; ++lane) {
    lanes_.DrawComparedCurve(canvas, lane);
    lanes_.DrawCurve(canvas, lane);
    const bool isHovered = hovers && scene_.hoverStep.channel == lane;
    if (!isHovered) cursorLabels_.DrawValueLabel(canvas, lane, follower);
    lanes_.DrawSteps(canvas, lane);
  }
  for (std::int32_t lane = 0; lane < kChannelCount; ++lane) popups_.DrawPopups(canvas, lane);
  demoCursor_.DrawDemoCursor(canvas);
  cursorLabels_.DrawCrosshair(canvas, follower);
  if (scene_.overlay.frame) DrawSelectionFrame(canvas, *scene_.overlay.frame);
}

void ChartDrawing::Update() {
  popups_.Update();
}

void ChartDrawing::MouseMoved(std::int32_t x, std::int32_t y) {
  follower_.MouseMoved(x, y);
}

bool ChartDrawing::IsAnimating() {
  return popups_.IsAnimating();
}

}  // namespace UX
