#include "platform/win32/scale.h"

namespace win32 {

namespace {
constexpr int kUnitsPerInch = USER_DEFAULT_SCREEN_DPI;
}

Scale::Scale(HWND window) : dpi_(GetDpiForWindow(window)) {
  if (dpi_ == 0) dpi_ = kUnitsPerInch;  // no such window
}

int Scale::Pixels(int units) const {
  return MulDiv(units, static_cast<int>(dpi_), kUnitsPerInch);
}

int Scale::Units(int pixels) const {
  return MulDiv(pixels, kUnitsPerInch, static_cast<int>(dpi_));
}

RECT Scale::Pixels(const Rect& units) const {
  return {Pixels(units.x), Pixels(units.y), Pixels(units.x + units.width), Pixels(units.y + units.height)};
}

}  // namespace win32
