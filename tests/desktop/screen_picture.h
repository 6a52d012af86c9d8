#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "chart/canvas.h"
#include "chart/chart_layout.h"
#include "platform/win32/windows_headers.h"

namespace desktop {

/// What the screen showed at one moment.
class ScreenPicture {
 public:
  static ScreenPicture Take();
  /// The part that a window's client area covers, whoever owns it.
  static ScreenPicture OfWindow(HWND window);

  /// Black outside the picture.
  UX::Color At(int x, int y) const;
  /// How many pixels of an area have a colour.
  int Count(const UX::Rect& area, UX::Color color) const;
  /// How many pixels of an area differ from those of another picture of the same screen.
  int CountDifferences(const UX::Rect& area, const ScreenPicture& other) const;
  /// Writes it as a PNG file.
  bool Write(const std::filesystem::path& file) const;

 private:
  ScreenPicture(int width, int height);
  void CopyFromScreen(POINT corner);

  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;  // 0x00RRGGBB, row by row from the top
};

}  // namespace desktop
