#pragma once

// A picture of a screen, pixel by pixel.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "chart/canvas.h"
#include "common/geometry.h"

class PixelPicture {
 public:
  /// Black.
  PixelPicture(int width, int height)
      : width_(width),
        height_(height),
        pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

  int width() const { return width_; }
  int height() const { return height_; }
  /// 0x00RRGGBB, row by row from the top.
  std::vector<std::uint32_t>& pixels() { return pixels_; }
  const std::vector<std::uint32_t>& pixels() const { return pixels_; }

  /// Black outside the picture.
  UX::Color At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return {};
    const std::uint32_t pixel =
        pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)];
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
  }
  /// How many pixels of an area have a colour.
  int Count(const Rect& area, UX::Color color) const {
    return CountIf(area, [&](int x, int y) { return At(x, y) == color; });
  }
  /// How many pixels of an area differ from those of another picture of the same screen.
  int CountDifferences(const Rect& area, const PixelPicture& other) const {
    return CountIf(area, [&](int x, int y) { return !(At(x, y) == other.At(x, y)); });
  }

 private:
  template <class IsSo>
  static int CountIf(const Rect& area, const IsSo& isSo) {
    int found = 0;
    for (int y = area.y; y < area.y + area.height; ++y) {
      for (int x = area.x; x < area.x + area.width; ++x) found += isSo(x, y) ? 1 : 0;
    }
    return found;
  }

  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;
};
