#include "tests/desktop/object_count.h"

#include <cstdint>
#include <vector>

#include "platform/win32/windows_headers.h"

namespace desktop {

int CountGdiObjects() {
  // Where the system does not count, it takes the lower half of a handle, its place in the table of all
  // handles, for the whole.
  int count = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  if (count != 0) return count;
  for (std::uintptr_t place = 1; place <= 0xFFFF; ++place) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0) ++count;
  }
  return count;
}

int CountHeapBlocks() {
  std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
  heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
  int count = 0;
  for (const HANDLE heap : heaps) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry)) count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
    HeapUnlock(heap);
  }
  return count;
}

}  // namespace desktop
