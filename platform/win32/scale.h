#pragma once

// The application reckons in units of 1/96 inch. On a screen of 96 dots to the inch, the usual one, a unit is
// a pixel; on a finer one it is more, so that the window and its texts keep their size there.

#include "chart/chart_layout.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// The scale of a window at the moment the object is made. A window that goes to another screen changes it.
class Scale {
 public:
  explicit Scale(HWND window);

  int Pixels(int units) const;
  int Units(int pixels) const;
  /// Edges are converted, not sizes: what is adjacent in units is so in pixels.
  RECT Pixels(const Rect& units) const;

  UINT dpi() const { return dpi_; }

 private:
  UINT dpi_;
};

}  // namespace win32
