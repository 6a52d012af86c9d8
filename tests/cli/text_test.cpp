#include "cli/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "cli/progress.h"

namespace {

using cli::ForTerminal;
using cli::LineEnds;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();

TEST(TextTest, ControlCharactersCannotReachATerminal) {
  EXPECT_EQ(ForTerminal("\x1B[2Jgone\a\x7F", LineEnds::Keep), "\uFFFD[2Jgone\uFFFD\uFFFD");
  EXPECT_EQ(ForTerminal("\u009B2J \u0080", LineEnds::Keep), "\uFFFD2J \uFFFD");
  EXPECT_EQ(ForTerminal("two\nlines", LineEnds::Keep), "two\nlines");
  EXPECT_EQ(ForTerminal("two\nlines\r", LineEnds::Replace), "two\uFFFDlines\uFFFD");
  EXPECT_EQ(ForTerminal("Žluť \u00A0 青 \xC2", LineEnds::Replace), "Žluť \u00A0 青 \xC2");
}

TEST(TextTest, NumbersHaveNineSignificantDigitsAndOneSpelling) {
  const std::pair<float, const char*> rows[] = {
      {0.0F, "0"},
      {50.0F, "50"},
      {1.0F / 3.0F, "0.333333343"},
      {100.0F / 3.0F, "33.3333321"},
      {1e-5F, "9.99999975e-06"},
      {123456789.0F, "123456792"},
      {1e10F, "1e+10"},
      {-0.5F, "-0.5"},
      {kInfinity, "inf"},
      {-kInfinity, "-inf"},
      {kNotANumber, "nan"},
      {-kNotANumber, "nan"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(cli::NumberText(value), text);
}

TEST(TextTest, BytesAreTwoCapitalDigitsEach) {
  EXPECT_EQ(cli::HexText({"\x55\xAA\x00\x0F", 4}), "55AA000F");
}

TEST(TextTest, AChannelAndItsValueAreParted) {
  const auto parsed = cli::ParseChannelValue("5=C:\\a=b.txt");
  ASSERT_TRUE(parsed);
  EXPECT_EQ(parsed->channel, 4);
  EXPECT_EQ(parsed->value, "C:\\a=b.txt");
  for (const char* const wrong : {"", "1", "1=", "0=x", "6=x", "12=x", "x=1", "-1=x", "=x", " 1=x"})
    EXPECT_FALSE(cli::ParseChannelValue(wrong)) << wrong;
}

TEST(TextTest, ATimeOfTheDayIsReadToTheLetter) {
  EXPECT_EQ(cli::ParseTimeOfDay("00:00"), 0);
  EXPECT_EQ(cli::ParseTimeOfDay("08:05"), 8 * 60 + 5);
  EXPECT_EQ(cli::ParseTimeOfDay("23:59"), 24 * 60 - 1);
  for (const char* const wrong :
       {"", "8:05", "08:5", "08.05", "24:00", "08:60", "-1:00", "+8:05", "08:05:00", " 08:05", "noon."}) {
    EXPECT_FALSE(cli::ParseTimeOfDay(wrong)) << wrong;
    EXPECT_EQ(cli::CheckTimeOfDay(wrong),
              std::string("a time from 00:00 to 23:59 is expected, not ") + wrong);
  }
  EXPECT_EQ(cli::CheckTimeOfDay("08:05"), "");
}

TEST(TextTest, ATimeIsReadToTheLetter) {
  const auto time = cli::ParseDateTime("2028-02-29 23:59:58");
  ASSERT_TRUE(time);
  EXPECT_EQ(time->year, 2028);
  EXPECT_EQ(time->month, 2);
  EXPECT_EQ(time->day, 29);
  EXPECT_EQ(time->hour, 23);
  EXPECT_EQ(time->minute, 59);
  EXPECT_EQ(time->second, 58);
}

class WrongTimeTest : public testing::TestWithParam<const char*> {};

TEST_P(WrongTimeTest, IsRefused) {
  EXPECT_FALSE(cli::ParseDateTime(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, WrongTimeTest,
                         testing::Values("", "2026-03-14", "2026-02-29 00:00:00", "2026-04-31 00:00:00",
                                         "2100-02-29 00:00:00", "2026-00-10 00:00:00", "2026-13-10 00:00:00",
                                         "2026-03-00 00:00:00", "2026-03-32 00:00:00", "2026-03-14 24:00:00",
                                         "2026-03-14 09:60:00", "2026-03-14 09:26:60", "1999-12-31 23:59:59",
                                         "2026-3-14 09:26:53", "2026-03-14 9:26:53", "2026-03-14T09:26:53",
                                         "2026-03-14 09:26:53 ", " 2026-03-14 09:26:53",
                                         "2026/03/14 09:26:53", "+026-03-14 09:26:53", "2026-03-14 09:26:-1",
                                         "2026-03-14 09:26:5x"));

TEST(ProgressTest, ShowsThePartThatIsDone) {
  EXPECT_EQ(cli::MeasuredProgress(0.0, "00:00").text, "[                              ]   0 % 00:00");
  EXPECT_EQ(cli::MeasuredProgress(0.5, "12:00").text, "[###############               ]  50 % 12:00");
  EXPECT_EQ(cli::MeasuredProgress(1.0, "end").text, "[##############################] 100 % end");
  EXPECT_EQ(cli::MeasuredProgress(1.5, "over").text, "[##############################] 100 % over");
}

}  // namespace
