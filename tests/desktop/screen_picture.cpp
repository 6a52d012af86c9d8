#include "tests/desktop/screen_picture.h"

#include <cstddef>
#include <memory>
#include <type_traits>

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

ScreenPicture::ScreenPicture(int width, int height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

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
  const BitmapHandle copy(CreateCompatibleBitmap(screen, width_, height_));
  const HGDIOBJ before = SelectObject(memory, copy.get());
  BitBlt(memory, 0, 0, width_, height_, screen, corner.x, corner.y, SRCCOPY);
  SelectObject(memory, before);
  BITMAPINFO format = FormatOf(width_, height_);
  GetDIBits(screen, copy.get(), 0, static_cast<UINT>(height_), pixels_.data(), &format, DIB_RGB_COLORS);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

UX::Color ScreenPicture::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return {};
  const std::uint32_t pixel =
      pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)];
  return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
          static_cast<std::uint8_t>(pixel)};
}

int ScreenPicture::Count(const UX::Rect& area, UX::Color color) const {
  int found = 0;
  for (int y = area.y; y < area.y + area.height; ++y) {
    for (int x = area.x; x < area.x + area.width; ++x) found += At(x, y) == color ? 1 : 0;
  }
  return found;
}

int ScreenPicture::CountDifferences(const UX::Rect& area, const ScreenPicture& other) const {
  int found = 0;
  for (int y = area.y; y < area.y + area.height; ++y) {
    for (int x = area.x; x < area.x + area.width; ++x) found += At(x, y) == other.At(x, y) ? 0 : 1;
  }
  return found;
}

bool ScreenPicture::Write(const std::filesystem::path& file) const {
  ULONG_PTR graphics = 0;
  const Gdiplus::GdiplusStartupInput version1;
  if (Gdiplus::GdiplusStartup(&graphics, &version1, nullptr) != Gdiplus::Ok) return false;
  bool written = false;
  {
    std::vector<std::uint32_t> pixels = pixels_;  // GDI+ asks for some that it may change
    Gdiplus::Bitmap picture(width_, height_, width_ * kBytesPerPixel, PixelFormat32bppRGB,
                            reinterpret_cast<BYTE*>(pixels.data()));
    written = picture.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
  }
  Gdiplus::GdiplusShutdown(graphics);
  return written;
}

}  // namespace desktop
