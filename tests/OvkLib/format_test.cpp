#include "OvkLib/src/ovk_format.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::string Filled(std::string_view text, const std::vector<std::string>& arguments) {
  ovk::format format(text);
  for (const std::string& argument : arguments) {
    format.arg(argument.data(), static_cast<std::int32_t>(argument.size()));
  }
  return format.c_str();
}

std::string Number(std::int32_t number, std::int32_t width) {
  ovk::format format("{1}");
  format.arg(number, width);
  return format.c_str();
}

TEST(Format, FillsAPlaceholderThatOccursTwiceInBothPlaces) {
  EXPECT_EQ(Filled("{1} and {1}", {"x"}), "x and x");
}

TEST(Format, FillsPlaceholdersInAnyOrder) {
  EXPECT_EQ(Filled("{2} before {1}", {"a", "b"}), "b before a");
}

TEST(Format, AnArgumentThatContainsItsOwnPlaceholderKeepsIt) {
  EXPECT_EQ(Filled("{1}", {"{1}"}), "{1}");
  EXPECT_EQ(Filled("{1}{1}", {"<{1}>"}), "<{1}><{1}>");
}

// A mode may be called "{2}", and so may a folder.
TEST(Format, AnArgumentThatContainsALaterPlaceholderKeepsIt) {
  EXPECT_EQ(Filled("{1} {2}", {"{2}", "b"}), "{2} b");
  EXPECT_EQ(Filled("{2} {1} {3}", {"{3}{2}", "<{3}>", "c"}), "<{3}> {3}{2} c");
}

TEST(Format, FillingPutsNoPlaceholderTogether) {
  EXPECT_EQ(Filled("{{1}}", {"2", "b"}), "{2}");
  EXPECT_EQ(Filled("{1}2}", {"{", "b"}), "{2}");
  EXPECT_EQ(Filled("{1}{2}", {"{", "2}"}), "{2}");
}

TEST(Format, AnArgumentThatContainsAnEarlierPlaceholderKeepsIt) {
  EXPECT_EQ(Filled("{1} {2}", {"a", "{1}"}), "a {1}");
}

TEST(Format, AnArgumentWithoutPlaceholderIsDroppedAndTheNextStillGoesToTwo) {
  EXPECT_EQ(Filled("plain", {"a"}), "plain");
  EXPECT_EQ(Filled("only {2}", {"a", "b"}), "only b");
}

TEST(Format, APlaceholderWithoutArgumentStays) {
  EXPECT_EQ(Filled("{1} {2}", {"a"}), "a {2}");
}

TEST(Format, OtherBracesAreText) {
  EXPECT_EQ(Filled("{} {0} {{1}} {1x} {01} {", {"a"}), "{} {0} {a} {1x} {01} {");
}

TEST(Format, IndicesOfTenAndMoreWork) {
  EXPECT_EQ(Filled("{12}{11}{10}{9}{1}", {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"}),
            "lkjia");
}

TEST(Format, ReadBetweenTwoArgumentsIsFilledAsFar) {
  ovk::format format("{1} and {2}");
  EXPECT_STREQ(format.c_str(), "{1} and {2}");
  format.arg("{2}", 3);
  EXPECT_STREQ(format.c_str(), "{2} and {2}");
  format.arg("b", 1);
  EXPECT_STREQ(format.c_str(), "{2} and b");
}

TEST(Format, LongArgumentsGrowTheText) {
  const std::string big(1000, 'x');
  EXPECT_EQ(Filled("{1}-{2}-{1}", {big, "y"}), big + "-y-" + big);
}

TEST(Format, ATimePadsWithWidthTwoAndNotWithWidthZero) {
  ovk::format padded("{1}:{2}");
  padded.arg(8, 2);
  padded.arg(5, 2);
  EXPECT_STREQ(padded.c_str(), "08:05");

  ovk::format plain("{1}:{2}");
  plain.arg(8, 0);
  plain.arg(5, 0);
  EXPECT_STREQ(plain.c_str(), "8:5");
}

TEST(Format, NumbersPadWithZerosBehindTheSign) {
  struct Row {
    std::int32_t number;
    std::int32_t width;
    const char* text;
  };
  const Row rows[] = {
      {0, 0, "0"},
      {0, 2, "00"},
      {7, 2, "07"},
      {123, 2, "123"},
      {-5, 0, "-5"},
      {-5, 4, "-005"},
      {-5, 2, "-5"},
      {5, -3, "5"},
      {42, 20, "00000000000000000042"},
      {std::numeric_limits<std::int32_t>::max(), 0, "2147483647"},
      {std::numeric_limits<std::int32_t>::min(), 0, "-2147483648"},
      {std::numeric_limits<std::int32_t>::min(), 12, "-02147483648"},
  };
  for (const Row& row : rows) EXPECT_EQ(Number(row.number, row.width), row.text);
}

std::string AtOnce(std::string_view text, const std::vector<std::string>& arguments) {
  const std::vector<std::string_view> views(arguments.begin(), arguments.end());
  std::string out = "old";
  ovk::fill(out, text, views);
  return out;
}

TEST(Fill, GivesWhatAFormatGives) {
  EXPECT_EQ(AtOnce("Error creating file {1}, error: {2}", {"a.xml", "gone"}),
            "Error creating file a.xml, error: gone");
  EXPECT_EQ(AtOnce("{2}{1}{2}", {"a", "b"}), "bab");
  EXPECT_EQ(AtOnce("plain", {}), "plain");
  EXPECT_EQ(AtOnce("", {"a"}), "");
}

TEST(Fill, TakesViewsOfNothing) {
  std::string out;
  ovk::fill(out, "<{1}>", std::array{std::string_view()});
  EXPECT_EQ(out, "<>");
  ovk::fill(out, "<{1}{>", std::array{std::string_view()});
  EXPECT_EQ(out, "<{>");
  ovk::fill(out, std::string_view(), {});
  EXPECT_EQ(out, "");
}

TEST(Fill, LooksIntoNoArgument) {
  EXPECT_EQ(AtOnce("{{1}}", {"2", "b"}), "{2}");
  EXPECT_EQ(AtOnce("{1}2}", {"{", "b"}), "{2}");
  EXPECT_EQ(AtOnce("{1} {2}", {"{2}", "b"}), "{2} b");
}

TEST(Fill, KnowsPlaceholdersByTheirWholeNumber) {
  EXPECT_EQ(AtOnce("{01} {+1} {-1} { 1} {1 } {1", {"a"}), "{01} {+1} {-1} { 1} {1 } {1");
  EXPECT_EQ(AtOnce("{4294967297} {18446744073709551617}", {"a"}), "{4294967297} {18446744073709551617}");
  EXPECT_EQ(AtOnce("{11}{10}{1}", {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}), "kja");
}

// The plain definition, an argument after the other: each is searched for from the front, and what was put
// in is passed over, by a blank for each of its characters.
std::string StepByStep(std::string text, const std::vector<std::string>& arguments) {
  std::string open = text;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string pattern = "{" + std::to_string(i + 1) + "}";
    const std::string& argument = arguments[i];
    for (std::size_t found = open.find(pattern); found != std::string::npos;
         found = open.find(pattern, found + argument.size())) {
      text.replace(found, pattern.size(), argument);
      open.replace(found, pattern.size(), std::string(argument.size(), ' '));
    }
  }
  return text;
}

// The one pass beside the plain definition, on templates and arguments made of little else than placeholders.
TEST(Fill, AgreesWithTheDefinitionOnRandomTexts) {
  std::mt19937 random(1);
  const std::vector<std::string> pieces = {"{1}", "{2}", "{3}", "{0}", "{10}", "{",
                                           "}",   "1",   "2",   " ",   "word"};
  const auto text = [&](std::mt19937::result_type most) {
    std::string made;
    for (auto i = random() % (most + 1); i > 0; --i) made += pieces[random() % pieces.size()];
    return made;
  };
  for (int round = 0; round < 50000; ++round) {
    const std::string given = text(6);
    std::vector<std::string> arguments(random() % 4);
    for (std::string& argument : arguments) argument = random() % 3 == 0 ? text(2) : "plain";
    const std::string expected = StepByStep(given, arguments);
    ASSERT_EQ(AtOnce(given, arguments), expected) << given << " " << testing::PrintToString(arguments);
    ASSERT_EQ(Filled(given, arguments), expected) << given << " " << testing::PrintToString(arguments);
  }
}

TEST(Format, TheWideFormatPadsNumbersToTwo) {
  ovk::wformat name(u"PRG{1}");
  name.arg(3);
  EXPECT_EQ(name.text().view(), u"PRG03");

  ovk::wformat later(u"PRG{1}");
  later.arg(112);
  EXPECT_EQ(later.text().view(), u"PRG112");
}

TEST(Format, TheWideFormatTakesTexts) {
  ovk::wformat format(u"{2}{1}");
  format.arg(u"свет", 4);
  format.arg(u"灯", 1);
  EXPECT_EQ(format.text().view(), u"灯свет");
}

}  // namespace
