#include "OvkLib/src/ovk_string.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/ovk_exception.h"

namespace {

using Text = ovk::string;

constexpr std::int32_t kLongest = std::numeric_limits<std::int32_t>::max();

// Forty different-looking characters: too many for the object itself.
const char* const kForty = "0123456789abcdefghijABCDEFGHIJ0987654321";

bool SharesBlock(const Text& a, const Text& b) {
  return a.c_str() == b.c_str();
}

bool StandsInline(const Text& text) {
  const char* object = reinterpret_cast<const char*>(&text);
  return text.c_str() >= object && text.c_str() < object + sizeof(text);
}

TEST(String, IsSmall) {
  EXPECT_EQ(sizeof(ovk::string), 32U);
  EXPECT_EQ(sizeof(ovk::wstring), 48U);
}

TEST(String, StartsEmptyAndTerminated) {
  const Text text;
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.length(), 0);
  EXPECT_EQ(text.capacity(), 16);
  EXPECT_EQ(text.c_str()[0], '\0');
}

TEST(String, SixteenCharactersStayInlineAndSeventeenMoveToABlock) {
  Text text("0123456789abcdef");
  EXPECT_EQ(text.length(), 16);
  EXPECT_EQ(text.capacity(), 16);
  EXPECT_TRUE(StandsInline(text));
  EXPECT_EQ(text.c_str()[16], '\0');

  text.push_back('g');
  EXPECT_EQ(text.view(), "0123456789abcdefg");
  EXPECT_GT(text.capacity(), 16);
  EXPECT_FALSE(StandsInline(text));
  EXPECT_EQ(text.c_str()[17], '\0');
}

TEST(String, WideTextHasTheSameLimits) {
  ovk::wstring text(u"0123456789abcdef");
  EXPECT_EQ(text.capacity(), 16);
  text.push_back(u'ж');
  EXPECT_GT(text.capacity(), 16);
  EXPECT_EQ(text.view(), u"0123456789abcdefж");
}

TEST(String, ACopyOfFortyCharactersSharesItsBlockUntilOneChanges) {
  Text original(kForty);
  Text copy(original);
  EXPECT_TRUE(SharesBlock(original, copy));

  copy.append("!");
  EXPECT_FALSE(SharesBlock(original, copy));
  EXPECT_EQ(original.view(), kForty);
  EXPECT_EQ(copy.view(), std::string(kForty) + "!");
}

TEST(String, ChangingTheOriginalLeavesTheCopy) {
  Text original(kForty);
  const Text copy(original);
  original.erase(0, 39);
  EXPECT_EQ(original.view(), "1");
  EXPECT_EQ(copy.view(), kForty);
}

TEST(String, ACopyOfAnInlineTextIsAPlainCopy) {
  const Text original("short");
  const Text copy(original);  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_FALSE(SharesBlock(original, copy));
  EXPECT_EQ(copy, original);
}

TEST(String, TheLastOfThreeSharersKeepsTheText) {
  std::optional<Text> first(kForty);
  std::optional<Text> second(*first);
  const Text third(*second);
  EXPECT_TRUE(SharesBlock(*first, third));
  second.reset();
  EXPECT_TRUE(SharesBlock(*first, third));
  first.reset();
  EXPECT_EQ(third.view(), kForty);
}

TEST(String, AWritablePointerKeepsCopiesFromSharing) {
  Text text(kForty);
  char* place = text.writable();
  const Text copy(text);
  EXPECT_FALSE(SharesBlock(text, copy));
  place[0] = 'X';
  EXPECT_EQ(copy.view(), kForty);
  EXPECT_EQ(text.c_str()[0], 'X');
}

TEST(String, WritingThroughTheObjectOpensItForSharingAgain) {
  Text text(kForty);
  text.writable();
  text.push_back('!');
  const Text copy(text);
  EXPECT_TRUE(SharesBlock(text, copy));
}

