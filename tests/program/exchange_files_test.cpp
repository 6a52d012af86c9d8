// The mode files of other tools.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/truncate.h"
#include "program/lmf.h"
#include "program/raw.h"
#include "program/tmf.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"

namespace {

using namespace program_test;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct TmfRow {
  int hour = 0;
  int minute = 0;
  int percent = 0;  // of every channel
  int jump = 0;     // of every channel
};

std::string TmfFile(const std::vector<TmfRow>& rows) {
  std::string data(12, '\x77');  // nobody reads the header
  for (const TmfRow& row : rows) {
    std::string bytes(56, '\0');
    bytes[4] = static_cast<char>(row.hour);
    bytes[5] = static_cast<char>(row.minute);
    for (std::size_t channel = 0; channel < 5; ++channel) {
      bytes[44 + channel] = static_cast<char>(row.percent);
      bytes[49 + channel] = static_cast<char>(row.jump);
    }
    data += bytes;
  }
  return data;
}

TEST(Tmf, IsAHeaderAndARowOf56Bytes) {
  std::string data;
  EXPECT_TRUE(WriteTmf(GivenMode({"08:05 100 J", "08:05 40"}), data));
  std::string expected("\0\0\0\0\5\0\0\0\3\0\0\0", 12);
  expected += std::string("\0\0\0\0\x08\x05", 6) + std::string(38, '\0');
  expected += std::string("\x64\x28\0\0\0", 5) + std::string("\1\0\0\0\0", 5) + "\xCC\xCC";
  EXPECT_EQ(data, expected);
}

TEST(Tmf, OfAnEmptyModeIsAHeaderAloneThatCannotBeReadBack) {
  std::string data;
  EXPECT_TRUE(WriteTmf(Mode{}, data));
  EXPECT_THAT(data, SizeIs(12));
  StatusLines log;
  Mode mode;
  EXPECT_FALSE(ReadTmf(data, mode));
  EXPECT_THAT(log.Take(), ElementsAre("Invalid file format"));
}

TEST(Tmf, OfAnotherSizeIsNone) {
  StatusLines log;
  const std::string good = TmfFile({{8, 0, 50}, {9, 0, 60}});
  for (std::size_t size = 0; size <= good.size(); ++size) {
    Mode mode;
    const bool isWhole = size == 68 || size == 124;
    EXPECT_EQ(ReadTmf(good.substr(0, size), mode), isWhole) << size;
    EXPECT_EQ(mode.channels.front().empty(), !isWhole) << size;
  }
  EXPECT_THAT(log.Take(), Each("Invalid file format"));
}

TEST(Tmf, OfOneRowGivesOneStepInEachChannel) {
  Mode mode;
  ASSERT_TRUE(ReadTmf(TmfFile({{7, 30, 25, 1}}), mode));
  for (const auto& channel : mode.channels) EXPECT_EQ(Told(channel), "07:30 25 J");
}

TEST(Tmf, Of49RowsGivesTheFirst48AndALine) {
  StatusLines log;
  std::vector<TmfRow> rows;
  rows.reserve(49);
  for (int i = 0; i < 48; ++i) rows.push_back({1 + i / 4, i % 4 * 15, i});
  Mode whole;
  ASSERT_TRUE(ReadTmf(TmfFile(rows), whole));
  EXPECT_THAT(log.Take(), IsEmpty());
  rows.push_back({0, 30, 99});  // the first of the day, but the last of the file: it is not looked at
  Mode mode;
  ASSERT_TRUE(ReadTmf(TmfFile(rows), mode));
  EXPECT_THAT(log.Take(), ElementsAre("TMF max number of steps exceeded. Limiting to 48"));
  EXPECT_EQ(mode.channels, whole.channels);
  for (const auto& channel : mode.channels) ASSERT_THAT(channel, SizeIs(48));
}

TEST(Tmf, OfMoreThan48RowsIsWrittenWhole) {
  std::string data;
  WriteTmf(GivenModeOfMergedSteps(60, 20), data);
  EXPECT_THAT(data, SizeIs(12 + 56 * 60));
}

TEST(Tmf, BytesOutOfRangeComeIntoIt) {
  Mode mode;
  ASSERT_TRUE(ReadTmf(TmfFile({{30, 0, 200, 2}}), mode));
  EXPECT_EQ(Told(mode.channels[2]), "23:59 100");  // and only the flag 1 is a jump
}

TEST(Tmf, RowsInAnyOrderAreSortedAndDoublesStay) {
  Mode mode;
  ASSERT_TRUE(ReadTmf(TmfFile({{9, 0, 1}, {8, 0, 2}, {9, 0, 3}}), mode));
  EXPECT_EQ(Told(mode.channels[0]), "08:00 2, 09:00 1, 09:00 3");
}

TEST(Tmf, EveryStepHasASerialOfItsOwn) {
  Mode mode;
  ASSERT_TRUE(ReadTmf(TmfFile({{8, 0, 2}, {9, 0, 3}}), mode));
  EXPECT_NE(Serial(mode.channels[0], 0), Serial(mode.channels[0], 1));
  EXPECT_NE(Serial(mode.channels[0], 0), Serial(mode.channels[4], 0));
}

TEST(Tmf, WrittenAndReadBackKeepsTheMergedTable) {
  const Mode mode =
      GivenMode({"08:00 0, 12:00 80 J, 20:00 10.7", "06:30 5 J, 21:00 100", "00:00 50, 23:59 50"});
  std::string data;
  WriteTmf(mode, data);
  Mode back;
  ASSERT_TRUE(ReadTmf(data, back));
  const auto before = Rows(mode);
  const auto after = Rows(back);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(after[i].values, before[i].values) << i;
    EXPECT_EQ(after[i].jumps, before[i].jumps) << i;
  }
  for (const auto& channel : back.channels)
    for (const auto& step : channel) EXPECT_EQ(step.value, static_cast<float>(TruncateToInt(step.value)));
}

