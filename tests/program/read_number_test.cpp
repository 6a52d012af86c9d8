#include "program/change/read_number.h"

#include <gtest/gtest.h>

namespace TCBase::Program {
namespace {

TEST(ReadNumber, NumbersAreFiniteAndWithinTheirRange) {
  EXPECT_EQ(ReadNumber("12.5", 0, 100), 12.5F);
  EXPECT_EQ(ReadNumber("+3", 0, 100), 3.0F);
  EXPECT_EQ(ReadNumber("-3", -5, 100), -3.0F);
  for (const char* const text :
       {"", "x", "-1", "101", "nan", "inf", "+-3", "++3", "3 ", " 3", "3%", "1e39", "3,5"})
    EXPECT_FALSE(ReadNumber(text, 0, 100)) << text;
}

TEST(ReadNumber, WholeOnes) {
  EXPECT_EQ(ReadWhole("5", 1, 720), 5);
  for (const char* const text : {"", "0", "721", "5.5", "5x", "99999999999", "-5"})
    EXPECT_FALSE(ReadWhole(text, 1, 720)) << text;
}

TEST(ReadNumber, AShiftIsMinutesOrAClocks) {
  EXPECT_EQ(ReadShift("90"), 90);
  EXPECT_EQ(ReadShift("-90"), -90);
  EXPECT_EQ(ReadShift("+1:30"), 90);
  EXPECT_EQ(ReadShift("-01:30"), -90);
  EXPECT_EQ(ReadShift("24:00"), 1440);
  for (const char* const text :
       {"", "-", "--5", "+-5", "1:5", "1:60", "24:01", "1441", "1:", ":30", "1:2:3", "-1:-3", "1:-3"})
    EXPECT_FALSE(ReadShift(text)) << text;
}

TEST(ReadNumber, ATimeIsOnTheDay) {
  EXPECT_EQ(ReadTime("8:05"), 485);
  EXPECT_EQ(ReadTime("08:05"), 485);
  EXPECT_EQ(ReadTime("23:59"), 1439);
  for (const char* const text : {"", "8", "24:00", "-8:05", "-0:05", "8:5", "8:60", "8:05 ", "x:05"})
    EXPECT_FALSE(ReadTime(text)) << text;
}

TEST(ReadNumber, ChannelsCountFromOne) {
  EXPECT_EQ(ReadChannels("1,3,5"), ChannelSet(0b10101));
  EXPECT_EQ(ReadChannels("2,2"), ChannelSet(0b00010));
  for (const char* const text : {"", "0", "6", "1,", ",1", "1,,2", "1;2", "12", "1, 2"})
    EXPECT_FALSE(ReadChannels(text)) << text;
}

}  // namespace
}  // namespace TCBase::Program
