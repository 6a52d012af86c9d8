#include "tests/desktop/window_picture.h"

#include <algorithm>
#include <cstddef>

namespace desktop {

WindowPicture::WindowPicture(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  width_ = client.right;
  height_ = client.bottom;
  if (width_ <= 0 || height_ <= 0) return;
  pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC source = GetDC(window);
  const HDC memory = CreateCompatibleDC(source);
  const HBITMAP copy = CreateCompatibleBitmap(source, width_, height_);
  const HGDIOBJ before = SelectObject(memory, copy);
  BitBlt(memory, 0, 0, width_, height_, source, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  GetDIBits(memory, copy, 0, static_cast<UINT>(height_), pixels_.data(), &format, DIB_RGB_COLORS);
  DeleteObject(copy);
  DeleteDC(memory);
  ReleaseDC(window, source);
  for (std::uint32_t& pixel : pixels_) pixel &= 0x00FFFFFF;  // the fourth byte means nothing
}

std::uint32_t WindowPicture::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0xFFFFFFFF;
  return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                 static_cast<std::size_t>(x)];
}

int WindowPicture::Count(std::uint32_t color, const UX::Rect& area) const {
  int count = 0;
  for (int y = area.y; y < area.y + area.height; ++y) {
    for (int x = area.x; x < area.x + area.width; ++x) count += At(x, y) == color ? 1 : 0;
  }
  return count;
}

UX::Rect WindowPicture::Bounds(std::uint32_t color) const {
  int left = width_;
  int top = height_;
  int right = -1;
  int bottom = -1;
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      if (At(x, y) != color) continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = std::max(bottom, y);
    }
  }
  return right < 0 ? UX::Rect{} : UX::Rect{left, top, right - left + 1, bottom - top + 1};
}

}  // namespace desktop