TEST(Lmf, OfAnotherSizeIsNone) {
  for (const std::size_t size : {0U, 959U, 961U, 1920U}) {
    StatusLines log;
    Mode mode;
    EXPECT_FALSE(ReadLmf(std::string(size, '\0'), mode)) << size;
    EXPECT_THAT(mode.channels.front(), IsEmpty());
    EXPECT_THAT(log.Take(), ElementsAre("Invalid file format"));
  }
}

TEST(Lmf, OfZerosIsTwoDarkStepsAtTheEndOfTheDay) {
  Mode mode;
  ASSERT_TRUE(ReadLmf(std::string(960, '\0'), mode));
  for (const auto& channel : mode.channels) EXPECT_EQ(Told(channel), "23:00 0, 23:30 0");
}

TEST(Lmf, KeepsPercentsWithTheHalvesOfTheByteExchanged) {
  const struct {
    char stored;
    float percent;
  } rows[] = {{'\x46', 100.0F}, {'\xA0', 10.0F}, {'\xFF', 100.0F}, {'\x00', 0.0F}, {'\x10', 1.0F}};
  for (const auto& [stored, percent] : rows) {
    std::string data(960, '\0');
    data[20 * 3 + 4 * 1] = stored;                   // 01:30, channel 2
    data.replace(20 * 3 + 4 * 1 + 1, 3, 3, '\x7F');  // nobody reads these
    Mode mode;
    ASSERT_TRUE(ReadLmfSteps(data, mode));
    ASSERT_THAT(mode.channels[1], SizeIs(48));
    EXPECT_EQ(mode.channels[1][3].value, percent);
    EXPECT_EQ(MinuteOfDay(mode.channels[1][3]), 90);
    EXPECT_EQ(mode.channels[0][3].value, 0.0F);
  }
}

// 61 percent half an hour after nothing: the curve arrives there at 60.99999.
TEST(Lmf, BringsWholePercentsOfTheCurveAndNotTheFiles) {
  std::string data(960, '\0');
  data[20] = '\xD3';
  Mode mode;
  ASSERT_TRUE(ReadLmf(data, mode));
  EXPECT_EQ(Told(mode.channels[0]), "00:00 0, 00:30 60, 01:00 0");
}

TEST(Lmf, HasARowForEachHalfHour) {
  std::string data;
  EXPECT_TRUE(WriteLmf(GivenMode({"00:00 10, 12:00 10", "09:00 100, 17:00 100"}), data));
  std::string row("\xA0\0\0\0\x46", 5);
  row.resize(20);
  std::string expected;
  for (int i = 0; i < 48; ++i) expected += row;
  EXPECT_EQ(data, expected);
}

TEST(Lmf, SpreadsAJumpOverTheHalfHoursAroundIt) {
  std::string data;
  WriteLmf(GivenMode({"00:00 0 J, 10:10 100 J"}), data);
  EXPECT_EQ(data[std::size_t{20} * 20], '\0');    // 10:00
  EXPECT_EQ(data[std::size_t{21} * 20], '\x46');  // 10:30
}

TEST(Lmf, WrittenAndReadBackKeepsTheCornersOfACurve) {
  std::string data;
  WriteLmf(GivenMode({"08:00 0, 12:00 80, 20:00 0"}), data);
  Mode back;
  ASSERT_TRUE(ReadLmf(data, back));
  // The first of the straight stretches goes, up to where the curve bends.
  EXPECT_EQ(Told(back.channels[0]), "08:00 0, 12:00 80, 20:00 0");
}

TEST(Raw, OfAnEmptyModeIsZeros) {
  std::string data;
  EXPECT_TRUE(WriteRaw(Mode{}, data));
  EXPECT_EQ(data, std::string(432000, '\0'));
}

TEST(Raw, IsEverySecondOfTheDayWhateverTheMode) {
  std::string data = "what was there before";
  for (const std::int32_t steps : {0, 1, 2, 48, 2000}) {
    EXPECT_TRUE(WriteRaw(RandomProgram(1).AscendingMode(steps), data));
    EXPECT_THAT(data, SizeIs(432000)) << steps;
    EXPECT_TRUE(WriteRaw(RandomProgram(1).AnyMode(steps), data));
    EXPECT_THAT(data, SizeIs(432000)) << steps;
  }
}

TEST(Raw, ShowsFadesAndJumpsToTheTruncation) {
  std::string data;
  WriteRaw(GivenMode({"08:00 0, 08:01 60", "08:00 80 J, 08:01 0", "08:00 55.9"}), data);
  const auto row = [&data](std::size_t second) { return data.substr(second * 5, 5); };
  constexpr std::size_t kEight = std::size_t{8} * 3600;
  EXPECT_EQ(row(kEight), std::string("\x00\x50\x37\0\0", 5));
  EXPECT_EQ(row(kEight + 30), std::string("\x1E\x50\x37\0\0", 5));
  EXPECT_EQ(row(kEight + 59), std::string("\x3B\x50\x37\0\0", 5));
  EXPECT_EQ(row(kEight + 60), std::string("\x3C\x00\x37\0\0", 5));
}

}  // namespace