TEST(String, WritingWithinTheBlockOpensItForSharingAgain) {
  const std::pair<const char*, void (*)(Text&)> changes[] = {
      {"push_back", [](Text& text) { text.push_back('!'); }},
      {"append", [](Text& text) { text.append("!!", 2); }},
      {"assign", [](Text& text) { text.assign("another text, too long for the object", 37); }},
      {"resize", [](Text& text) { text.resize(50, '.'); }},
      {"replace", [](Text& text) { text.replace(3, 1, "--", 2); }},
      {"erase", [](Text& text) { text.erase(0, 1); }},
      {"insert_zeros", [](Text& text) { text.insert_zeros(2); }},
  };
  for (const auto& [name, change] : changes) {
    SCOPED_TRACE(name);
    Text text(kForty);
    text.reserve(200);
    const char* const block = text.c_str();
    text.writable();
    change(text);
    ASSERT_EQ(text.c_str(), block) << "or it is a block that never was held";
    const Text copy(text);
    EXPECT_TRUE(SharesBlock(text, copy));
  }
}

TEST(String, TakingAWritablePointerLeavesTheRing) {
  Text text(kForty);
  const Text copy(text);
  text.writable()[0] = 'X';
  EXPECT_EQ(copy.view(), kForty);
  EXPECT_EQ(text.c_str()[0], 'X');
}

TEST(String, AMovedStringTakesItsPlaceInTheRing) {
  Text first(kForty);
  Text second(first);
  Text third(second);
  const Text moved(std::move(second));
  EXPECT_TRUE(SharesBlock(first, moved));
  EXPECT_TRUE(second.empty());  // NOLINT(bugprone-use-after-move): a moved-from text is empty
  first.clear();
  third.clear();
  EXPECT_EQ(moved.view(), kForty);
}

TEST(String, RingsSurviveAGrowingVector) {
  std::vector<Text> texts;
  // NOLINTNEXTLINE(performance-inefficient-vector-operation): it grows on purpose
  for (int i = 0; i < 100; ++i) texts.emplace_back(texts.empty() ? Text(kForty) : texts.back());
  texts.erase(texts.begin() + 10, texts.begin() + 90);
  texts[5].push_back('!');
  EXPECT_TRUE(SharesBlock(texts[4], texts[6]));
  EXPECT_EQ(texts[19].view(), kForty);
}

TEST(String, SwapExchangesEveryPairOfForms) {
  const Text shared(kForty);
  const auto forms = [&] {
    std::vector<Text> all;
    all.emplace_back("inline");
    all.emplace_back("a text in a block of its own");
    all.push_back(shared);
    all.push_back(shared);
    return all;
  };
  constexpr std::size_t kForms = 4;
  for (std::size_t a = 0; a < kForms; ++a) {
    for (std::size_t b = 0; b < kForms; ++b) {
      std::vector<Text> texts = forms();
      const std::string atA(texts[a].view());
      const std::string atB(texts[b].view());
      texts[a].swap(texts[b]);
      EXPECT_EQ(texts[a].view(), atB);
      EXPECT_EQ(texts[b].view(), atA);
      texts[a].push_back('!');
      EXPECT_EQ(shared.view(), kForty);
    }
  }
}

TEST(String, AssigningASharerOfTheSameBlockKeepsTheText) {
  Text first(kForty);
  const Text second(first);
  first = second;
  EXPECT_TRUE(SharesBlock(first, second));
  EXPECT_EQ(first.view(), kForty);
  Text& self = first;
  first = self;
  EXPECT_EQ(first.view(), kForty);
}

TEST(String, ClearKeepsABlockOfItsOwn) {
  Text text(kForty);
  const std::int32_t capacity = text.capacity();
  text.clear();
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.capacity(), capacity);
}

TEST(String, ClearLeavesASharedBlockToTheOthers) {
  Text text(kForty);
  const Text copy(text);
  text.clear();
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.capacity(), 16);
  EXPECT_EQ(copy.view(), kForty);
}

TEST(String, ReserveGrowsByHalfAtLeast) {
  Text text;
  text.reserve(17);
  EXPECT_EQ(text.capacity(), 24);
  text.reserve(20);
  EXPECT_EQ(text.capacity(), 24);
  text.reserve(25);
  EXPECT_EQ(text.capacity(), 36);
  text.reserve(1000);
  EXPECT_EQ(text.capacity(), 1000);
}

