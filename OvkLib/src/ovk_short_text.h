#pragma once

// memmove and memcmp for text that is mostly short: up to 16 bytes go through registers, without a call and
// with one branch for a whole range of lengths. The first and the last word of the text are taken, which may
// overlap.

#include <cstddef>
#include <cstdint>
#include <cstring>

// g++ warns of branches that are not taken where it knows the length.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
#pragma GCC diagnostic ignored "-Wstringop-overread"
#pragma GCC diagnostic ignored "-Wstringop-overflow"
#endif

namespace ovk {

namespace detail {

template <class Word>
Word load(const char* from) {
  Word word;
  std::memcpy(&word, from, sizeof(word));
  return word;
}

template <class Word>
void move_ends(char* to, const char* from, std::size_t bytes) {
  const Word first = load<Word>(from);
  const Word last = load<Word>(from + bytes - sizeof(Word));
  std::memcpy(to, &first, sizeof(Word));
  std::memcpy(to + bytes - sizeof(Word), &last, sizeof(Word));
}

template <class Word>
bool same_ends(const char* a, const char* b, std::size_t bytes) {
  return load<Word>(a) == load<Word>(b) &&
         load<Word>(a + bytes - sizeof(Word)) == load<Word>(b + bytes - sizeof(Word));
}

}  // namespace detail

/// memmove.
inline void move_bytes(void* to, const void* from, std::size_t bytes) {
  char* const target = static_cast<char*>(to);
  const char* const source = static_cast<const char*>(from);
  if (bytes > 16) {
    std::memmove(to, from, bytes);
  } else if (bytes >= 8) {
    detail::move_ends<std::uint64_t>(target, source, bytes);
  } else if (bytes >= 4) {
    detail::move_ends<std::uint32_t>(target, source, bytes);
  } else if (bytes > 0) {
    const char first = source[0];
    const char middle = source[bytes / 2];
    const char last = source[bytes - 1];
    target[0] = first;
    target[bytes / 2] = middle;
    target[bytes - 1] = last;
  }
}

/// Whether memcmp finds no difference.
inline bool same_bytes(const void* a, const void* b, std::size_t bytes) {
  const char* const one = static_cast<const char*>(a);
  const char* const other = static_cast<const char*>(b);
  if (bytes > 16) return std::memcmp(a, b, bytes) == 0;
  if (bytes >= 8) return detail::same_ends<std::uint64_t>(one, other, bytes);
  if (bytes >= 4) return detail::same_ends<std::uint32_t>(one, other, bytes);
  return bytes == 0 ||
         (one[0] == other[0] && one[bytes / 2] == other[bytes / 2] && one[bytes - 1] == other[bytes - 1]);
}

}  // namespace ovk

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif
