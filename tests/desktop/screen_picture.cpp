#include "tests/desktop/screen_picture.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

// after windows.h
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>

namespace desktop {

namespace {

// The encoder for PNG, a number that never changes.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
constexpr int kBytesPerPixel = 4;

struct DeleteBitmap {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmap>;

// Pixels as ScreenPicture keeps them.
BITMAPINFO FormatOf(int width, int height) {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;  // from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 8 * kBytesPerPixel;
  format.bmiHeader.biCompression = BI_RGB;
  return format;
}

}  // namespace

ScreenPicture ScreenPicture::Take() {
  ScreenPicture picture(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
  picture.CopyFromScreen({0, 0});
  return picture;
}

ScreenPicture ScreenPicture::OfWindow(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  POINT corner{0, 0};
  ClientToScreen(window, &corner);
  ScreenPicture picture(client.right, client.bottom);
  picture.CopyFromScreen(corner);
  return picture;
}

void ScreenPicture::CopyFromScreen(POINT corner) {
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const BitmapHandle copy(CreateCompatibleBitmap(screen, width(), height()));
  const HGDIOBJ before = SelectObject(memory, copy.get());
  BitBlt(memory, 0, 0, width(), height(), screen, corner.x, corner.y, SRCCOPY);
  SelectObject(memory, before);
  BITMAPINFO format = FormatOf(width(), height());
  GetDIBits(screen, copy.get(), 0, static_cast<UINT>(height()), pixels().data(), &format, DIB_RGB_COLORS);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

bool ScreenPicture::Write(const std::filesystem::path& file) const {
  ULONG_PTR graphics = 0;
  const Gdiplus::GdiplusStartupInput version1;
  if (Gdiplus::GdiplusStartup(&graphics, &version1, nullptr) != Gdiplus::Ok) return false;
  bool written = false;
  {
    std::vector<std::uint32_t> own = pixels();  // GDI+ asks for some that it may change
    Gdiplus::Bitmap picture(width(), height(), width() * kBytesPerPixel, PixelFormat32bppRGB,
                            reinterpret_cast<BYTE*>(own.data()));
    written = picture.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
  }
  Gdiplus::GdiplusShutdown(graphics);
  return written;
}

}  // namespace desktop