TEST(String, ResizeFillsAndCuts) {
  Text text("ab");
  text.resize(5, 'x');
  EXPECT_EQ(text.view(), "abxxx");
  text.resize(1, 'y');
  EXPECT_EQ(text.view(), "a");
  text.resize(-1, 'y');
  EXPECT_EQ(text.view(), "");
  text.resize(20, 'z');
  EXPECT_EQ(text.view(), std::string(20, 'z'));
}

TEST(String, ReplaceClipsPositionAndCount) {
  Text text("hello");
  text.replace(3, 100, "p!", 2);
  EXPECT_EQ(text.view(), "help!");
  text.replace(100, 5, "?", 1);
  EXPECT_EQ(text.view(), "help!?");
  text.replace(-5, 1, "H", 1);
  EXPECT_EQ(text.view(), "Help!?");
  text.replace(2, -3, "_", 1);
  EXPECT_EQ(text.view(), "He_lp!?");
}

TEST(String, EraseTakesOutTheMiddle) {
  Text text("hello");
  text.erase(1, 3);
  EXPECT_EQ(text.view(), "ho");
}

TEST(String, ZerosGoBehindTheFirstCharacter) {
  Text negative("-5");
  negative.insert_zeros(2);
  EXPECT_EQ(negative.view(), "-005");
  Text empty;
  empty.insert_zeros(3);
  EXPECT_EQ(empty.view(), "000");
  empty.insert_zeros(-1);
  EXPECT_EQ(empty.view(), "000");
}

TEST(String, FindTellsTheFirstOccurrenceAtOrBehindAPosition) {
  const Text text("abcabc");
  EXPECT_EQ(text.find("bc", 0), 1);
  EXPECT_EQ(text.find("bc", 2), 4);
  EXPECT_EQ(text.find("bc", 5), 0x7FFFFFFF);
  EXPECT_EQ(text.find("x", 0), 0x7FFFFFFF);
  EXPECT_EQ(text.find("a", -7), 0);
}

TEST(String, AnEmptyPatternIsFoundWhereTheSearchStarts) {
  const Text text("abc");
  EXPECT_EQ(text.find("", 0), 0);
  EXPECT_EQ(text.find("", 2), 2);
  EXPECT_EQ(text.find("", 100), 3);
}

TEST(String, TerminatorsInsideSurvive) {
  Text text("a\0b", 3);
  text.append("\0c", 2);
  EXPECT_EQ(text.view(), std::string_view("a\0b\0c", 5));
}

TEST(String, PointersIntoItselfMayBeAppendedAssignedAndInserted) {
  Text text("0123456789");
  for (int i = 0; i < 3; ++i) text.append(text.c_str(), text.length());
  EXPECT_EQ(text.length(), 80);
  EXPECT_TRUE(text.view().ends_with("6789"));
  text.replace(0, 1, text.c_str() + 5, 3);
  EXPECT_EQ(text.view().substr(0, 6), "567123");
  text.assign(text.c_str() + 1, 4);
  EXPECT_EQ(text.view(), "6712");
}

TEST(String, NothingIsAppendedForANegativeCount) {
  Text text("a");
  text.append("xyz", -1);
  text.assign("xyz", -1);
  EXPECT_EQ(text.view(), "");
}

TEST(String, ComparesWithTextsOfEveryKind) {
  const Text text("mode");
  EXPECT_TRUE(text == "mode");
  EXPECT_TRUE(text == std::string_view("mode"));
  EXPECT_TRUE(text == Text("mode"));
  EXPECT_FALSE(text == "modes");
  EXPECT_TRUE(text != "Mode");
}

