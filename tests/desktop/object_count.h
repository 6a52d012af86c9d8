#pragma once

// What a process holds, to be compared before and after something that must give all back.

namespace desktop {

/// Of GDI: bitmaps, device contexts, pens and the like.
int CountGdiObjects();
/// Blocks on the process's heaps, where GDI+ keeps its own objects.
int CountHeapBlocks();

}  // namespace desktop
