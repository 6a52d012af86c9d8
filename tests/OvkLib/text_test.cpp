#include "OvkLib/src/ovk_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Tokens(std::string_view text, std::string_view delimiters) {
  std::vector<std::string> tokens;
  Tokenize(text, delimiters, tokens);
  return tokens;
}

ParsedUnsigned Parse(std::string_view text) {
  return ParseUnsigned(text, 0, text.size());
}

TEST(Tokenize, SplitsATimeAndAStrengthAtBlanksAndColons) {
  EXPECT_THAT(Tokens("08:00 10", " :"), ElementsAre("08", "00", "10"));
}

TEST(Tokenize, YieldsNothingForATextOfDelimitersOnly) {
  EXPECT_THAT(Tokens(" :: : ", " :"), IsEmpty());
  EXPECT_THAT(Tokens("", " :"), IsEmpty());
}

TEST(Tokenize, CountsARunOfDelimitersAsOne) {
  EXPECT_THAT(Tokens("  a, ,b  ", " ,"), ElementsAre("a", "b"));
}

TEST(Tokenize, TakesTheWholeTextWithoutDelimiters) {
  EXPECT_THAT(Tokens("a b", ""), ElementsAre("a b"));
}

TEST(Tokenize, AppendsToWhatIsThere) {
  std::vector<std::string> tokens{"first"};
  Tokenize("second", " ", tokens);
  EXPECT_THAT(tokens, ElementsAre("first", "second"));
}

TEST(ToDecimal, WritesTheEndsOfBothRanges) {
  EXPECT_EQ(ToDecimal(0), "0");
  EXPECT_EQ(ToDecimal(std::numeric_limits<std::int32_t>::min()), "-2147483648");
  EXPECT_EQ(ToDecimal(std::numeric_limits<std::int32_t>::max()), "2147483647");
  EXPECT_EQ(ToDecimal(std::uint64_t{0}), "0");
  EXPECT_EQ(ToDecimal(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(ToRadix, WritesCapitalDigits) {
  EXPECT_EQ(ToRadix(0, 2), u"0");
  EXPECT_EQ(ToRadix(10, 2), u"1010");
  EXPECT_EQ(ToRadix(0xBEEF, 16), u"BEEF");
  EXPECT_EQ(ToRadix(255, 10), u"255");
  EXPECT_EQ(ToRadix(std::numeric_limits<std::uint64_t>::max(), 2), std::u16string(64, u'1'));
}

TEST(ToRadix, GivesNothingForARadixThatHasNoDigits) {
  for (const int radix : {-1, 0, 1, 17}) EXPECT_EQ(ToRadix(5, radix), u"");
}

TEST(ParseUnsigned, ReadsTheDigitsAtTheFront) {
  EXPECT_EQ(Parse("12abc"), (ParsedUnsigned{12, false, 2}));
  EXPECT_EQ(Parse("abc"), (ParsedUnsigned{0, false, 0}));
  EXPECT_EQ(Parse("007"), (ParsedUnsigned{7, false, 3}));
  EXPECT_EQ(Parse("-5"), (ParsedUnsigned{0, false, 0}));
}

TEST(ParseUnsigned, SkipsAPlusBeforeADigitOnly) {
  EXPECT_EQ(Parse("+5"), (ParsedUnsigned{5, false, 2}));
  EXPECT_EQ(Parse("+"), (ParsedUnsigned{0, false, 0}));
  EXPECT_EQ(Parse("+x"), (ParsedUnsigned{0, false, 0}));
  EXPECT_EQ(Parse("++5"), (ParsedUnsigned{0, false, 0}));
  EXPECT_EQ(ParseUnsigned("+5", 0, 1), (ParsedUnsigned{0, false, 0}));
}

TEST(ParseUnsigned, ReadsFromThePlaceAndAsFarAsItIsTold) {
  EXPECT_EQ(ParseUnsigned("08:15", 3, 2), (ParsedUnsigned{15, false, 5}));
  EXPECT_EQ(ParseUnsigned("08:15", 3, 1), (ParsedUnsigned{1, false, 4}));
  EXPECT_EQ(ParseUnsigned("08:15", 3, std::string_view::npos), (ParsedUnsigned{15, false, 5}));
}

TEST(ParseUnsigned, AnswersZeroAndTheStartWithNothingToRead) {
  EXPECT_EQ(ParseUnsigned("", 0, 10), (ParsedUnsigned{0, false, 0}));
  EXPECT_EQ(ParseUnsigned("12", 2, 10), (ParsedUnsigned{0, false, 2}));
  EXPECT_EQ(ParseUnsigned("12", 7, 10), (ParsedUnsigned{0, false, 7}));
  EXPECT_EQ(ParseUnsigned("12", 0, 0), (ParsedUnsigned{0, false, 0}));
}

TEST(ParseUnsigned, ReadsTheLargestNumber) {
  EXPECT_EQ(Parse("4294967295"), (ParsedUnsigned{4294967295U, false, 10}));
}

TEST(ParseUnsigned, OverflowsOneAboveTheLargest) {
  EXPECT_EQ(Parse("4294967296"), (ParsedUnsigned{4294967295U, true, 9}));
  EXPECT_EQ(Parse("99999999999"), (ParsedUnsigned{4294967295U, true, 10}));
}

// A number that wraps all the way past its value of a digit earlier is not seen to overflow: only these two
// are compared.
TEST(ParseUnsigned, DoesNotSeeAnOverflowThatWrapsPastThePreviousValue) {
  EXPECT_EQ(Parse("5000000000"), (ParsedUnsigned{705032704U, false, 10}));
}

}  // namespace
