// Several steps selected together, and what is done to them at once.

#include "program/step_group.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

using Ids = std::vector<std::uint32_t>;

class SeveralSteps : public testing::Test {
 protected:
  void GivenChannels(std::initializer_list<std::string_view> channels) {
    document = GivenDocument(GivenMode(channels));
    std::uint32_t id = 0;
    for (Channel& channel : document.modes[0].channels)
      for (Step& step : channel) step.id = ++id;
  }
  void GivenSelection(std::int32_t channel, std::int32_t step, Ids ids) {
    selection.channel = channel;
    selection.step = step;
    group.Set(std::move(ids));
  }
  std::string StepsOf(std::size_t channel) const { return Told(document.modes[0].channels[channel]); }

  ModeListView document;
  StepSelection selection{document};
  StepGroup group;
};

TEST_F(SeveralSteps, AGroupKeepsEachNumberOnceInOrder) {
  group.Set({7, 3, 7, 5});
  EXPECT_EQ(group.Ids(), (Ids{3, 5, 7}));
  group.Add(4);
  group.Add(4);
  group.Remove(7);
  group.Remove(9);
  EXPECT_EQ(group.Ids(), (Ids{3, 4, 5}));
  EXPECT_TRUE(group.Holds(4));
  EXPECT_FALSE(group.Holds(7));
  group.Clear();
  EXPECT_TRUE(group.Ids().empty());
}

TEST_F(SeveralSteps, AGroupCountsOnlyWhileTheSelectedStepIsOfIt) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3", "11:00 4"});
  const Channel& first = document.modes[0].channels[0];
  GivenSelection(0, 0, {1, 4});
  EXPECT_TRUE(IsGroupSelected(selection, group));
  EXPECT_TRUE(IsStepSelected(selection, group, document.modes[0].channels[1][0]));
  EXPECT_FALSE(IsStepSelected(selection, group, first[1]));
  EXPECT_EQ(SelectedStepIds(selection, group), (Ids{1, 4}));

  GivenSelection(0, 1, {1, 4});
  EXPECT_FALSE(IsGroupSelected(selection, group));
  EXPECT_TRUE(IsStepSelected(selection, group, first[1]));
  EXPECT_FALSE(IsStepSelected(selection, group, first[0]));
  EXPECT_EQ(SelectedStepIds(selection, group), (Ids{2}));

  GivenSelection(0, -1, {1, 4});
  EXPECT_FALSE(IsGroupSelected(selection, group));
  EXPECT_TRUE(SelectedStepIds(selection, group).empty());
}

TEST_F(SeveralSteps, NumbersWhoseStepsHaveGoneAreNobodys) {
  GivenChannels({"08:00 1, 09:00 2"});
  GivenSelection(0, 0, {1, 99});
  EXPECT_EQ(SelectedStepIds(selection, group), (Ids{1}));
  EXPECT_EQ(FindStep(document, 2), (StepPlace{0, 1}));
  EXPECT_EQ(FindStep(document, 99), StepPlace{});
  document.currentMode = 5;
  EXPECT_EQ(FindStep(document, 2), StepPlace{});
  EXPECT_TRUE(SelectedStepIds(selection, group).empty());
}

TEST_F(SeveralSteps, AllOfThemAreDeletedInAllChannels) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3, 11:00 4", "08:00 5, 09:00 6, 10:00 7"});
  GivenSelection(0, 2, {2, 3, 5});
  const StepsDeleted result = DeleteSelectedSteps(selection, group);
  EXPECT_EQ(result.deleted, 3);
  EXPECT_EQ(result.kept, 0);
  EXPECT_EQ(StepsOf(0), "08:00 1, 11:00 4");
  EXPECT_EQ(StepsOf(1), "09:00 6, 10:00 7");
  EXPECT_TRUE(group.Ids().empty());
  EXPECT_EQ(selection.step, 1) << "the last that is left";
}

TEST_F(SeveralSteps, TwoStepsStayInEachChannel) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3, 11:00 4", "08:00 5, 09:00 6", "08:00 7"});
  GivenSelection(0, 0, {1, 2, 3, 4, 5, 6, 7});
  const StepsDeleted result = DeleteSelectedSteps(selection, group);
  EXPECT_EQ(result.deleted, 2);
  EXPECT_EQ(result.kept, 5);
  EXPECT_EQ(StepsOf(0), "10:00 3, 11:00 4");
  EXPECT_EQ(StepsOf(1), "08:00 5, 09:00 6");
  EXPECT_EQ(StepsOf(2), "08:00 7");
}