TEST(String, LengthsPastThirtyTwoBitsAreOutOfMemory) {
  Text text("x");
  EXPECT_THROW(text.append("y", kLongest), ovk::xout_of_memory);
  EXPECT_THROW(text.replace(0, 0, "y", kLongest), ovk::xout_of_memory);
  EXPECT_THROW(text.insert_zeros(kLongest), ovk::xout_of_memory);
  EXPECT_THROW(text.resize(kLongest, 'y'), ovk::xout_of_memory);
  EXPECT_THROW(text.reserve(kLongest), ovk::xout_of_memory);
  // NOLINTNEXTLINE(bugprone-string-constructor): too long on purpose
  EXPECT_THROW(Text(std::string_view("y", 0x8000'0000U)), ovk::xout_of_memory);
  EXPECT_EQ(text.view(), "x");
}

// Some texts that copy, move, swap and change at random, each held against a standard string.
template <class Char>
class StringModel {
 public:
  explicit StringModel(unsigned seed) : random_(seed), texts_(kTexts), models_(kTexts) {}

  void Step() {
    const std::size_t a = random_() % kTexts;
    const std::size_t b = random_() % kTexts;
    switch (random_() % 6) {
      case 0:
        texts_[a] = texts_[b];
        models_[a] = models_[b];
        break;
      case 1:
        texts_[a] = ovk::basic_string<Char>(texts_[b]);
        models_[a] = models_[b];
        break;
      case 2:
        texts_[a].swap(texts_[b]);
        models_[a].swap(models_[b]);
        break;
      default:
        Change(texts_[a], models_[a]);
        break;
    }
  }

  void Check() const {
    for (std::size_t i = 0; i < kTexts; ++i) {
      ASSERT_TRUE(texts_[i].view() == models_[i]);
      ASSERT_EQ(texts_[i].c_str()[texts_[i].length()], Char());
      ASSERT_LE(texts_[i].length(), texts_[i].capacity());
      ASSERT_GE(texts_[i].capacity(), 16);
    }
  }

 private:
  static constexpr std::size_t kTexts = 6;
  using Standard = std::basic_string<Char>;

  std::int32_t Upto(std::int32_t most) {
    return static_cast<std::int32_t>(random_() % static_cast<unsigned>(most + 1));
  }

  Standard Piece() {
    Standard piece(static_cast<std::size_t>(Upto(25)), Char());
    for (Char& c : piece) c = static_cast<Char>('a' + random_() % 3);
    return piece;
  }

  void Change(ovk::basic_string<Char>& text, Standard& model) {
    if (model.size() > 200) {
      text.clear();
      model.clear();
    }
    const std::int32_t position = Upto(text.length());
    const auto at = static_cast<std::size_t>(position);
    const Standard piece = Piece();
    const auto length = static_cast<std::int32_t>(piece.size());
    switch (random_() % 10) {
      case 0:
        text.append(piece);
        model.append(piece);
        break;
      case 1: {
        const std::int32_t count = Upto(30);
        text.replace(position, count, piece.data(), length);
        model.replace(at, static_cast<std::size_t>(count), piece);
        break;
      }
      case 2:
        text.erase(position, length);
        model.erase(at, piece.size());
        break;
      case 3:
        text.resize(length * 2, Char('r'));
        model.resize(piece.size() * 2, Char('r'));
        break;
      case 4:
        text.push_back(Char('p'));
        model.push_back(Char('p'));
        break;
      case 5:
        text.insert_zeros(length);
        model.insert(std::min<std::size_t>(model.size(), 1), piece.size(), Char('0'));
        break;
      case 6:
        text.reserve(length * 3);
        break;
      case 7:
        std::fill_n(text.writable(), text.length(), Char('w'));
        std::fill(model.begin(), model.end(), Char('w'));
        break;
      case 8:
        text.append(text.c_str() + position, text.length() - position);
        model.append(Standard(model, at));
        break;
      default: {
        const Standard pattern = piece.substr(0, 3);
        const std::size_t found = model.find(pattern, at);
        ASSERT_EQ(text.find(pattern.c_str(), position),
                  found == Standard::npos ? 0x7FFFFFFF : static_cast<std::int32_t>(found));
        text.assign(piece.data(), length);
        model = piece;
        break;
      }
    }
  }

  std::mt19937 random_;
  std::vector<ovk::basic_string<Char>> texts_;
  std::vector<Standard> models_;
};

template <class Char>
void BehavesAsAStandardString() {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    StringModel<Char> model(seed);
    for (int step = 0; step < 2000; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      model.Step();
      model.Check();
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

TEST(String, BehavesAsAStandardStringOverLongRunsOfSharedCopies) {
  BehavesAsAStandardString<char>();
}

TEST(String, WideTextBehavesAsAStandardStringToo) {
  BehavesAsAStandardString<char16_t>();
}

}  // namespace
