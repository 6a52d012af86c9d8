#pragma once

#include <memory>

#include "platform/win32/windows_headers.h"

namespace win32 {

/// The picture in the main window's corner. Lives between the start and the end of GDI+.
class Logo {
 public:
  Logo();
  ~Logo();
  Logo(const Logo&) = delete;
  Logo& operator=(const Logo&) = delete;

  /// There is none afterwards if the resource cannot be read.
  void Load();
  void Delete();
  /// Nothing without a picture.
  void Paint(HDC target, const RECT& place) const;

 private:
  struct Picture;
  std::unique_ptr<Picture> picture_;
};

}  // namespace win32
