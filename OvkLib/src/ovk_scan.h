#pragma once

// Finding the next byte of markup in text, sixteen bytes at a time where the processor can.

#include <bit>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
#define OVK_SCAN_SSE2
#include <emmintrin.h>
#endif

namespace ovk {

#ifdef OVK_SCAN_SSE2
// Goes through the bytes sixteen at a time and asks `find` for each sixteen which of them are looked for.
// True, with `at` on the first of these; false, with `at` behind the last whole sixteen, if there is none.
template <class Find>
inline bool scan_sixteens(const char*& at, const char* const end, Find find) {
  for (; end - at >= 16; at += 16) {
    const __m128i found = find(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)));
    if (const auto mask = static_cast<unsigned>(_mm_movemask_epi8(found)); mask != 0) {
      at += std::countr_zero(mask);
      return true;
    }
  }
  return false;
}
#endif

/// The first `a` or `b` from `at` on, or `end`.
inline const char* find_either(char a, char b, const char* at, const char* const end) {
#ifdef OVK_SCAN_SSE2
  const __m128i all_a = _mm_set1_epi8(a);
  const __m128i all_b = _mm_set1_epi8(b);
  const auto find = [&](__m128i bytes) {
    return _mm_or_si128(_mm_cmpeq_epi8(bytes, all_a), _mm_cmpeq_epi8(bytes, all_b));
  };
  if (scan_sixteens(at, end, find)) return at;
#endif
  while (at != end && *at != a && *at != b) ++at;
  return at;
}

/// The first quotation mark, ampersand, apostrophe, less-than or greater-than sign from `at` on, or `end`.
inline const char* find_escaped(const char* at, const char* const end) {
#ifdef OVK_SCAN_SSE2
  // A quotation mark and an ampersand differ in one bit only, and so do the two signs.
  static_assert(('"' | 4) == '&' && ('<' | 2) == '>');
  const auto find = [](__m128i bytes) {
    const __m128i quotes = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(4)), _mm_set1_epi8('&'));
    const __m128i signs = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(2)), _mm_set1_epi8('>'));
    const __m128i apostrophes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\''));
    return _mm_or_si128(_mm_or_si128(quotes, signs), apostrophes);
  };
  if (scan_sixteens(at, end, find)) return at;
#endif
  constexpr auto bit = [](char c) { return std::uint64_t{1} << c; };
  constexpr std::uint64_t escaped = bit('"') | bit('&') | bit('\'') | bit('<') | bit('>');
  while (at != end && ((*at & 0xC0) != 0 || (escaped >> *at & 1) == 0)) ++at;
  return at;
}

}  // namespace ovk

#undef OVK_SCAN_SSE2
