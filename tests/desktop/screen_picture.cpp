#include "tests/desktop/screen_picture.h"

#include <memory>
#include <type_traits>

#include "platform/win32/windows_headers.h"
// after windows.h
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>

namespace desktop {

namespace {

// The encoder for PNG, a number that never changes.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

struct DeleteBitmap {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmap>;

BitmapHandle CopyScreen() {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  BitmapHandle bitmap(CreateCompatibleBitmap(screen, width, height));
  const HGDIOBJ before = SelectObject(memory, bitmap.get());
  BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

}  // namespace

bool WriteScreenPicture(const std::filesystem::path& file) {
  ULONG_PTR graphics = 0;
  const Gdiplus::GdiplusStartupInput version1;
  if (Gdiplus::GdiplusStartup(&graphics, &version1, nullptr) != Gdiplus::Ok) return false;
  bool written = false;
  {
    const BitmapHandle screen = CopyScreen();
    Gdiplus::Bitmap picture(screen.get(), nullptr);
    written = picture.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
  }
  Gdiplus::GdiplusShutdown(graphics);
  return written;
}

}  // namespace desktop
