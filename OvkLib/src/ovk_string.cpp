#include "OvkLib/src/ovk_string.h"

#include <algorithm>
#include <functional>

#include "OvkLib/src/ovk_exception.h"

namespace ovk {

template <class Char>
Char* basic_string<Char>::allocate(std::int32_t capacity, pool* from) {
  const std::size_t bytes = (static_cast<std::size_t>(capacity) + 2) * sizeof(Char);
  Char* block = static_cast<Char*>(from != nullptr ? from->take(bytes) : pool::take_alone(bytes));
  block[0] = kShareable;
  return block;
}

template <class Char>
std::int32_t basic_string<Char>::grown(std::int32_t needed) const {
  const std::int64_t larger = static_cast<std::int64_t>(capacity_) * 3 / 2;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(larger, needed, max_length));
}

template <class Char>
void basic_string<Char>::adopt(Char* block, std::int32_t capacity) noexcept {
  heap_ = {block, this, this};
  capacity_ = capacity;
}

template <class Char>
bool basic_string<Char>::points_inside(const Char* text) const {
  const std::less_equal<> not_after;
  return not_after(c_str(), text) && not_after(text, c_str() + length_);
}

// The slow half of prepare(): the text has to leave a block that is shared or too small.
template <class Char>
Char* basic_string<Char>::relocate(std::int32_t needed, pool* from) {
  checked(static_cast<std::size_t>(needed));
  // Leaving a shared block asks for what is needed only: often it is a copy that will not change again.
  const std::int32_t capacity = needed > capacity_ ? grown(needed) : std::max(needed, length_);
  if (capacity <= inline_capacity) {
    // Only a shared block is given up for the inline text, and so the old text outlives the release.
    const Char* old_text = c_str();
    release();
    std::char_traits<Char>::copy(inline_, old_text, static_cast<std::size_t>(length_) + 1);
    capacity_ = inline_capacity;
    return inline_;
  }
  Char* block = allocate(capacity, from);
  std::char_traits<Char>::copy(block + 1, c_str(), static_cast<std::size_t>(length_) + 1);
  release();
  adopt(block, capacity);
  return block + 1;
}

template <class Char>
void basic_string<Char>::assign(const Char* text, std::int32_t count) {
  count = std::max(count, 0);
  if (count > 0 && points_inside(text)) {
    basic_string(view_type(text, static_cast<std::size_t>(count))).swap(*this);
    return;
  }
  // Emptied first: prepare() then carries no old text over.
  clear();
  Char* place = prepare(count);
  if (count > 0) std::char_traits<Char>::copy(place, text, static_cast<std::size_t>(count));
  set_length(place, count);
}

template <class Char>
void basic_string<Char>::resize(std::int32_t count, Char fill) {
  count = std::max(count, 0);
  Char* text = prepare(std::max(count, length_));
  if (count > length_) {
    std::char_traits<Char>::assign(text + length_, static_cast<std::size_t>(count - length_), fill);
  }
  set_length(text, count);
}

template <class Char>
void basic_string<Char>::append_slowly(const Char* text, std::int32_t count) {
  if (count <= 0) return;
  const std::int32_t length = checked_sum(length_, count);
  if (points_inside(text)) {
    const basic_string held(text, count);
    append(held.c_str(), count);
    return;
  }
  Char* place = prepare(length);
  std::char_traits<Char>::copy(place + length_, text, static_cast<std::size_t>(count));
  set_length(place, length);
}

template <class Char>
void basic_string<Char>::replace(std::int32_t position, std::int32_t count, const Char* text,
                                 std::int32_t new_count) {
  position = std::clamp(position, 0, length_);
  count = std::clamp(count, 0, length_ - position);
  new_count = std::max(new_count, 0);
  if (new_count > 0 && points_inside(text)) {
    const basic_string held(text, new_count);
    replace(position, count, held.c_str(), new_count);
    return;
  }
  const std::int32_t length = checked_sum(length_ - count, new_count);
  Char* place = prepare(std::max(length, length_)) + position;
  const std::int32_t tail = length_ - position - count;
  std::char_traits<Char>::move(place + new_count, place + count, static_cast<std::size_t>(tail));
  if (new_count > 0) std::char_traits<Char>::copy(place, text, static_cast<std::size_t>(new_count));
  set_length(place - position, length);
}

template <class Char>
void basic_string<Char>::insert_zeros(std::int32_t count) {
  if (count <= 0) return;
  const std::int32_t position = std::min(length_, 1);
  const std::int32_t length = checked_sum(length_, count);
  Char* place = prepare(length) + position;
  std::char_traits<Char>::move(place + count, place, static_cast<std::size_t>(length_ - position));
  std::char_traits<Char>::assign(place, static_cast<std::size_t>(count), Char('0'));
  set_length(place - position, length);
}

template <class Char>
std::int32_t basic_string<Char>::find(const Char* pattern, std::int32_t from) const {
  const auto start = static_cast<std::size_t>(std::clamp(from, 0, length_));
  const std::size_t found = view().find(pattern, start);
  return found == view_type::npos ? not_found : static_cast<std::int32_t>(found);
}

template class basic_string<char>;
template class basic_string<char16_t>;

}  // namespace ovk
