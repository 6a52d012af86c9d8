#pragma once

// The library's text: `ovk::string` holds 8-bit and `ovk::wstring` 16-bit characters. Sixteen characters
// stand in the object itself; longer text stands in a heap block that copies share until one of them changes.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "OvkLib/src/ovk_pool.h"
#include "OvkLib/src/ovk_short_text.h"

namespace ovk {

[[noreturn]] void throw_out_of_memory();

/// A terminated text that may contain terminators. Lengths, positions and capacities are signed 32-bit and
/// count characters without the terminator; a negative one counts as 0, and a text that would be longer than
/// `max_length` raises ovk::xout_of_memory, as running out of memory does.
///
/// Copies of a text of more than `inline_capacity` characters share one block, and so copying changes the
/// source: strings that may share a block belong to one thread, and `const` does not make them safe to read
/// from two.
///
/// Pointers from c_str() and views are valid until the next change of this string.
template <class Char>
class basic_string {
 public:
  using view_type = std::basic_string_view<Char>;

  static constexpr std::int32_t inline_capacity = 16;
  static constexpr std::int32_t max_length =
      0x7FFFFFFF - 2;  // the block's two further characters still count
  static constexpr std::int32_t not_found = 0x7FFFFFFF;

  basic_string() noexcept { set_empty(); }
  basic_string(const Char* text) : basic_string(view_type(text)) {}
  basic_string(const Char* text, std::int32_t length) {
    set_empty();
    assign(text, length);
  }
  explicit basic_string(view_type text) {
    if (!place_inline(text)) append(text);
  }
  /// A text that is too long to stand in the object takes its block from a pool, as in append().
  basic_string(view_type text, pool& from) {
    if (!place_inline(text)) append(text, from);
  }
  basic_string(const basic_string& other) { copy_from(other); }
  basic_string(basic_string&& other) noexcept { take_from(other); }
  ~basic_string() { release(); }

  basic_string& operator=(const basic_string& other) {
    if (this != &other) {
      release();
      set_empty();
      copy_from(other);
    }
    return *this;
  }
  basic_string& operator=(basic_string&& other) noexcept {
    if (this != &other) {
      release();
      take_from(other);
    }
    return *this;
  }

  std::int32_t length() const { return length_; }
  std::int32_t capacity() const { return capacity_; }
  bool empty() const { return length_ == 0; }
  const Char* c_str() const { return is_inline() ? inline_ : heap_.block + 1; }
  view_type view() const { return {c_str(), static_cast<std::size_t>(length_)}; }

  /// The text for writing in place, `length()` characters. Until the next changing call on this string its
  /// block is not shared: a copy made in the meantime copies the text.
  Char* writable() {
    Char* text = prepare(length_);
    if (!is_inline()) heap_.block[0] = kHeldForWriting;
    return text;
  }

  /// `text` may point into this string, here and wherever a pointer is taken.
  void assign(const Char* text, std::int32_t count);
  /// Empties the text. A block of its own is kept for what comes next, a shared one is left to the others.
  void clear() {
    if (is_inline() || alone()) {
      set_length(prepare(0), 0);
    } else {
      release();
      set_empty();
    }
  }
  /// Sets the length to `count`; new characters take `fill`.
  void resize(std::int32_t count, Char fill);
  /// Grows the capacity to at least `count`: to the larger of `count` and one and a half times the present
  /// one.
  void reserve(std::int32_t count) {
    if (count > capacity_) prepare(count);
  }
  void append(const Char* text, std::int32_t count) {
    if (count <= capacity_ - length_ && may_write()) {
      if (count <= 0) return;
      // Known before the move, which may write anywhere as far as the compiler can tell.
      const std::int32_t length = length_ + count;
      Char* place = prepare(length_);
      move_bytes(place + length_, text, static_cast<std::size_t>(count) * sizeof(Char));
      set_length(place, length);
    } else [[unlikely]] {
      append_slowly(text, count);
    }
  }
  void append(view_type text) { append(text.data(), checked(text.size())); }
  /// The same where the block, if the text needs another, comes from a pool, and the string then belongs to
  /// the pool's thread. `text` does not point into this string. What the text grows into otherwise is from no
  /// pool.
  void append(view_type text, pool& from) {
    const std::int32_t length = checked_sum(length_, checked(text.size()));
    if (length > capacity_) [[unlikely]]
      relocate(length, &from);
    append(text);
  }
  void push_back(Char c) {
    Char* text = prepare(length_ + 1);
    text[length_] = c;
    set_length(text, length_ + 1);
  }
  /// Puts `new_count` characters in place of `count` at `position`; both are clipped to the text.
  void replace(std::int32_t position, std::int32_t count, const Char* text, std::int32_t new_count);
  void erase(std::int32_t position, std::int32_t count) { replace(position, count, c_str(), 0); }
  /// Inserts `count` digits "0" behind the first character, or at the start of an empty text. For negative
  /// numbers: the sign stays in front.
  void insert_zeros(std::int32_t count);
  void swap(basic_string& other) noexcept {
    basic_string held(std::move(other));
    other = std::move(*this);
    *this = std::move(held);
  }

