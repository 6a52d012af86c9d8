// The cells of the step table, and steps on the clipboard.

#include "app/table/step_cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/table/step_clipboard.h"
#include "program/steps_text.h"

namespace {

using namespace TCBase::Program;
using app::PastedSteps;
using app::StepsFromClipboard;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(StepCells, PercentsAreExactOrCutOff) {
  EXPECT_EQ(app::ExactPercent(47.23618F), "47.23618");
  EXPECT_EQ(app::ShownPercent(47.23618F), "47.23");
  EXPECT_EQ(app::ShownPercent(99.9999F), "99.99");
  EXPECT_EQ(app::ShownPercent(47.1F), "47.1");
  EXPECT_EQ(app::ShownPercent(40.001F), "40");
  EXPECT_EQ(app::ShownPercent(100.0F), "100");
  EXPECT_EQ(app::ShownPercent(0.0F), "0");
}

TEST(StepCells, StayCalmWithAnyFloat) {
  for (const float value : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest(),
                            std::numeric_limits<float>::denorm_min()}) {
    EXPECT_FALSE(app::ShownPercent(value).empty());
    EXPECT_FALSE(app::ExactPercent(value).empty());
  }
}

TEST(StepCells, EachTimeOfTheDayIsReadBack) {
  for (std::int32_t minute = 0; minute < kMinutesPerDay; ++minute) {
    const TimeOfDay time = TimeOfDayAtMinute(minute);
    EXPECT_EQ(app::TimeFromText(TimeText(time)), time);
  }
}

TEST(StepCells, WordsGoByTheirBeginning) {
  EXPECT_EQ(app::JumpFromText(" JU "), true);
  EXPECT_EQ(app::JumpFromText("fad"), false);
  for (const char* const text : {"", " ", "x", "jumper", "fades"})
    EXPECT_EQ(app::JumpFromText(text), std::nullopt) << text;
}

Channel AnyChannel(std::mt19937& random) {
  Channel channel;
  for (std::int32_t minute = 0; minute < kMinutesPerDay;
       minute += 1 + static_cast<std::int32_t>(random() % 200)) {
    const TimeOfDay time = TimeOfDayAtMinute(minute);
    channel.push_back(
        {time.hour, time.minute, static_cast<float>(random() % 100001) / 1000.0F, random() % 2 == 0});
  }
  return channel;
}

TEST(StepClipboard, GivesBackWhatItTook) {
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    const Channel channel = AnyChannel(random);
    const PastedSteps pasted = StepsFromClipboard(app::StepsForClipboard(channel));
    EXPECT_EQ(pasted.wrongLine, 0);
    EXPECT_EQ(pasted.steps, channel);
  }
}

// The dialog "Manual steps add..." reads the same text, in whole percents.
TEST(StepClipboard, IsTheTextThatOneTypes) {
  std::mt19937 random(2);
  for (int round = 0; round < 200; ++round) {
    Channel channel = AnyChannel(random);
    std::vector<Step> typed;
    EXPECT_EQ(ParseStepsText(Utf8FromWide(app::StepsForClipboard(channel)), typed), 0);
    for (Step& step : channel) step.value = static_cast<float>(static_cast<int>(step.value));
    EXPECT_EQ(typed, channel);
    EXPECT_EQ(StepsFromClipboard(StepsToText(channel)).steps, channel);
  }
}

TEST(StepClipboard, KeepsTheLastOfAMinute) {
  EXPECT_THAT(StepsFromClipboard(u"9:00 1\n8:00 2\n9:00 3").steps,
              ElementsAre(Step{8, 0, 2.0F}, Step{9, 0, 3.0F}));
}

TEST(StepClipboard, TellsTheLineThatIsNoStep) {
  EXPECT_EQ(StepsFromClipboard(u"8:00 1\r\n\r\nTime Percent\r\n9:99 1").wrongLine, 4);
  EXPECT_EQ(StepsFromClipboard(u"8:00\t1\r9:00\t\r").wrongLine, 2);
  EXPECT_EQ(StepsFromClipboard(u"5").wrongLine, 1);
  EXPECT_THAT(StepsFromClipboard(u"").steps, IsEmpty());
}

TEST(StepClipboard, StaysCalmWithAnyText) {
  std::mt19937 random(3);
  constexpr std::u16string_view kUnits = u"0123456789:;.,%J \t\r\n\xD800\xFFFD-";
  for (int round = 0; round < 2000; ++round) {
    std::u16string text;
    for (std::size_t length = random() % 60; length > 0; --length) text += kUnits[random() % kUnits.size()];
    for (const Step& step : StepsFromClipboard(text).steps) {
      EXPECT_GE(step.value, 0.0F);
      EXPECT_LE(step.value, 100.0F);
      EXPECT_LT(step.hour, 24);
    }
  }
  EXPECT_NE(StepsFromClipboard(std::u16string(std::size_t{20} << 20, u'1')).wrongLine, 0);
}

}  // namespace
