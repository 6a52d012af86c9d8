// Changing many steps: what the chart shows while the dialog stands open, and what is left of it behind.

#include "dialogs/dialog_template.h"
#include "program/step_group.h"
#include "tests/app/app_test.h"

namespace {

using namespace dialogs::change_steps_control;
using namespace in_dialog;
using dialogs::kOk;
namespace command = app::command;

class ChangeSteps : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
    GivenSteps(1, {{8 * 60, 0.0F}, {10 * 60, 80.0F}, {20 * 60, 80.0F}, {22 * 60, 0.0F}});
    GivenSelection(1, 1);
    before_ = Program();
  }

  // The first step's time of the channel, as the chart would show it now.
  std::string FirstTime() { return ToTimeText(Channel(1).front()); }
  DialogStep See(std::vector<std::string>& times) {
    return Meanwhile([this, &times] { times.push_back(FirstTime()); });
  }

  TCBase::Program::ModeListView before_;
};

TEST_F(ChangeSteps, EachAnswerIsShownAtOnce) {
  std::vector<std::string> times;
  user.WillFill({Type(kFirst, "1:30"), See(times), Type(kFirst, "-60"), See(times), Type(kFirst, "x"),
                 See(times), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_THAT(times, testing::ElementsAre("09:30", "07:00", "08:00"));
}

TEST_F(ChangeSteps, CancelGivesAllBack) {
  const std::uint32_t id = Channel(1)[1].id;
  user.WillFill({Type(kFirst, "15:00"), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_TRUE(Program() == before_);
  EXPECT_EQ(Channel(1)[1].id, id);
  EXPECT_EQ(user.State().selection.step, 1);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChangeSteps, OkIsOneEntryOfTheHistory) {
  const std::uint32_t id = Channel(1)[1].id;
  user.WillFill({Type(kFirst, "5"), Type(kFirst, "15:00"), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_EQ(FirstTime(), "01:00");
  EXPECT_EQ(NewLog(), "Steps changed: 4 of 4. Rows of the mode: 16 of 48.\n");
  EXPECT_EQ(UndoDepth(), 1);
  ASSERT_NE(SelectedStep(user.State().selection), nullptr);
  EXPECT_EQ(SelectedStep(user.State().selection)->id, id) << "the selection goes with its step";
  ASSERT_TRUE(user.Choose(command::kUndo));
  EXPECT_TRUE(Program() == before_);
  ASSERT_TRUE(user.Choose(command::kRedo));
  EXPECT_EQ(FirstTime(), "01:00");
}

TEST_F(ChangeSteps, WhatChangesNothingIsNoEntry) {
  user.WillFill({Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChangeSteps, SeveralSelectedStepsAreTheScopeAtFirst) {
  user.State().stepGroup.Set({Channel(1)[1].id, Channel(1)[2].id});
  user.WillFill({Type(kFirst, "30"), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_EQ(FirstTime(), "08:00");
  EXPECT_EQ(ToTimeText(Channel(1)[1]), "10:30");
  EXPECT_EQ(ToTimeText(Channel(1)[2]), "20:30");
  EXPECT_TRUE(IsGroupSelected(user.State().selection, user.State().stepGroup));
}

TEST_F(ChangeSteps, WithoutASelectionAllChannelsAreMeant) {
  GivenSelection(-1, -1);
  user.WillFill({Look(), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_EQ(user.Dialogs().back().controls.at(kWhich).rows, std::vector<std::string>{"All channels"});
}

TEST_F(ChangeSteps, TheChartIsPaintedAndTheDescriptionTold) {
  std::string told;
  user.WillFill({Type(kFirst, "0:07"), Meanwhile([&] { told = user.Text(app::Control::ModeDescription); }),
                 PressEscape()});
  const std::string before = user.Text(app::Control::ModeDescription);
  NewJournal();
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_NE(told, before);
  EXPECT_EQ(user.Text(app::Control::ModeDescription), before);
}

TEST_F(ChangeSteps, IsNotThereDuringADemo) {
  GivenDemoAt(3600);
  user.State().Refresh(app::part::kMenusInDemo);
  EXPECT_FALSE(user.Choose(command::kChangeSteps));
}

}  // namespace
