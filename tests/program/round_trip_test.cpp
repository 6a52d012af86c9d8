// Programs into their own file and back, and modes into those of other tools: what stays, and what does not.
// A file holds whole percents. The tools' files ask the curve for them, not the steps. The curve is worked
// out in floats and can arrive at a step just below the step's own value, so that the whole percent there is
// one less: from 0 to 61 within half an hour it arrives at 60.99999. That order of the arithmetic is fixed,
// since controllers are given the same numbers, and therefore stays.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "program/lmf.h"
#include "program/program_file.h"
#include "program/raw.h"
#include "program/tmf.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/run_length.h"

namespace {

using namespace program_test;
using testing::SizeIs;

std::string Tmf(const Mode& mode) {
  std::string data;
  WriteTmf(mode, data);
  return data;
}

Mode FromTmf(const std::string& data) {
  Mode mode;
  EXPECT_TRUE(ReadTmf(data, mode));
  return mode;
}

std::string Lmf(const Mode& mode) {
  std::string data;
  WriteLmf(mode, data);
  return data;
}

Mode FromLmf(const std::string& data) {
  Mode mode;
  EXPECT_TRUE(ReadLmf(data, mode));
  return mode;
}

// What a file keeps of a value: its low byte, and of that no more than 100.
int Kept(int value) {
  return std::min(value & 0xFF, 100);
}

// The percent of a half hour in an LMF file.
int LmfPercent(const std::string& data, std::size_t halfHour, std::size_t channel) {
  const auto byte = static_cast<unsigned char>(data[halfHour * 20 + channel * 4]);
  return (byte << 4 | byte >> 4) & 0xFF;
}

// Whether the whole percent of the curve at one of its steps is less than the step's. Just below 0 is still
// 0.
bool ArrivesBelow(const Channel& channel, const Step& step) {
  return step.value > 0.0F && ChannelValueAt(channel, SecondOfDay(step)) < step.value;
}

// Names as people write them, and as nobody does.
std::string AnyText(RandomProgram& random) {
  static constexpr const char* kPieces[] = {"Reef", " ",  "ä",  "&amp;", "<",  ">",
                                            "'",    "\"", "日", "]]>",   "\t", "-->"};
  std::string text = "x";
  for (std::int32_t left = random.Below(6); left > 0; --left) text += kPieces[random.Below(12)];
  return text + "x";
}

ModeListView AnyProgram(std::uint32_t seed) {
  RandomProgram random(seed);
  ModeListView program = NewProgram();
  program.modes.clear();
  for (std::int32_t left = 1 + random.Below(4); left > 0; --left) {
    Mode& mode = program.modes.emplace_back(random.Below(2) == 0 ? random.AscendingMode(random.Below(20))
                                                                 : random.AnyMode(20));
    mode.name = AnyText(random);
    if (random.Below(2) == 0) mode.description = AnyText(random);
  }
  for (ChannelInfo& info : program.channelInfos) {
    info.name = AnyText(random);
    info.color = 0xFF000000 | static_cast<std::uint32_t>(random.Below(0x1000000));
  }
  return program;
}

ModeListView FromXml(const ModeListView& program) {
  ovk::xml::element written;
  BuildProgramXml(program, written);
  ovk::string text;
  ovk::xml::serialize(text, written, 0);
  ovk::xml::element read;
  EXPECT_TRUE(ovk::xml::parse(read, text.c_str(), static_cast<std::size_t>(text.length())));
  ovk::xml::trim(read);
  ModeListView back = NewProgram();
  EXPECT_TRUE(ReadProgramXml(read, back));
  return back;
}

TEST(XmlRoundTrip, AProgramComesBackWithWholePercentsAndThenAsItWas) {
  for (std::uint32_t seed = 0; seed < Rounds(100, 100'000); ++seed) {
    const ModeListView program = AnyProgram(seed);
    const ModeListView back = FromXml(program);
    ASSERT_EQ(back.modes.size(), program.modes.size()) << "seed " << seed;
    for (std::size_t m = 0; m < back.modes.size(); ++m) {
      ASSERT_EQ(back.modes[m].name, program.modes[m].name) << "seed " << seed;
      ASSERT_EQ(back.modes[m].description, program.modes[m].description) << "seed " << seed;
      for (std::size_t c = 0; c < back.modes[m].channels.size(); ++c) {
        const Channel& before = program.modes[m].channels[c];
        const Channel& after = back.modes[m].channels[c];
        ASSERT_THAT(after, SizeIs(before.size())) << "seed " << seed;
        for (std::size_t i = 0; i < after.size(); ++i) {
          Step expected = before[i];
          expected.value = static_cast<float>(TruncateToInt(before[i].value));
          ASSERT_EQ(after[i], expected) << "seed " << seed;
        }
      }
    }
    for (std::size_t i = 0; i < back.channelInfos.size(); ++i) {
      ASSERT_EQ(back.channelInfos[i].name, program.channelInfos[i].name) << "seed " << seed;
      ASSERT_EQ(back.channelInfos[i].color, program.channelInfos[i].color) << "seed " << seed;
    }
    ASSERT_EQ(FromXml(back), back) << "seed " << seed;
  }
}

// Nothing reads it, so some seconds of each are held against the curve.
TEST(RawRoundTrip, EachSecondIsTheCurvesWholePercent) {
  StatusLines log;
  std::string data;
  for (std::uint32_t seed = 0; seed < Rounds(3, 100'000); ++seed) {
    RandomProgram random(seed);
    const Mode mode = random.AscendingMode(1 + static_cast<std::int32_t>(seed % 14));
    ASSERT_TRUE(WriteRaw(mode, data));
    ASSERT_THAT(data, SizeIs(5 * kSecondsPerDay));
    for (int i = 0; i < 20; ++i) {
      const std::int32_t second = random.Below(kSecondsPerDay);
      for (std::size_t c = 0; c < mode.channels.size(); ++c) {
        const int percent = TruncateToInt(ChannelValueAt(mode.channels[c], second));
        ASSERT_EQ(data[static_cast<std::size_t>(second) * 5 + c], static_cast<char>(percent))
            << "seed " << seed << " second " << second << " channel " << c;
      }
    }
  }
}

TEST(TmfRoundTrip, TheStepsAreTheRowsOfTheMergedTable) {
  StatusLines log;
  for (std::uint32_t seed = 0; seed < Rounds(300, 100'000); ++seed) {
    const Mode mode = RandomProgram(seed).AnyMode(25);
    std::vector<ModeStep> rows = Rows(mode);
    if (rows.empty()) continue;
    const Mode back = FromTmf(Tmf(mode));
    if (rows.size() > kMaxModeSteps) rows.resize(kMaxModeSteps);
    for (std::size_t channel = 0; channel < back.channels.size(); ++channel) {
      ASSERT_THAT(back.channels[channel], SizeIs(rows.size())) << "seed " << seed;
      for (std::size_t i = 0; i < rows.size(); ++i) {
        const Step& step = back.channels[channel][i];
        const Step expected = {rows[i].hour, rows[i].minute,
                               static_cast<float>(Kept(rows[i].values[channel])), rows[i].jumps[channel]};
        ASSERT_EQ(step, expected) << "seed " << seed << " row " << i << " channel " << channel;
      }
    }
  }
}

TEST(TmfRoundTrip, TheMergedTableStaysOrIsOneLessWhereTheCurveArrivesBelowAStep) {
  StatusLines log;
  int cells = 0;
  int less = 0;
  for (std::uint32_t seed = 0; seed < Rounds(500, 100'000); ++seed) {
    const Mode mode = RandomProgram(seed).AscendingMode(1 + static_cast<std::int32_t>(seed % 9));
    const std::vector<ModeStep> before = Rows(mode);
    const Mode back = FromTmf(Tmf(mode));
    const std::vector<ModeStep> after = Rows(back);
    ASSERT_THAT(after, SizeIs(before.size())) << "seed " << seed;
    for (std::size_t i = 0; i < before.size(); ++i) {
      ASSERT_EQ(after[i].hour * 60 + after[i].minute, before[i].hour * 60 + before[i].minute);
      ASSERT_EQ(after[i].jumps, before[i].jumps) << "seed " << seed;
      for (std::size_t channel = 0; channel < kChannelCount; ++channel) {
        const Step& step = back.channels[channel][i];
        const bool below = ArrivesBelow(back.channels[channel], step);
        ASSERT_EQ(after[i].values[channel], before[i].values[channel] - (below ? 1 : 0))
            << "seed " << seed << " row " << i << " channel " << channel;
        ++cells;
        less += below;
      }
    }
  }
  EXPECT_GT(less, 0);
  EXPECT_LT(less, cells / 100) << "and seldom";
}

TEST(TmfRoundTrip, FromNothingTo61InHalfAnHourArrivesAt60) {
  const Mode back = FromTmf(Tmf(GivenMode({"10:00 0, 10:30 61"})));
  EXPECT_EQ(Told(back.channels[0]), "10:00 0, 10:30 60") << "the curve, not the step, is written";
  EXPECT_EQ(Tmf(FromTmf(Tmf(back))), Tmf(back));
}

TEST(TmfRoundTrip, WrittenAgainItIsTheSameFileOrComesToBe) {
  StatusLines log;
  for (std::uint32_t seed = 0; seed < Rounds(100, 100'000); ++seed) {
    std::string data = Tmf(RandomProgram(seed).AscendingMode(1 + static_cast<std::int32_t>(seed % 9)));
    // Values only ever fall, and none below 0.
    std::string again = Tmf(FromTmf(data));
    for (int trips = 0; again != data && trips < 100; ++trips) {
      data = std::exchange(again, Tmf(FromTmf(again)));
    }
    EXPECT_EQ(again, data) << "seed " << seed;
  }
}

TEST(TmfRoundTrip, TheBuiltInModesGiveTheSameFileAgain) {
  for (const Mode& mode : NewProgram().modes) EXPECT_EQ(Tmf(FromTmf(Tmf(mode))), Tmf(mode)) << mode.name;
}

TEST(LmfRoundTrip, TheHalfHoursStayOrAreOneLess) {
  StatusLines log;
  for (std::uint32_t seed = 0; seed < Rounds(300, 100'000); ++seed) {
    const std::string data = Lmf(RandomProgram(seed).AscendingMode(2 + static_cast<std::int32_t>(seed % 14)));
    Mode back;
    ASSERT_TRUE(ReadLmfSteps(data, back));
    const std::string again = Lmf(back);
    for (std::size_t channel = 0; channel < kChannelCount; ++channel) {
      for (std::size_t i = 0; i < 48; ++i) {
        const Step& step = back.channels[channel][i];
        ASSERT_EQ(step.value, static_cast<float>(LmfPercent(data, i, channel)));
        const bool below = ArrivesBelow(back.channels[channel], step);
        ASSERT_EQ(LmfPercent(again, i, channel), LmfPercent(data, i, channel) - (below ? 1 : 0))
            << "seed " << seed << " row " << i << " channel " << channel;
      }
    }
  }
}

TEST(LmfRoundTrip, TheStepsThatAnImportLeavesStandOnTheFilesHalfHours) {
  StatusLines log;
  for (std::uint32_t seed = 0; seed < Rounds(300, 100'000); ++seed) {
    const std::string data = Lmf(RandomProgram(seed).AscendingMode(2 + static_cast<std::int32_t>(seed % 14)));
    Mode whole;
    ASSERT_TRUE(ReadLmfSteps(data, whole));
    for (std::size_t channel = 0; const Channel& steps : FromLmf(data).channels) {
      ASSERT_GE(steps.size(), 2U);
      for (const Step& step : steps) {
        ASSERT_EQ(MinuteOfDay(step) % 30, 0) << "seed " << seed;
        const float curve = ChannelValueAt(whole.channels[channel], SecondOfDay(step));
        ASSERT_EQ(step.value, static_cast<float>(static_cast<int>(curve))) << "seed " << seed;
      }
      ++channel;
    }
  }
}

// A step goes if the curve without it is less than one percent off at its own half hour. Where a curve bends
// slowly all the way, each is so near the line through its neighbours, but the line of the last ones is
// further from the first.
TEST(LmfRoundTrip, AnImportCanBeMoreThanOnePercentOffWhereACurveBendsSlowly) {
  Mode mode;
  for (int i = 0; i < 48; ++i) {
    const int percent = i * i * 100 / (47 * 47);
    for (Channel& channel : mode.channels)
      channel.push_back({i / 2, i % 2 * 30, static_cast<float>(percent)});
  }
  const std::string data = Lmf(mode);
  const std::string again = Lmf(FromLmf(data));
  int most = 0;
  for (std::size_t i = 0; i < 48; ++i)
    most = std::max(most, std::abs(LmfPercent(again, i, 0) - LmfPercent(data, i, 0)));
  EXPECT_EQ(most, 2);
}

TEST(LmfRoundTrip, ASlowRiseToThreePercentComesBackAsNothing) {
  std::string data = Lmf(GivenMode({"04:30 0, 06:00 3, 23:30 3"}));
  ASSERT_EQ(LmfPercent(data, 12, 0), 3);
  EXPECT_EQ(LmfPercent(Lmf(FromLmf(data)), 12, 0), 0);
}

TEST(LmfRoundTrip, StraightStretchesComeBackAsTheyWere) {
  for (const char* const steps :
       {"08:00 0, 12:00 80, 20:00 0", "00:00 50, 12:00 50", "06:00 0, 06:30 100, 18:00 100, 18:30 0"}) {
    const std::string data = Lmf(GivenMode({steps, steps, steps, steps, steps}));
    EXPECT_EQ(Lmf(FromLmf(data)), data) << steps;
  }
}

}  // namespace
