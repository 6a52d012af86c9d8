#pragma once

#include <cstdint>
#include <vector>

#include "chart/chart_layout.h"
#include "platform/win32/windows_headers.h"

namespace desktop {

/// What a window of this process shows.
class WindowPicture {
 public:
  WindowPicture() = default;
  explicit WindowPicture(HWND window);

  int width() const { return width_; }
  int height() const { return height_; }
  /// 0xRRGGBB; all ones outside the picture.
  std::uint32_t At(int x, int y) const;
  /// Pixels of a colour within an area.
  int Count(std::uint32_t color, const UX::Rect& area) const;
  /// The smallest rectangle that holds all pixels of a colour; without size if there is none.
  UX::Rect Bounds(std::uint32_t color) const;

  friend bool operator==(const WindowPicture&, const WindowPicture&) = default;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint32_t> pixels_;  // 0x00RRGGBB, row by row from the top
};

}  // namespace desktop
