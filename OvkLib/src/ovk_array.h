#pragma once

// A growing array with signed 32-bit count and capacity: two pointers' room where it is empty, and the
// library's own exception where memory ends.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "OvkLib/src/ovk_exception.h"
#include "OvkLib/src/ovk_pool.h"

namespace ovk {

/// Values of T in one block. Adding a value may move the others: a reference to one is good until the next is
/// added. Indices are not checked. Raises xout_of_memory when a block cannot be had.
template <class T>
class array {
  static_assert(std::is_nothrow_move_constructible_v<T>);
  static_assert(alignof(T) <= alignof(void*));  // what a pool gives

 public:
  array() noexcept = default;
  array(const array& other) : array() {
    reserve(other.count_);
    for (const T& item : other) emplace_back(item);
  }
  array(array&& other) noexcept { swap(other); }
  array& operator=(array other) noexcept {
    swap(other);
    return *this;
  }
  /// The items go from the last to the first.
  ~array() {
    clear();
    release();
  }

  std::int32_t count() const noexcept { return count_; }
  std::int32_t capacity() const noexcept { return capacity_; }
  bool empty() const noexcept { return count_ == 0; }

  T& operator[](std::int32_t index) noexcept { return items_[index]; }
  const T& operator[](std::int32_t index) const noexcept { return items_[index]; }
  T& back() noexcept { return items_[count_ - 1]; }
  const T& back() const noexcept { return items_[count_ - 1]; }

  T* begin() noexcept { return items_; }
  T* end() noexcept { return items_ + count_; }
  const T* begin() const noexcept { return items_; }
  const T* end() const noexcept { return items_ + count_; }

  /// The arguments must not refer into the array itself.
  template <class... Arguments>
  T& emplace_back(Arguments&&... arguments) {
    if (count_ == capacity_) [[unlikely]]
      grow_to(larger_capacity(), nullptr);
    T* item = ::new (static_cast<void*>(items_ + count_)) T(std::forward<Arguments>(arguments)...);
    ++count_;
    return *item;
  }
  void push_back(T item) { emplace_back(std::move(item)); }

  /// Makes room for one more, if need be with memory from a pool. What the array grows into otherwise is from
  /// none.
  void make_room(pool& from) {
    if (count_ == capacity_) [[unlikely]]
      grow_to(larger_capacity(), &from);
  }

  void pop_back() noexcept { std::destroy_at(items_ + --count_); }

  void clear() noexcept {
    while (count_ > 0) pop_back();
  }

  /// Makes room for `wanted` items in all.
  void reserve(std::int32_t wanted) {
    if (wanted > capacity_) grow_to(wanted, nullptr);
  }

  void swap(array& other) noexcept {
    std::swap(items_, other.items_);
    std::swap(count_, other.count_);
    std::swap(capacity_, other.capacity_);
  }

 private:
  static constexpr std::int32_t kFirstCapacity = 4;
  static constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

  std::int32_t larger_capacity() const {
    if (capacity_ == kMost) throw_out_of_memory();
    return capacity_ == 0 ? kFirstCapacity : capacity_ > kMost / 2 ? kMost : capacity_ * 2;
  }

  void grow_to(std::int32_t capacity, pool* from) {
    const std::size_t bytes =
        sizeof(T) * static_cast<std::size_t>(capacity);  // NOLINT(bugprone-sizeof-expression)
    T* const items = static_cast<T*>(from != nullptr ? from->take(bytes) : pool::take_alone(bytes));
    std::uninitialized_move_n(items_, count_, items);
    std::destroy_n(items_, count_);
    release();
    items_ = items;
    capacity_ = capacity;
  }

  void release() noexcept {
    if (items_ != nullptr) pool::release(items_);
  }

  T* items_ = nullptr;
  std::int32_t count_ = 0;
  std::int32_t capacity_ = 0;
};

}  // namespace ovk
