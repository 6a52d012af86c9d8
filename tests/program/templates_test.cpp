#include "program/templates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "program/resample.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

using testing::ElementsAre;

TEST(Templates, AreFive) {
  std::vector<std::string> ids;
  for (const ProgramTemplate* const each : ProgramTemplates()) ids.emplace_back(each->id);
  EXPECT_THAT(ids, ElementsAre("reef", "planted-tank", "seedlings", "refugium", "blackwater"));
}

TEST(Templates, AreFoundById) {
  EXPECT_EQ(FindTemplate("refugium"), &kRefugiumTemplate);
  EXPECT_EQ(FindTemplate("Refugium"), nullptr);
  EXPECT_EQ(FindTemplate(""), nullptr);
}

TEST(Templates, BecomeAModeAndTheOneForCleaning) {
  const ModeListView document = NewProgramFrom(kReefTemplate);
  ASSERT_EQ(document.modes.size(), 2U);
  EXPECT_EQ(document.modes[0].name, "Reef");
  EXPECT_THAT(document.modes[0].description, testing::StartsWith("For corals: "));
  EXPECT_EQ(document.modes[1].name, "AlwaysOn");
  EXPECT_EQ(document.currentMode, 0);
  EXPECT_EQ(document.channelInfos[0].name, "Royal blue");
  EXPECT_EQ(document.channelInfos[0].color, 0xFF3C5AFFU);
  EXPECT_EQ(Told(document.modes[0].channels[0]), "09:00 0, 11:00 80, 19:00 80, 21:30 0");
}

TEST(Templates, GoOnOverMidnight) {
  const Channel channel = NewProgramFrom(kRefugiumTemplate).modes[0].channels[0];
  EXPECT_EQ(Told(channel), "07:30 70, 08:00 0, 20:00 0, 20:30 70");
  EXPECT_EQ(ChannelValueAt(channel, 0), 70.0F);
  EXPECT_EQ(ChannelValueAt(channel, std::int64_t{12} * 3600), 0.0F);
}

class EachTemplate : public testing::TestWithParam<const ProgramTemplate*> {
 protected:
  const ModeListView document_ = NewProgramFrom(*GetParam());
  const Mode& mode_ = document_.modes[0];
};

TEST_P(EachTemplate, FitsAnyController) {
  EXPECT_LE(CountModeSteps(mode_), kManyModeSteps);
  EXPECT_GE(CountModeSteps(mode_), 4);
}

TEST_P(EachTemplate, IsTheSameToTheMinuteOnATC421) {
  Mode resampled;
  ResampleHalfHour(mode_, resampled);
  EXPECT_LE(CountModeSteps(resampled), kMaxModeSteps);
  for (std::size_t i = 0; i < mode_.channels.size(); ++i) {
    for (std::int32_t second = 0; second < kSecondsPerDay; second += kSecondsPerMinute) {
      // A TC421 knows whole percents.
      ASSERT_NEAR(ChannelValueAt(resampled.channels[i], second), ChannelValueAt(mode_.channels[i], second),
                  1.0F)
          << "channel " << i << " at " << second;
    }
  }
}

TEST_P(EachTemplate, HasStepsOnHalfHoursInOrderThatFade) {
  std::set<std::uint32_t> serials;
  for (const Channel& channel : mode_.channels) {
    ASSERT_EQ(channel.size(), 4U);
    std::int64_t before = -1;
    for (const Step& step : channel) {
      EXPECT_GT(MinuteOfDay(step), before);
      EXPECT_EQ(MinuteOfDay(step) % 30, 0);
      EXPECT_FALSE(step.jump);
      EXPECT_GE(step.value, 0.0F);
      EXPECT_LE(step.value, 100.0F);
      serials.insert(step.id);
      before = MinuteOfDay(step);
    }
  }
  EXPECT_EQ(serials.size(), 20U) << "each step has an id of its own";
  EXPECT_EQ(serials.count(0), 0U);
}

TEST_P(EachTemplate, NamesAndColoursItsChannels) {
  std::set<std::string> names;
  std::set<std::uint32_t> colors;
  for (const ChannelInfo& info : document_.channelInfos) {
    names.insert(info.name);
    colors.insert(info.color);
    EXPECT_EQ(info.color >> 24, 0xFFU);
  }
  EXPECT_EQ(names.size(), 5U);
  EXPECT_EQ(colors.size(), 5U);
}

INSTANTIATE_TEST_SUITE_P(All, EachTemplate,
                         testing::ValuesIn(ProgramTemplates().begin(), ProgramTemplates().end()),
                         [](const auto& test) {
                           std::string name(test.param->id);
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
}  // namespace program_test
