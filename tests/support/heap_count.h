#pragma once

// Counts what a whole process holds on the heap. It takes the place of operator new, so a test that links it
// is a program of its own.

#include <atomic>
#include <cstdint>

namespace heap_count {

/// Blocks that are allocated now, and their bytes, with what an allocator takes for itself.
extern std::atomic<std::int64_t> blocks;
extern std::atomic<std::int64_t> bytes;
/// The most that `bytes` has been since this was set.
extern std::atomic<std::int64_t> mostBytes;
/// Blocks that were ever allocated.
extern std::atomic<std::int64_t> allocations;
/// There is no memory for the block with this number, as `allocations` counts; 0: there is for all.
extern std::atomic<std::int64_t> failingAllocation;

}  // namespace heap_count
