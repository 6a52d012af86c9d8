#pragma once

// Pictures in memory that are put into a window by BitBlt, and those of them that are kept. User interface
// thread.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/windows_headers.h"

namespace win32 {

/// A bitmap selected into a device context of its own.
struct MemoryBitmap {
  /// Makes a bitmap of the kind that `model` shows; sizes in pixels.
  MemoryBitmap(HDC model, int width, int height);
  ~MemoryBitmap();
  MemoryBitmap(const MemoryBitmap&) = delete;
  MemoryBitmap& operator=(const MemoryBitmap&) = delete;

  HDC dc;
  HBITMAP bitmap;
};

/// A lane's empty grid over the whole day.
struct GridBitmap : MemoryBitmap {
  GridBitmap(std::string_view key_, HDC model, int width, int height)
      : MemoryBitmap(model, width, height), key(key_) {}

  std::string key;
};

class GridCache {
 public:
  /// The entry of exactly this key, or null.
  const GridBitmap* Find(std::string_view key) const;
  const GridBitmap& Add(std::unique_ptr<GridBitmap> grid);
  /// Destroys the entries.
  void Clear() { entries_.clear(); }

 private:
  std::vector<std::unique_ptr<GridBitmap>> entries_;  // in the order in which they were made
};

}  // namespace win32
