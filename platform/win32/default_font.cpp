#include "platform/win32/default_font.h"

namespace win32 {

namespace {
constexpr int kPoints = 8;
constexpr int kPointsPerInch = 72;
}  // namespace

HFONT DefaultFont::Stock() {
  return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

DefaultFont::Owned DefaultFont::Make(UINT dpi) {
  if (dpi == USER_DEFAULT_SCREEN_DPI && GetDpiForSystem() == USER_DEFAULT_SCREEN_DPI) return nullptr;
  // Not by the stock font's own height, which may go by the first screen's resolution.
  LOGFONTW font{};
  GetObjectW(Stock(), sizeof font, &font);
  font.lfHeight = -MulDiv(kPoints, static_cast<int>(dpi), kPointsPerInch);
  return Owned(CreateFontIndirectW(&font));
}

}  // namespace win32
