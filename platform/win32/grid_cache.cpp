#include "platform/win32/grid_cache.h"

#include <algorithm>
#include <utility>

namespace win32 {

MemoryBitmap::MemoryBitmap(HDC model, int width, int height)
    : dc(CreateCompatibleDC(model)), bitmap(CreateCompatibleBitmap(model, width, height)) {
  SelectObject(dc, bitmap);
}

MemoryBitmap::~MemoryBitmap() {
  // Still selected: it goes with the context.
  DeleteObject(bitmap);
  DeleteDC(dc);
}

const GridBitmap* GridCache::Find(std::string_view key) const {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [key](const auto& grid) { return grid->key == key; });
  return found != entries_.end() ? found->get() : nullptr;
}

const GridBitmap& GridCache::Add(std::unique_ptr<GridBitmap> grid) {
  return *entries_.emplace_back(std::move(grid));
}

}  // namespace win32