TEST_F(SeveralSteps, NothingIsDeletedWhereNoneIsSelected) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3"});
  GivenSelection(0, -1, {1, 2});
  EXPECT_EQ(DeleteSelectedSteps(selection, group).deleted, 0);
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2, 10:00 3");
}

TEST_F(SeveralSteps, WhatIsNotSelectedDoesNotMove) {
  GivenChannels({"08:00 1, 09:00 2", "11:00 4"});
  GivenSelection(0, 0, {1, 3});
  StepSelection nothing{document};
  const StepMove none(nothing, StepGroup());
  none.MoveTo(selection, 60, 10.0F);
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2") << "nothing was selected when the move began";

  const StepMove move(selection, group);
  selection.step = -1;
  move.MoveTo(selection, 60, 10.0F);
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2") << "nothing is selected any more";
  EXPECT_EQ(StepsOf(1), "11:00 4");
}

TEST_F(SeveralSteps, AllJumpOrAllFade) {
  GivenChannels({"08:00 1 J, 09:00 2, 10:00 3", "08:00 4"});
  GivenSelection(0, 1, {1, 2, 4});
  SetSelectedJumps(selection, group, true);
  EXPECT_EQ(StepsOf(0), "08:00 1 J, 09:00 2 J, 10:00 3");
  EXPECT_EQ(StepsOf(1), "08:00 4 J");
  SetSelectedJumps(selection, group, false);
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2, 10:00 3");
}

TEST_F(SeveralSteps, TheyMoveByTheSameTimeAndPercent) {
  GivenChannels({"08:00 10, 09:00 20, 10:00 30", "12:00 40"});
  GivenSelection(0, 0, {1, 2, 4});
  const StepMove move(selection, group);
  move.MoveTo(selection, 30, 5.0F);
  EXPECT_EQ(StepsOf(0), "08:30 15, 09:30 25, 10:00 30");
  EXPECT_EQ(StepsOf(1), "12:30 45");
  move.MoveTo(selection, -60, 0.0F);
  EXPECT_EQ(StepsOf(0), "07:00 10, 08:00 20, 10:00 30") << "from where they were first";
}

TEST_F(SeveralSteps, TheyPassOthersAndTheSelectionGoesWithItsStep) {
  GivenChannels({"08:00 10, 09:00 20, 10:00 30"});
  GivenSelection(0, 0, {1, 2});
  StepMove(selection, group).MoveTo(selection, 90, 0.0F);
  EXPECT_EQ(StepsOf(0), "09:30 10, 10:00 30, 10:30 20");
  EXPECT_EQ(selection.step, 0);
  GivenSelection(0, 0, {1});
  StepMove(selection, group).MoveTo(selection, 120, 0.0F);
  EXPECT_EQ(selection.step, 2);
}

TEST_F(SeveralSteps, TheEndsOfTheDayStopAllOfThem) {
  GivenChannels({"08:00 10, 20:00 20"});
  GivenSelection(0, 0, {1, 2});
  const StepMove move(selection, group);
  move.MoveTo(selection, 600, 0.0F);
  EXPECT_EQ(StepsOf(0), "11:59 10, 23:59 20");
  move.MoveTo(selection, -600, 0.0F);
  EXPECT_EQ(StepsOf(0), "00:00 10, 12:00 20");
}

TEST_F(SeveralSteps, PercentsStopEachForItselfAndComeBack) {
  GivenChannels({"08:00 10, 20:00 90"});
  GivenSelection(0, 0, {1, 2});
  const StepMove move(selection, group);
  move.MoveTo(selection, 0, 40.0F);
  EXPECT_EQ(StepsOf(0), "08:00 50, 20:00 100");
  move.MoveTo(selection, 0, 5.0F);
  EXPECT_EQ(StepsOf(0), "08:00 15, 20:00 95");
}

TEST_F(SeveralSteps, StepsOutOfAllBoundsDoNoHarm) {
  constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
  constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
  for (const std::int64_t minutes : {std::numeric_limits<std::int64_t>::max() / 4, std::int64_t{-90}}) {
    GivenChannels({"08:00 10, 20:00 90"});
    Channel& channel = document.modes[0].channels[0];
    channel.push_back({kMost, kMost, std::numeric_limits<float>::quiet_NaN(), false, 3});
    channel.push_back({kLeast, kLeast, std::numeric_limits<float>::infinity(), true, 4});
    GivenSelection(0, 0, {1, 2, 3, 4});
    StepMove(selection, group).MoveTo(selection, minutes, 1e38F);
    for (const Step& step : channel) {
      EXPECT_GE(MinuteOfDay(step), 0);
      EXPECT_LT(MinuteOfDay(step), kMinutesPerDay);
    }
  }
}

}  // namespace
}  // namespace program_test
