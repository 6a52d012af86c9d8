#include "platform/win32/renderer_gdi.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "chart/demo_cursor.h"
#include "chart/popup_place.h"
#include "chart/scene_queries.h"
#include "common/message.h"
#include "common/truncate.h"
#include "platform/win32/gdiplus_graphics.h"
#include "program/channel_edit.h"
#include "program/view.h"

namespace UX {

namespace {

using TCBase::Program::Channel;
using TCBase::Program::kChannelCount;
using TCBase::Program::kDayEnd;
using TCBase::Program::kHoursPerDay;
using TCBase::Program::kMaxViewHours;
using TCBase::Program::kSecondsPerDay;
using TCBase::Program::kSecondsPerHour;
using TCBase::Program::Step;
using win32::GdiplusBrush;
using win32::GdiplusFont;
using win32::GdiplusGraphics;
using win32::GdiplusPen;

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kSalmon = 0xFFFA8072;
constexpr const wchar_t* kFont = L"Segoe UI";
constexpr const wchar_t* kNameFont = L"Segoe UI Black";

// Room for the pens that draw on a lane's edge.
Rect WithSurroundings(const Rect& lane) {
  return {lane.x - 9, lane.y - 13, lane.width + 18, lane.height + 26};
}

Rect Grown(const Rect& lane, std::int32_t by) {
  return {lane.x - by, lane.y - by, lane.width + 2 * by, lane.height + 2 * by};
}

// The window's own context during a paint event.
class PaintContext {
 public:
  explicit PaintContext(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~PaintContext() {
    // Deleting a window's own context releases it. EndPaint finds it released.
    DeleteDC(dc_);
    EndPaint(window_, &paint_);
  }
  PaintContext(const PaintContext&) = delete;
  PaintContext& operator=(const PaintContext&) = delete;

  HDC dc() const { return dc_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC dc_;
};

}  // namespace

void RendererGDI::Rebuild() {
  gridCache_.Clear();
}

void RendererGDI::Render() {
  RECT client{};
  GetClientRect(chart_.Handle(), &client);
  const int width = client.right - client.left;
  const int height = client.bottom + client.left;  // which is 0
  std::optional<GdiplusGraphics> graphics;         // the last to go
  const PaintContext paint(chart_.Handle());
  const win32::MemoryBitmap memory(paint.dc(), width, height);
  memoryDC_ = memory.dc;
  graphics_ = &graphics.emplace(memoryDC_);
  graphics_->Clear(kWhite);
  graphics_->Smooth();
  for (std::int32_t lane = 0; lane < kChannelCount; ++lane) DrawLane(lane);
  FrameSelectedLane();
  DrawChannels();
  DrawSelectedStep();
  DrawDemoLine(demo.position);
  BitBlt(paint.dc(), 0, 0, width, height, memoryDC_, 0, 0, SRCCOPY);
  graphics_ = nullptr;
  memoryDC_ = nullptr;
}

// Grids.

void RendererGDI::DrawLane(std::int32_t lane) {
  const Rect area = layout.LaneRect(lane);
  const std::uint32_t color = program.channelInfos[static_cast<std::size_t>(lane)].color;
  const View view = CurrentView();
  if (ViewHours(program) < kMaxViewHours) {
    graphics_->ClipToRegion({area.x, area.y, area.width + 1, area.height + 1});
    DrawGrid(*graphics_, area, color, view);
  } else {
    BitBlt(memoryDC_, area.x, area.y, area.width + 1, area.height + 1, CachedGrid(area, color).dc, 0, 0,
           SRCCOPY);
  }
}

// Lanes of one colour share a grid. Its key holds no size: until the next Rebuild lanes that have another
// size by now are shown the old one.
const win32::GridBitmap& RendererGDI::CachedGrid(const Rect& area, std::uint32_t color) {
  const std::string key = "grid_" + std::to_string(color);
  if (const win32::GridBitmap* const kept = gridCache_.Find(key); kept != nullptr) return *kept;
  const HDC model = GetDC(chart_.Handle());
  auto grid = std::make_unique<win32::GridBitmap>(key, model, area.width + 1, area.height + 1);
  GdiplusGraphics graphics(grid->dc);
  DrawGrid(graphics, {0, 0, area.width, area.height}, color, {0, kSecondsPerDay});
  ReleaseDC(chart_.Handle(), model);
  return gridCache_.Add(std::move(grid));
}

std::int32_t RendererGDI::AcrossView(std::int32_t second, View view, std::int32_t left, std::int32_t width) {
  return TruncateToInt(static_cast<float>(second - view.start) * static_cast<float>(width) /
                           static_cast<float>(view.end - view.start) +
                       static_cast<float>(left));
}

void RendererGDI::DrawGrid(GdiplusGraphics& graphics, const Rect& area, std::uint32_t color, View view) {
  const GdiplusPen pen(0xFFAAAAAA, 1.0F);
  [[maybe_unused]] const GdiplusPen wide(0xFF646464, 3.0F);  // made with the others; no line has it
  graphics.FillRectangle(area, GdiplusBrush(color));
  graphics.DrawRectangle(area, pen);
  const std::int32_t right = area.x + area.width;
  const std::int32_t bottom = area.y + area.height;
  for (std::int32_t i = 0; i < 10; ++i) {
    const std::int32_t y =
        TruncateToInt(static_cast<float>(i) * static_cast<float>(area.height) / 10.0F) + area.y;
    graphics.DrawLine({area.x, y}, {right, y}, pen);
  }
  for (std::int32_t second = 0; second < kSecondsPerDay; second += kSecondsPerHour) {
    const std::int32_t x = AcrossView(second, view, area.x, area.width);
    graphics.DrawLine({x, area.y}, {x, bottom}, pen);
  }
  DrawGridLabels(graphics, area, view);
}

void RendererGDI::DrawGridLabels(GdiplusGraphics& graphics, const Rect& area, View view) {
  const auto height = static_cast<float>(area.height);
  const GdiplusFont font(kFont, height / 12.0F, Gdiplus::FontStyleRegular);
  const GdiplusBrush brush(0xFF696969);
  const std::int32_t hoursY = TruncateToInt(height - height / 100.0F * 11.0F + static_cast<float>(area.y));
  for (std::int32_t hour = 0; hour < kHoursPerDay; ++hour) {
    const std::int32_t x = AcrossView(hour * kSecondsPerHour, view, area.x, area.width);
    graphics.DrawString(TCBase::Program::TimeText({hour, 0}), {x, hoursY}, font, brush);
  }
  const std::int32_t percentX =
      TruncateToInt(static_cast<float>(area.x) + static_cast<float>(area.width) / 1440.0F);
  for (std::int32_t percent = 20; percent <= 100; percent += 10) {
    const std::int32_t y = PercentToY(area, static_cast<float>(percent));
    graphics.DrawString(std::to_string(percent) + "%", {percentX, y}, font, brush);
  }
}

void RendererGDI::FrameSelectedLane() {
  if (static_cast<std::uint32_t>(selection.channel) >= kChannelCount) return;
  graphics_->ResetClip();
  graphics_->DrawRectangle(Grown(layout.LaneRect(selection.channel), 3), GdiplusPen(0xFF323232, 2.0F));
}

// Channels.

void RendererGDI::DrawChannels() {
  for (std::int32_t lane = 0; lane < kChannelCount; ++lane) {
    const Rect area = layout.LaneRect(lane);
    const Channel& channel = ChannelOfLane(program, lane);
    graphics_->ResetClip();
    DrawChannelName(lane, area);
    graphics_->ClipTo(WithSurroundings(area));
    DrawCurve(channel, area);
    graphics_->ClipTo(WithSurroundings(area));
    DrawSteps(channel, area);
  }
}

void RendererGDI::DrawChannelName(std::int32_t lane, const Rect& area) {
  const std::string& given = program.channelInfos[static_cast<std::size_t>(lane)].name;
  const std::string name = given.empty() ? Message("Channel {1}", lane + 1).utf8() : given;
  const auto width = static_cast<float>(area.width);
  const auto height = static_cast<float>(area.height);
  graphics_->DrawString(name,
                        {TruncateToInt(width / 1440.0F * 60.0F + static_cast<float>(area.x)),
                         TruncateToInt(height - 90.0F * height / 100.0F + static_cast<float>(area.y))},
                        GdiplusFont(kNameFont, height / 3.0F, Gdiplus::FontStyleRegular),
                        GdiplusBrush(0xFF87CEFA));
}

// The step's own jump decides here, where the rest of the program goes by that of the step before: the flat
// stretch is seen before a step that jumps, not after it. There is a curve for any number of steps.
void RendererGDI::DrawCurve(const Channel& channel, const Rect& area) {
  std::int32_t held = TruncateToInt(ChannelValueAt(channel, 0));
  std::vector<Gdiplus::Point> points;
  points.reserve(2 * channel.size() + 2);
  points.emplace_back(TimeToX(area, program, 0), PercentToY(area, static_cast<float>(held)));
  for (const Step& step : channel) {
    const std::int32_t x = TimeToX(area, program, step);
    if (step.jump) points.emplace_back(x, PercentToY(area, static_cast<float>(held)));
    points.emplace_back(x, PercentToY(area, step.value));
    held = TruncateToInt(step.value);
  }
  points.emplace_back(TimeToX(area, program, kDayEnd), PercentToY(area, ChannelValueAt(channel, kDayEnd)));
  graphics_->DrawLines(std::move(points), GdiplusPen(kSalmon, static_cast<float>(area.height) / 20.0F));
}

void RendererGDI::DrawSteps(const Channel& channel, const Rect& area) {
  const float diameter = GetMarkerSize(layout).plainDiameter;
  const GdiplusBrush inside(0xFFFFFF00);
  const GdiplusPen jumpRim(0xFFAA46E6, 3.0F);
  const GdiplusPen fadeRim(0xFFFF0000, 2.0F);
  for (const Step& step : channel) {
    const Gdiplus::Point center(TimeToX(area, program, step), PercentToY(area, step.value));
    graphics_->FillEllipse(center, diameter, inside);
    graphics_->DrawEllipse(center, diameter, step.jump ? jumpRim : fadeRim);
  }
}

// What is selected, and the demo.

void RendererGDI::DrawSelectedStep() {
  const Step* const selected = SelectedStep(selection);
  if (selected == nullptr) return;
  const Step& step = *selected;
  const Rect area = layout.LaneRect(selection.channel);
  const Gdiplus::Point center(TimeToX(area, program, step), PercentToY(area, step.value));
  const MarkerSize marker = GetMarkerSize(layout);
  const GdiplusPen pen(kBlack, 2.0F);
  graphics_->ClipTo(WithSurroundings(area));
  graphics_->FillEllipse(center, marker.plainDiameter, GdiplusBrush(0xFFFF4500));
  graphics_->DrawEllipse(center, marker.plainDiameter, pen);
  graphics_->DrawEllipse(center, marker.selectedDiameter, pen);
  DrawTooltip(step, area, center.X, center.Y);
}

void RendererGDI::DrawTooltip(const Step& step, const Rect& area, std::int32_t x, std::int32_t y) {
  const std::string text = ToChartLabel(step);
  const GdiplusFont font(kFont, static_cast<float>(area.height) / 10.0F, Gdiplus::FontStyleBold);
  const Gdiplus::SizeF size = graphics_->MeasureString(text, font, {300.0F, 300.0F});
  const Rect place = FindPopupPlace(area, TruncateToInt(WithinReach(x)), TruncateToInt(WithinReach(y)),
                                    TruncateToInt(size.Width), TruncateToInt(size.Height),
                                    TruncateToInt(GetMarkerSize(layout).plainDiameter), {});
  const Gdiplus::RectF box(static_cast<float>(place.x), static_cast<float>(place.y),
                           static_cast<float>(place.width), static_cast<float>(place.height));
  graphics_->FillRectangle(box, GdiplusBrush(0xFFFAFAD2));
  graphics_->DrawRectangle(box, GdiplusPen(kBlack, 2.0F));
  graphics_->DrawString(text, {place.x, place.y}, font, GdiplusBrush(kBlack));
}

void RendererGDI::DrawDemoLine(std::int32_t position) {
  if (position < 0) return;
  const Rect area = layout.LaneStrip();
  const std::int32_t x = AcrossView(CursorSecond(position), CurrentView(), area.x, area.width);
  graphics_->ClipTo(area);
  graphics_->DrawLine({x, 0}, {x, area.height}, GdiplusPen(0xFF32B40A, 2.0F));
}

}  // namespace UX
