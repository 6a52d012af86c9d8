#pragma once

// Memory for many small blocks that are made together, as the nodes of a document are: cut off one after the
// other from slabs, and released one by one in any order.

#include <cstddef>
#include <new>

namespace ovk {

// The beginning of a slab. In front of every block stands a pointer to its slab, null for a block from no
// pool.
struct pool_slab {
  size_t holders;  // blocks that were not released yet, and the pool while it cuts from this slab
};

/// Blocks are aligned as pointers are. They may outlive the pool; their slab goes with the last of them. A
/// pool and all blocks from it belong to one thread at a time. Running out of memory raises xout_of_memory.
class pool {
 public:
  pool() = default;
  pool(const pool&) = delete;
  pool& operator=(const pool&) = delete;
  ~pool() { leave_slab(); }

  /// A block of at least `size` bytes, to be given back by release().
  void* take(size_t size) {
    const size_t room = block_head + (size + block_head - 1) / block_head * block_head;
    if (room > static_cast<size_t>(end_ - next_) && !enter_slab(room)) return take_large(size);
    void* const head = next_;
    next_ += room;
    ++slab_->holders;
    return put_head(head, slab_);
  }

  /// Bytes that this pool has asked for since it was made, given back or not.
  size_t bytes() const { return bytes_; }

  /// A block from no pool, which belongs to no thread.
  static void* take_alone(size_t size);

  /// Takes back a block, whether it is from a pool or not. Not null.
  static void release(void* block) noexcept {
    void* const head = static_cast<char*>(block) - block_head;
    pool_slab* const slab = *static_cast<pool_slab**>(head);
    if (slab == nullptr) {
      ::operator delete(head);
    } else {
      let_go(slab);
    }
  }

 private:
  static constexpr size_t block_head = sizeof(void*);

  // Writes the pointer to the slab; the block begins behind it.
  static void* put_head(void* head, pool_slab* slab) { return ::new (head) pool_slab*(slab) + 1; }
  static void let_go(pool_slab* slab) noexcept {
    if (--slab->holders == 0) ::operator delete(slab);
  }
  void* take_large(size_t size);
  // A new slab with at least `room`; false if the block is too large to share one.
  bool enter_slab(size_t room);
  void leave_slab() noexcept {
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): the analyzer does not follow the count
    if (slab_ != nullptr) let_go(slab_);
  }

  pool_slab* slab_ = nullptr;
  char* next_ = nullptr;
  char* end_ = nullptr;
  size_t slab_size_ = 1024;
  size_t bytes_ = 0;
};

}  // namespace ovk
