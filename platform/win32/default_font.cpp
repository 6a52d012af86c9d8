#include "platform/win32/default_font.h"

namespace win32 {

HFONT DefaultFont::Stock() {
  return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

DefaultFont::Owned DefaultFont::Make(UINT dpi) {
  if (dpi == USER_DEFAULT_SCREEN_DPI) return nullptr;
  LOGFONTW font{};
  GetObjectW(Stock(), sizeof font, &font);
  font.lfHeight = MulDiv(font.lfHeight, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
  return Owned(CreateFontIndirectW(&font));
}

}  // namespace win32
