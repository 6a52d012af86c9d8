#pragma once

// Drawing by the flat functions of GDI+. Usable between the start and the end of GDI+, on one thread.
//
// No failure is reported: what could not be made draws nothing. Coordinates further out than kFarthest are
// drawn there.

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "chart/chart_layout.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>

namespace win32 {

struct DeleteGdiplusObject {
  void operator()(Gdiplus::GpPen* pen) const;
  void operator()(Gdiplus::GpBrush* brush) const;
  void operator()(Gdiplus::GpFontFamily* family) const;
  void operator()(Gdiplus::GpFont* font) const;
  void operator()(Gdiplus::GpStringFormat* format) const;
  void operator()(Gdiplus::GpRegion* region) const;
  void operator()(Gdiplus::GpGraphics* graphics) const;
};
template <class Object>
using GdiplusHolder = std::unique_ptr<Object, DeleteGdiplusObject>;

// Colours are 0xAARRGGBB.

class GdiplusPen {
 public:
  /// Pixels.
  GdiplusPen(std::uint32_t color, float width);
  Gdiplus::GpPen* get() const { return pen_.get(); }

 private:
  GdiplusHolder<Gdiplus::GpPen> pen_;
};

class GdiplusBrush {
 public:
  explicit GdiplusBrush(std::uint32_t color);
  Gdiplus::GpBrush* get() const { return brush_.get(); }

 private:
  GdiplusHolder<Gdiplus::GpBrush> brush_;
};

class GdiplusFont {
 public:
  /// Size in pixels. There is none if the machine has no such family.
  GdiplusFont(const wchar_t* family, float size, Gdiplus::FontStyle style);
  Gdiplus::GpFont* get() const { return font_.get(); }

 private:
  GdiplusHolder<Gdiplus::GpFontFamily> family_;
  GdiplusHolder<Gdiplus::GpFont> font_;
};

class GdiplusGraphics {
 public:
  /// The context outlives all drawing.
  explicit GdiplusGraphics(HDC target);

  void Clear(std::uint32_t color);
  /// Shapes are anti-aliased from now on.
  void Smooth();

  // Each takes the place of the clip before.
  void ClipToRegion(const Rect& area);
  void ClipTo(const Rect& area);
  void ResetClip();

  void FillRectangle(const Rect& area, const GdiplusBrush& brush);
  void FillRectangle(const Gdiplus::RectF& area, const GdiplusBrush& brush);
  void DrawRectangle(const Rect& area, const GdiplusPen& pen);
  void DrawRectangle(const Gdiplus::RectF& area, const GdiplusPen& pen);
  void DrawLine(Gdiplus::Point from, Gdiplus::Point to, const GdiplusPen& pen);
  /// Joins the points, in order.
  void DrawLines(std::vector<Gdiplus::Point> points, const GdiplusPen& pen);
  // A circle.
  void FillEllipse(const Gdiplus::Point& center, float diameter, const GdiplusBrush& brush);
  void DrawEllipse(const Gdiplus::Point& center, float diameter, const GdiplusPen& pen);

  /// UTF-8, set from this point to the right and down, not broken but at its line ends.
  void DrawString(std::string_view text, const Gdiplus::Point& at, const GdiplusFont& font,
                  const GdiplusBrush& brush);
  /// The size that the text takes within limits of this size; none without a font.
  Gdiplus::SizeF MeasureString(std::string_view text, const GdiplusFont& font, const Gdiplus::SizeF& limits);

  /// The status of the last drawing that went wrong.
  Gdiplus::GpStatus lastStatus() const { return lastStatus_; }

 private:
  void Store(Gdiplus::GpStatus status) {
    if (status != Gdiplus::Ok) lastStatus_ = status;
  }

  GdiplusHolder<Gdiplus::GpGraphics> graphics_;
  Gdiplus::GpStatus lastStatus_ = Gdiplus::Ok;
};

}  // namespace win32
