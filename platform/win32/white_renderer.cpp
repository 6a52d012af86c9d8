#include "platform/win32/white_renderer.h"

namespace win32 {

void WhiteRenderer::Render() {
  const HWND handle = chart_.Handle();
  RECT client{};
  GetClientRect(handle, &client);
  const HDC target = GetDC(handle);
  FillRect(target, &client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  ReleaseDC(handle, target);
  ValidateRect(handle, nullptr);
}

}  // namespace win32
