#include "tests/support/heap_count.h"

#include <cstddef>
#include <cstdlib>
#include <new>

std::atomic<std::int64_t> heap_count::blocks = 0;
std::atomic<std::int64_t> heap_count::bytes = 0;
std::atomic<std::int64_t> heap_count::mostBytes = 0;
std::atomic<std::int64_t> heap_count::allocations = 0;
std::atomic<std::int64_t> heap_count::failingAllocation = 0;

namespace {

// What allocators take for themselves, and the room to remember the size in.
constexpr std::size_t kHeadBytes = 16;

void* Take(std::size_t size) noexcept {
  if (++heap_count::allocations == heap_count::failingAllocation) return nullptr;
  auto* const head = static_cast<std::size_t*>(std::malloc(size + kHeadBytes));
  if (head == nullptr) return nullptr;
  *head = size + kHeadBytes;
  ++heap_count::blocks;
  const std::int64_t now = heap_count::bytes += static_cast<std::int64_t>(*head);
  std::int64_t most = heap_count::mostBytes;
  while (most < now && !heap_count::mostBytes.compare_exchange_weak(most, now)) {
  }
  return reinterpret_cast<char*>(head) + kHeadBytes;
}

void* TakeOrThrow(std::size_t size) {
  void* const block = Take(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void GiveBack(void* block) noexcept {
  if (block == nullptr) return;
  auto* const head = reinterpret_cast<std::size_t*>(static_cast<char*>(block) - kHeadBytes);
  --heap_count::blocks;
  heap_count::bytes -= static_cast<std::int64_t>(*head);
  std::free(head);
}

}  // namespace

void* operator new(std::size_t size) {
  return TakeOrThrow(size);
}
void* operator new[](std::size_t size) {
  return TakeOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size);
}
void operator delete(void* block) noexcept {
  GiveBack(block);
}
void operator delete[](void* block) noexcept {
  GiveBack(block);
}
void operator delete(void* block, std::size_t) noexcept {
  GiveBack(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  GiveBack(block);
}