  /// Index of the first occurrence of the terminated `pattern` at or after `from`, which is clipped to the
  /// text; `not_found` if there is none. An empty pattern is found at `from`.
  std::int32_t find(const Char* pattern, std::int32_t from) const;

  friend bool operator==(const basic_string& a, const basic_string& b) { return a == b.view(); }
  friend bool operator==(const basic_string& a, view_type b) {
    const view_type own = a.view();
    return own.size() == b.size() && same_bytes(own.data(), b.data(), b.size() * sizeof(Char));
  }
  friend bool operator==(const basic_string& a, const Char* b) { return a == view_type(b); }

 private:
  // First character of a block: whether copies may share it.
  static constexpr Char kShareable = ' ';
  static constexpr Char kHeldForWriting = '!';

  // All strings on one block form a ring, a string alone on its block a ring of one: no count, and no memory
  // beside the block. Copying links a new member behind a constant one, hence mutable.
  struct heap_fields {
    Char* block;  // state, text, terminator: capacity + 2 characters
    mutable basic_string* prev;
    mutable basic_string* next;
  };

  bool is_inline() const { return capacity_ == inline_capacity; }
  bool alone() const { return heap_.next == this; }
  bool may_write() const { return is_inline() || alone(); }
  bool points_inside(const Char* text) const;

  /// Fills a new object. False if the text is too long to stand in it, which is then left empty.
  bool place_inline(view_type text) noexcept {
    if (text.size() > static_cast<std::size_t>(inline_capacity)) {
      set_empty();
      return false;
    }
    capacity_ = inline_capacity;
    move_bytes(inline_, text.data(), text.size() * sizeof(Char));
    set_length(inline_, static_cast<std::int32_t>(text.size()));
    return true;
  }
  void set_empty() noexcept {
    inline_[0] = Char();
    capacity_ = inline_capacity;
    length_ = 0;
  }
  void set_length(Char* text, std::int32_t length) {
    text[length] = Char();
    length_ = length;
  }

  /// The text, private to this string, open for sharing, with room for `needed` characters. All writing
  /// operations go through here.
  Char* prepare(std::int32_t needed) {
    if (needed <= capacity_) {
      if (is_inline()) return inline_;
      if (alone()) {
        heap_.block[0] = kShareable;
        return heap_.block + 1;
      }
    }
    return relocate(needed);
  }
  Char* relocate(std::int32_t needed, pool* from = nullptr);
  void append_slowly(const Char* text, std::int32_t count);
  std::int32_t grown(std::int32_t needed) const;
  /// Becomes the only string on a new block, without text.
  void adopt(Char* block, std::int32_t capacity) noexcept;

  static Char* allocate(std::int32_t capacity, pool* from);
  static std::int32_t checked(std::size_t length) {
    if (length > static_cast<std::size_t>(max_length)) [[unlikely]]
      throw_out_of_memory();
    return static_cast<std::int32_t>(length);
  }
  static std::int32_t checked_sum(std::int32_t length, std::int32_t more) {
    return checked(static_cast<std::size_t>(length) + static_cast<std::size_t>(more));
  }

  /// Expects an object without a text of its own, as all below but release().
  void copy_from(const basic_string& other) {
    if (other.is_inline()) {
      std::memcpy(inline_, other.inline_, sizeof(inline_));
      capacity_ = inline_capacity;
      length_ = other.length_;
    } else if (other.heap_.block[0] == kShareable) {
      join(other);
    } else {
      set_empty();
      assign(other.c_str(), other.length_);
    }
  }
  void join(const basic_string& other) noexcept {
    heap_ = {other.heap_.block, const_cast<basic_string*>(&other), other.heap_.next};
    heap_.next->heap_.prev = this;
    other.heap_.next = this;
    capacity_ = other.capacity_;
    length_ = other.length_;
  }
  /// Takes the place of `other` in its ring, and leaves it empty.
  void take_from(basic_string& other) noexcept {
    capacity_ = other.capacity_;
    length_ = other.length_;
    if (other.is_inline()) {
      std::memcpy(inline_, other.inline_, sizeof(inline_));
    } else if (other.alone()) {
      heap_ = {other.heap_.block, this, this};
    } else {
      heap_ = other.heap_;
      heap_.prev->heap_.next = this;
      heap_.next->heap_.prev = this;
    }
    other.set_empty();
  }
  void release() noexcept {
    if (is_inline()) return;
    if (alone()) {
      pool::release(heap_.block);
    } else {
      heap_.prev->heap_.next = heap_.next;
      heap_.next->heap_.prev = heap_.prev;
    }
  }

  union {
    Char inline_[inline_capacity + 1];
    heap_fields heap_;
  };
  std::int32_t capacity_;  // exactly inline_capacity: the text stands in the object
  std::int32_t length_;
};

using string = basic_string<char>;
using wstring = basic_string<char16_t>;

extern template class basic_string<char>;
extern template class basic_string<char16_t>;

}  // namespace ovk
