#include "OvkLib/src/ovk_pool.h"

#include <algorithm>

#include "OvkLib/src/ovk_exception.h"

namespace ovk {

namespace {

// Small enough that one block that stays does not keep much, and that allocators do not ask the system for
// each.
constexpr size_t kLargestSlab = size_t{32} * 1024;

void* Allocate(size_t size) {
  void* const memory = ::operator new(size, std::nothrow);
  if (memory == nullptr) throw_out_of_memory();
  return memory;
}

}  // namespace

void* pool::take_alone(size_t size) {
  return put_head(Allocate(block_head + size), nullptr);
}

void* pool::take_large(size_t size) {
  bytes_ += block_head + size;
  return take_alone(size);
}

bool pool::enter_slab(size_t room) {
  // A slab that one block would fill is no use, and what is left of the present one would be lost.
  if (room > slab_size_ / 4) return false;
  char* const memory = static_cast<char*>(Allocate(slab_size_));
  leave_slab();
  bytes_ += slab_size_;
  slab_ = ::new (memory) pool_slab{1};
  next_ = memory + sizeof(pool_slab);
  end_ = memory + slab_size_;
  slab_size_ = std::min(slab_size_ * 2, kLargestSlab);
  return true;
}

}  // namespace ovk
