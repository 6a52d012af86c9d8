#pragma once

#include <filesystem>

#include "platform/win32/windows_headers.h"
#include "tests/support/pixel_picture.h"

namespace desktop {

/// What the screen showed at one moment.
class ScreenPicture final : public PixelPicture {
 public:
  static ScreenPicture Take();
  /// The part that a window's client area covers, whoever owns it.
  static ScreenPicture OfWindow(HWND window);

  /// Writes it as a PNG file.
  bool Write(const std::filesystem::path& file) const;

 private:
  using PixelPicture::PixelPicture;
  void CopyFromScreen(POINT corner);
};

}  // namespace desktop
