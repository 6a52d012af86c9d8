// The memory below the XML tree: pools, and the arrays and strings that take it from them.

#include "OvkLib/src/ovk_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "OvkLib/src/ovk_array.h"
#include "OvkLib/src/ovk_string.h"

namespace {

using ovk::pool;

TEST(Pool, GivesBlocksOfTheirOwn) {
  pool from;
  std::mt19937 random(1);
  std::vector<std::pair<char*, size_t>> blocks;
  for (int i = 0; i < 2000; ++i) {
    const size_t size = i % 100 == 0 ? 20'000 : 1 + random() % 300;
    auto* block = static_cast<char*>(from.take(size));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % alignof(void*), 0U);
    std::memset(block, i % 256, size);
    blocks.emplace_back(block, size);
  }
  for (size_t i = 0; i < blocks.size(); ++i) {
    const auto [block, size] = blocks[i];
    const char expected = static_cast<char>(i % 256);
    ASSERT_TRUE(std::all_of(block, block + size, [expected](char c) { return c == expected; })) << i;
  }
  // In any order: a slab that went too early, or never, is found by the address sanitizer.
  std::shuffle(blocks.begin(), blocks.end(), random);
  for (const auto& [block, size] : blocks) pool::release(block);
}

TEST(Pool, BlocksOutliveThePool) {
  char* block = nullptr;
  {
    pool from;
    block = static_cast<char*>(from.take(5));
    pool::release(from.take(5));
  }
  std::memcpy(block, "fish", 5);
  EXPECT_STREQ(block, "fish");
  pool::release(block);
}

TEST(Pool, CountsTheBytesOfSlabsAndOfBlocksThatAreTooLargeForOne) {
  pool from;
  EXPECT_EQ(from.bytes(), 0U);
  pool::release(from.take(1));
  const size_t slab = from.bytes();
  EXPECT_GE(slab, 1000U);
  pool::release(from.take(1));
  EXPECT_EQ(from.bytes(), slab);
  pool::release(from.take(1'000'000));
  EXPECT_GE(from.bytes(), slab + 1'000'000);
}

TEST(Pool, ABlockMayBeFromNoPool) {
  auto* block = static_cast<char*>(pool::take_alone(5));
  std::memcpy(block, "fish", 5);
  pool::release(block);
}

TEST(Array, GrowsFromAPoolAndWithoutOne) {
  std::optional<pool> from;
  from.emplace();
  ovk::array<ovk::string> words;
  for (int i = 0; i < 6; ++i) {
    words.make_room(*from);
    words.push_back(ovk::string(std::to_string(i)));
  }
  from.reset();
  for (int i = 6; i < 100; ++i) words.emplace_back(std::string_view("a word of more than sixteen bytes"));
  EXPECT_EQ(words.count(), 100);
  EXPECT_GE(words.capacity(), 100);
  EXPECT_EQ(words[5], "5");
  EXPECT_EQ(words.back(), "a word of more than sixteen bytes");
}

TEST(Array, CopiesSwapsAndClears) {
  ovk::array<ovk::string> one;
  one.emplace_back("x");
  ovk::array<ovk::string> other = one;
  other.emplace_back("y");
  one.swap(other);
  EXPECT_EQ(one.count(), 2);
  EXPECT_EQ(other.count(), 1);
  one.pop_back();
  EXPECT_EQ(one.back(), "x");
  one.clear();
  EXPECT_TRUE(one.empty());
  other = one;
  EXPECT_TRUE(other.empty());
}

// Notes its number when it is destroyed.
struct Noted {
  Noted(int itsNumber, std::vector<int>& to) : number(itsNumber), gone(&to) {}
  Noted(const Noted&) = delete;
  Noted& operator=(const Noted&) = delete;
  ~Noted() { gone->push_back(number); }

  int number;
  std::vector<int>* gone;
};

TEST(Array, ItemsGoFromTheLastToTheFirst) {
  std::vector<int> gone;
  {
    ovk::array<std::unique_ptr<Noted>> items;
    for (int i = 0; i < 3; ++i) items.push_back(std::make_unique<Noted>(i, gone));
  }
  EXPECT_EQ(gone, (std::vector<int>{2, 1, 0}));
}

TEST(PooledString, TakesItsBlockFromAPoolAndSharesItAsAnyOther) {
  ovk::string kept;
  {
    pool from;
    const ovk::string text("a text of more than sixteen bytes", from);
    kept = text;
    EXPECT_EQ(kept.c_str(), text.c_str());
  }
  kept.append(std::string_view(", and more than the block holds, and then some more of it"));
  EXPECT_EQ(kept,
            "a text of more than sixteen bytes, and more than the block holds, and then some more of it");
}

TEST(PooledString, AppendsInPieces) {
  pool from;
  ovk::string text;
  std::string expected;
  for (int i = 0; i < 200; ++i) {
    text.append(std::to_string(i), from);
    expected += std::to_string(i);
    ASSERT_EQ(text.view(), expected);
  }
}

TEST(PooledString, AppendingLeavesACopyAsItWas) {
  pool from;
  ovk::string text("a text of more than sixteen bytes", from);
  const ovk::string copy = text;
  text.append("!", from);
  EXPECT_EQ(copy, "a text of more than sixteen bytes");
  EXPECT_EQ(text, "a text of more than sixteen bytes!");
}

}  // namespace
