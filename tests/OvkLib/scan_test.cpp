// What stands in for memmove, memcmp and a search byte by byte, held against them.

#include "OvkLib/src/ovk_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_short_text.h"

namespace {

TEST(ShortText, MovesLikeMemmove) {
  const std::string bytes = "0123456789abcdefghijABCDEFGHIJ!?";
  for (size_t length = 0; length <= 20; ++length) {
    for (size_t from = 0; from < 12; ++from) {
      for (size_t to = 0; to < 12; ++to) {
        std::string moved = bytes;
        std::string expected = bytes;
        ovk::move_bytes(moved.data() + to, moved.data() + from, length);
        std::memmove(expected.data() + to, expected.data() + from, length);
        ASSERT_EQ(moved, expected) << length << " bytes from " << from << " to " << to;
      }
    }
  }
}

TEST(ShortText, ComparesLikeMemcmp) {
  const std::string bytes = "0123456789abcdefghij";
  for (size_t length = 0; length <= bytes.size(); ++length) {
    ASSERT_TRUE(ovk::same_bytes(bytes.data(), std::string(bytes).data(), length));
    for (size_t place = 0; place < length; ++place) {
      std::string other = bytes;
      other[place] ^= 1;
      ASSERT_FALSE(ovk::same_bytes(bytes.data(), other.data(), length)) << place << " of " << length;
    }
  }
}

// The first byte of `wanted`, or the end.
size_t PlainFind(std::string_view text, std::string_view wanted) {
  return std::min(text.find_first_of(wanted), text.size());
}

TEST(Scan, FindsEitherOfTwoBytesAtAnyPlaceOfAnyLength) {
  for (size_t length = 0; length < 50; ++length) {
    for (size_t place = 0; place <= length; ++place) {
      for (const char byte : std::string_view("<&")) {
        std::string text(length, 'x');
        if (place < length) text[place] = byte;
        if (place + 3 < length) text[place + 3] = '<';
        const char* const found = ovk::find_either('<', '&', text.data(), text.data() + length);
        ASSERT_EQ(static_cast<size_t>(found - text.data()), PlainFind(text, "<&")) << text;
      }
    }
  }
}

// Every byte, where sixteen are looked at together and where they are looked at alone.
TEST(Scan, FindsTheFiveBytesToEscapeAndNoOthers) {
  for (const size_t length : {1U, 15U, 16U, 40U}) {
    for (int byte = 0; byte < 256; ++byte) {
      for (const size_t place : {size_t{0}, length / 2, length - 1}) {
        std::string text(length, 'x');
        text[place] = static_cast<char>(byte);
        const char* const found = ovk::find_escaped(text.data(), text.data() + length);
        ASSERT_EQ(static_cast<size_t>(found - text.data()), PlainFind(text, "\"&'<>"))
            << byte << " at " << place;
      }
    }
  }
}

TEST(Scan, LooksAtNothingBehindTheEnd) {
  const std::string text = "xxxxxxxxxxxxxxxxxxxx<";
  const char* const end = text.data() + 20;
  EXPECT_EQ(ovk::find_either('<', '&', text.data(), end), end);
  EXPECT_EQ(ovk::find_escaped(text.data(), end), end);
}

}  // namespace
