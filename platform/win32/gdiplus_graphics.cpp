#include "platform/win32/gdiplus_graphics.h"

#include <algorithm>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "chart/figure.h"
#include "platform/win32/text.h"

namespace win32 {

using namespace Gdiplus::DllExports;

namespace {

constexpr auto kFarthestPixel = static_cast<std::int32_t>(UX::kFarthest);

INT Bounded(INT coordinate) {
  return std::clamp(coordinate, -kFarthestPixel, kFarthestPixel);
}

Gdiplus::Point Bounded(const Gdiplus::Point& point) {
  return {Bounded(point.X), Bounded(point.Y)};
}

Rect Bounded(const Rect& area) {
  return {Bounded(area.x), Bounded(area.y), Bounded(area.width), Bounded(area.height)};
}

// The square about a point.
Gdiplus::RectF Around(const Gdiplus::Point& center, float side) {
  const Gdiplus::Point point = Bounded(center);
  return {static_cast<float>(point.X) - side / 2.0F, static_cast<float>(point.Y) - side / 2.0F, side, side};
}

}  // namespace

void DeleteGdiplusObject::operator()(Gdiplus::GpPen* pen) const {
  GdipDeletePen(pen);
}
void DeleteGdiplusObject::operator()(Gdiplus::GpBrush* brush) const {
  GdipDeleteBrush(brush);
}
void DeleteGdiplusObject::operator()(Gdiplus::GpFontFamily* family) const {
  GdipDeleteFontFamily(family);
}
void DeleteGdiplusObject::operator()(Gdiplus::GpFont* font) const {
  GdipDeleteFont(font);
}
void DeleteGdiplusObject::operator()(Gdiplus::GpStringFormat* format) const {
  GdipDeleteStringFormat(format);
}
void DeleteGdiplusObject::operator()(Gdiplus::GpRegion* region) const {
  GdipDeleteRegion(region);
}
void DeleteGdiplusObject::operator()(Gdiplus::GpGraphics* graphics) const {
  GdipDeleteGraphics(graphics);
}

GdiplusPen::GdiplusPen(std::uint32_t color, float width) {
  Gdiplus::GpPen* pen = nullptr;
  GdipCreatePen1(color, width, Gdiplus::UnitPixel, &pen);
  pen_.reset(pen);
}

GdiplusBrush::GdiplusBrush(std::uint32_t color) {
  Gdiplus::GpSolidFill* brush = nullptr;
  GdipCreateSolidFill(color, &brush);
  brush_.reset(brush);
}

GdiplusFont::GdiplusFont(const wchar_t* family, float size, Gdiplus::FontStyle style) {
  Gdiplus::GpFontFamily* found = nullptr;
  GdipCreateFontFamilyFromName(family, nullptr, &found);
  family_.reset(found);
  if (!family_) return;
  Gdiplus::GpFont* font = nullptr;
  GdipCreateFont(family_.get(), size, style, Gdiplus::UnitPixel, &font);
  font_.reset(font);
}

GdiplusGraphics::GdiplusGraphics(HDC target) {
  Gdiplus::GpGraphics* graphics = nullptr;
  Store(GdipCreateFromHDC(target, &graphics));
  graphics_.reset(graphics);
}

void GdiplusGraphics::Clear(std::uint32_t color) {
  Store(GdipGraphicsClear(graphics_.get(), color));
}

void GdiplusGraphics::Smooth() {
  Store(GdipSetSmoothingMode(graphics_.get(), Gdiplus::SmoothingModeAntiAlias));
}

void GdiplusGraphics::ClipToRegion(const Rect& area) {
  const Rect bounded = Bounded(area);
  const Gdiplus::Rect rectangle(bounded.x, bounded.y, bounded.width, bounded.height);
  Gdiplus::GpRegion* made = nullptr;
  Store(GdipCreateRegionRectI(&rectangle, &made));
  const GdiplusHolder<Gdiplus::GpRegion> region(made);
  Store(GdipSetClipRegion(graphics_.get(), region.get(), Gdiplus::CombineModeReplace));
}

void GdiplusGraphics::ClipTo(const Rect& area) {
  const Rect bounded = Bounded(area);
  Store(GdipSetClipRectI(graphics_.get(), bounded.x, bounded.y, bounded.width, bounded.height,
                         Gdiplus::CombineModeReplace));
}

void GdiplusGraphics::ResetClip() {
  Store(GdipResetClip(graphics_.get()));
}

void GdiplusGraphics::FillRectangle(const Rect& area, const GdiplusBrush& brush) {
  const Rect bounded = Bounded(area);
  Store(
      GdipFillRectangleI(graphics_.get(), brush.get(), bounded.x, bounded.y, bounded.width, bounded.height));
}

void GdiplusGraphics::FillRectangle(const Gdiplus::RectF& area, const GdiplusBrush& brush) {
  Store(GdipFillRectangle(graphics_.get(), brush.get(), area.X, area.Y, area.Width, area.Height));
}

void GdiplusGraphics::DrawRectangle(const Rect& area, const GdiplusPen& pen) {
  const Rect bounded = Bounded(area);
  Store(GdipDrawRectangleI(graphics_.get(), pen.get(), bounded.x, bounded.y, bounded.width, bounded.height));
}

void GdiplusGraphics::DrawRectangle(const Gdiplus::RectF& area, const GdiplusPen& pen) {
  Store(GdipDrawRectangle(graphics_.get(), pen.get(), area.X, area.Y, area.Width, area.Height));
}

void GdiplusGraphics::DrawLine(Gdiplus::Point from, Gdiplus::Point to, const GdiplusPen& pen) {
  from = Bounded(from);
  to = Bounded(to);
  Store(GdipDrawLineI(graphics_.get(), pen.get(), from.X, from.Y, to.X, to.Y));
}

void GdiplusGraphics::DrawLines(std::vector<Gdiplus::Point> points, const GdiplusPen& pen) {
  for (Gdiplus::Point& point : points) point = Bounded(point);
  Store(GdipDrawLinesI(graphics_.get(), pen.get(), points.data(), static_cast<INT>(points.size())));
}

void GdiplusGraphics::FillEllipse(const Gdiplus::Point& center, float diameter, const GdiplusBrush& brush) {
  const Gdiplus::RectF box = Around(center, diameter);
  Store(GdipFillEllipse(graphics_.get(), brush.get(), box.X, box.Y, box.Width, box.Height));
}

void GdiplusGraphics::DrawEllipse(const Gdiplus::Point& center, float diameter, const GdiplusPen& pen) {
  const Gdiplus::RectF box = Around(center, diameter);
  Store(GdipDrawEllipse(graphics_.get(), pen.get(), box.X, box.Y, box.Width, box.Height));
}

void GdiplusGraphics::DrawString(std::string_view text, const Gdiplus::Point& at, const GdiplusFont& font,
                                 const GdiplusBrush& brush) {
  const std::wstring wide = WideText(WideFromUtf8(text));
  const Gdiplus::Point corner = Bounded(at);
  const Gdiplus::RectF anywhere(static_cast<float>(corner.X), static_cast<float>(corner.Y), 0.0F, 0.0F);
  Store(GdipSetTextRenderingHint(graphics_.get(), Gdiplus::TextRenderingHintAntiAlias));
  Store(GdipDrawString(graphics_.get(), wide.c_str(), static_cast<INT>(wide.size()), font.get(), &anywhere,
                       nullptr, brush.get()));
}

Gdiplus::SizeF GdiplusGraphics::MeasureString(std::string_view text, const GdiplusFont& font,
                                              const Gdiplus::SizeF& limits) {
  const std::wstring wide = WideText(WideFromUtf8(text));
  Gdiplus::GpStringFormat* made = nullptr;
  Store(GdipCreateStringFormat(0, LANG_NEUTRAL, &made));
  const GdiplusHolder<Gdiplus::GpStringFormat> format(made);
  Store(GdipSetStringFormatAlign(format.get(), Gdiplus::StringAlignmentNear));
  const Gdiplus::RectF within(0.0F, 0.0F, limits.Width, limits.Height);
  Gdiplus::RectF taken;
  INT characters = 0;
  INT lines = 0;
  Store(GdipMeasureString(graphics_.get(), wide.c_str(), static_cast<INT>(wide.size()), font.get(), &within,
                          format.get(), &taken, &characters, &lines));
  return {taken.Width, taken.Height};
}

}  // namespace win32
