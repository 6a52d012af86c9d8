// The Channel menu's dialogs and colours, and the power of a channel by slider and wheel.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "program/channel_edit.h"
#include "tests/app/app_test.h"
#include "tests/program/program_fixture.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using headless::Focus;
using program_test::GivenChannel;
using program_test::Told;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
namespace command = app::command;
namespace name_id = dialogs::mode_name_control;
namespace steps_id = dialogs::add_steps_control;
namespace scroll = app::scroll;

class ChannelCommands : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
    Desk().chart.invalidated.clear();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  std::size_t Invalidations() { return Desk().chart.invalidated.size(); }
  void Choose(int number, DialogScript script) {
    user.WillFill(std::move(script));
    ASSERT_TRUE(user.Choose(number));
  }
  TCBase::Program::ChannelInfo& Info(std::size_t channel) { return Program().channelInfos.at(channel); }
};

// Name

TEST_F(ChannelCommands, RenamingAsksForNameAndDescription) {
  Info(3).name = "Blue";
  Info(3).description = "left lamp";
  GivenSelection(3, -1);
  Desk().focus = Focus::Chart;
  Choose(command::kRenameChannel, {Press(kCancel)});
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(1));
  EXPECT_EQ(seen[0].title, "Edit channel name");
  const UX::Rect anchor = user.State().chartLayout.DialogAnchorChart();
  EXPECT_EQ(seen[0].x, anchor.x + 50);
  EXPECT_EQ(seen[0].y, anchor.y + 50);
  const auto& controls = seen[0].controls;
  EXPECT_EQ(controls.at(name_id::kNameLabel).text, "Channel name (max 20 characters)");
  EXPECT_EQ(controls.at(name_id::kName).text, "Blue");
  EXPECT_EQ(controls.at(name_id::kDescriptionLabel).text, "Channel description");
  EXPECT_EQ(controls.at(name_id::kDescription).text, "left lamp");
  EXPECT_FALSE(controls.at(name_id::kCopyFrom).visible);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(Invalidations(), 0U);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

TEST_F(ChannelCommands, ARenamedChannelIsDrawnAnew) {
  GivenSelection(3, -1);
  NewJournal();
  Choose(command::kRenameChannel, {Type(name_id::kName, "1234567890123456789012345"),
                                   Type(name_id::kDescription, "left lamp"), Press(kOk)});
  EXPECT_EQ(Info(3).name, "12345678901234567890");
  EXPECT_EQ(Info(3).description, "left lamp");
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
  EXPECT_EQ(Invalidations(), 1U);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
  user.Choose(command::kUndo);
  EXPECT_EQ(Info(3).name, "");
}

TEST_F(ChannelCommands, ANameThatIsEmptiedStaysAndIsAnEntryAllTheSame) {
  Info(3).name = "Blue";
  GivenSelection(3, -1);
  Choose(command::kRenameChannel, {Type(name_id::kName, ""), Press(kOk)});
  EXPECT_EQ(Info(3).name, "Blue");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChannelCommands, WithoutAChannelNothingIsAsked) {
  for (const int channel : {-1, 5}) {
    GivenSelection(channel, 0);
    for (const int number : {command::kRenameChannel, command::kManualStepsAdd, command::kManualStepsEdit}) {
      user.SendCommand(number);
    }
  }
  EXPECT_THAT(user.Dialogs(), IsEmpty());
  EXPECT_EQ(UndoDepth(), 0);
}

// Colour

TEST_F(ChannelCommands, AColourOutsideThePaletteIsFollowedByItsFirst) {
  GivenSelection(1, -1);
  Info(1).color = 0xFF102030;
  Desk().focus = Focus::Chart;
  NewJournal();
  user.Choose(command::kChannelColor);
  EXPECT_EQ(Info(1).color, 0xFFFFFFFFU);
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
  EXPECT_EQ(Invalidations(), 1U);
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

// Steps as text

TEST_F(ChannelCommands, StepsAreAddedFromText) {
  Channel(1) = GivenChannel("08:00 10, 12:00 20");
  GivenSelection(1, -1);
  Choose(command::kManualStepsAdd, {Type(steps_id::kSteps, "10:00 80 J\n07:30 5"), Look(), Press(kOk)});
  EXPECT_EQ(Told(Channel(1)), "07:30 5, 08:00 10, 10:00 80 J, 12:00 20");
  EXPECT_THAT(user.Text(app::Control::ModeDescription),
              testing::HasSubstr("(Steps: " + std::to_string(CountModeSteps(Mode())) + ")"));
  EXPECT_EQ(NewLog(),
            "Added new step (Time: 10:00) (Strength: 80, Jump).\n"
            "Added new step (Time: 07:30) (Strength: 5).\n");
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_EQ(Invalidations(), 1U);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(2));
  EXPECT_EQ(seen[0].title, "Manual steps add...");
  EXPECT_EQ(seen[0].controls.at(steps_id::kSteps).text, "");
  const UX::Rect anchor = user.State().chartLayout.DialogAnchorChart();
  EXPECT_EQ(seen[0].x, anchor.x + 50);
  EXPECT_EQ(seen[0].y, anchor.y + 50);
  EXPECT_EQ(seen[1].controls.at(steps_id::kCount).text, "Text contains 2 steps");
}

TEST_F(ChannelCommands, TypedLinesThatAreNoStepsAreCountedInTheLog) {
  Channel(1) = GivenChannel("");
  GivenSelection(1, -1);
  Choose(command::kManualStepsAdd, {Type(steps_id::kSteps, "10:00\n\n07:30 5\nnoon 80"), Press(kOk)});
  EXPECT_EQ(NewLog(),
            "Added new step (Time: 07:30) (Strength: 5).\n"
            "Lines that are no steps and were passed over: 2\n");
}

TEST_F(ChannelCommands, TypedStepsBeyondTheLimitAreThinnedOut) {
  Mode().channels = program_test::GivenModeOfMergedSteps(48, 29).channels;
  GivenSelection(2, -1);
  Choose(command::kManualStepsAdd, {Type(steps_id::kSteps, "23:59 100 J\nnoon"), Press(kOk)});
  EXPECT_EQ(CountModeSteps(Mode()), 48);
  EXPECT_EQ(NewLog(),
            "Added new step (Time: 23:59) (Strength: 100, Jump).\n"
            "Lines that are no steps and were passed over: 1\n"
            "Mode " +
                Mode().name + " has more than 48 steps, optimizing...\n");
}

TEST_F(ChannelCommands, StepsAreEditedAsText) {
  Channel(1) = GivenChannel("08:00 10, 12:00 20 J");
  GivenSelection(1, -1);
  Choose(command::kManualStepsEdit, {Type(steps_id::kSteps, "09:00 1\n10:00 2"), Press(kOk)});
  EXPECT_EQ(Told(Channel(1)), "09:00 1, 10:00 2");
  const SeenDialog seen = user.Dialogs().at(0);
  EXPECT_EQ(seen.title, "Manual steps edit...");
  EXPECT_EQ(seen.controls.at(steps_id::kSteps).text, "08:00 10\r\n12:00 20 J\r\n");
  EXPECT_EQ(seen.controls.at(steps_id::kCount).text, "Text contains 2 steps");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChannelCommands, OkOnAnEmptyBoxAddsNothingAndIsAnEntryAllTheSame) {
  const std::string before = Told(Channel(1));
  GivenSelection(1, -1);
  Choose(command::kManualStepsAdd, {Press(kOk)});
  EXPECT_EQ(Told(Channel(1)), before);
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChannelCommands, OkOnAnEmptiedBoxPutsTheSameStepsBackWithNewIds) {
  const std::string before = Told(Channel(1));
  const std::uint32_t firstId = Channel(1).front().id;
  GivenSelection(1, -1);
  Choose(command::kManualStepsEdit, {Type(steps_id::kSteps, ""), Press(kOk)});
  EXPECT_EQ(Told(Channel(1)), before);
  EXPECT_NE(Channel(1).front().id, firstId);
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChannelCommands, StepsThatAreCancelledChangeNothing) {
  const auto before = Program();
  GivenSelection(1, -1);
  for (const int number : {command::kManualStepsAdd, command::kManualStepsEdit}) {
    Desk().focus = Focus::Chart;
    Choose(number, {Type(steps_id::kSteps, "09:00 1"), Press(kCancel)});
    EXPECT_EQ(Desk().focus, Focus::MainWindow);
  }
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChannelCommands, TypedStepsAreBroughtWithinTheLimit) {
  for (int i = 0; i < 5; ++i) Channel(i) = GivenChannel("08:00 0, 20:00 0");
  GivenSelection(1, -1);
  std::string text;
  for (int minute = 0; minute < 60; ++minute) {
    text += "10:" + std::to_string(minute) + ' ' + std::to_string(minute % 2 * 50) + "\r\n";
  }
  Choose(command::kManualStepsAdd, {Paste(steps_id::kSteps, text), Press(kOk)});
  EXPECT_EQ(CountModeSteps(Mode()), 48);
  EXPECT_THAT(NewLog(), HasSubstr("Mode Normal has more than 48 steps, optimizing...\n"));
}

TEST_F(ChannelCommands, TenMegabytesOfStepsAreReadThroughTheRoomOfTheDialog) {
  Channel(1).clear();
  GivenSelection(1, -1);
  std::string text;
  while (text.size() < 10'000'000) text += "08:00 50\r\n";
  Choose(command::kManualStepsAdd, {Paste(steps_id::kSteps, text), Press(kOk)});
  EXPECT_THAT(Channel(1), SizeIs(205));
}

// Copy, paste, move

TEST_F(ChannelCommands, ThePasteThatFindsNoClipboardEndsWithoutALineOrARedraw) {
  GivenSelection(1, -1);
  user.Choose(command::kPasteSteps);
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(Invalidations(), 0U);
  EXPECT_EQ(UndoDepth(), 1);
}

// Power

TEST_F(ChannelCommands, ADragOfThePowerSliderIsOneEntryAndScalesEachTimeFromThePresentMaximum) {
  GivenSteps(2, {{480, 40.0F}, {600, 10.0F}});
  user.State().powerControl->Update();
  // Down to 1 and up again: what was scaled from the original would keep its fractions better.
  float highest = 40.0F;
  float other = 10.0F;
  for (const int position : {41, 33, 1, 70}) {
    user.Scroll(Control::PowerSlider, scroll::kThumbMoving, position);
    const float factor = static_cast<float>(position) / highest;
    other *= factor;
    highest *= factor;
    EXPECT_NEAR(Channel(2)[0].value, highest, 1e-3F);
    EXPECT_NEAR(Channel(2)[1].value, other, 1e-3F);
  }
  user.Scroll(Control::PowerSlider, scroll::kThumbReleased);
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 70);
}

TEST_F(ChannelCommands, ThePowerSlidersEndKeySets22Percent) {
  // Required though odd: the end of the zoom slider.
  GivenSteps(2, {{480, 80.0F}});
  user.State().powerControl->Update();
  user.Scroll(Control::PowerSlider, scroll::kLast);
  EXPECT_FLOAT_EQ(Channel(2)[0].value, 22.0F);
}

// A file may hold steps past the day. Scaling brings them into it, and then they count.
TEST_F(ChannelCommands, TheDescriptionCountsTheRowsThatScalingLeaves) {
  for (const bool byWheel : {false, true}) {
    GivenSteps(2, {{480, 80.0F}});
    Channel(2).push_back({30, 0, 40.0F});
    user.State().Refresh(app::part::kDescription | app::part::kPower);
    const std::string before = user.Text(Control::ModeDescription);
    if (byWheel) {
      user.TurnWheel(400, 300, -1, false, true);
    } else {
      user.Scroll(Control::PowerSlider, scroll::kLineBack);
    }
    const std::string after = user.Text(Control::ModeDescription);
    EXPECT_NE(after, before);
    user.State().Refresh(app::part::kDescription);
    EXPECT_EQ(user.Text(Control::ModeDescription), after);
  }
}

struct WheelRow {
  float before;
  int notches;
  float after;
};

TEST_F(ChannelCommands, ShiftAndWheelChangeThePowerByOne) {
  const WheelRow rows[] = {
      {0.5F, -1, 0.5F},  {0.5F, 1, 1.5F},    {1.0F, -1, 1.0F},  // a power of 0 is none to scale to
      {40.0F, 1, 41.0F}, {40.0F, -1, 39.0F}, {99.0F, 1, 100.0F}, {99.5F, 1, 99.5F}, {100.0F, -1, 99.0F},
  };
  for (const WheelRow& row : rows) {
    GivenSteps(2, {{480, row.before}});
    user.State().powerControl->Update();
    const int slider = user.SliderPosition(Control::PowerSlider);
    user.TurnWheel(400, 300, row.notches, false, true);
    EXPECT_NEAR(Channel(2)[0].value, row.after, 1e-4F) << row.before << " by " << row.notches;
    EXPECT_EQ(user.SliderPosition(Control::PowerSlider), slider) << "the slider waits for its next update";
  }
  EXPECT_EQ(UndoDepth(), 0) << "no entry is made";
}

// No undo brings it back. A series of turns says it once.
TEST_F(ChannelCommands, TheLogKeepsThePowerThatShiftAndWheelChange) {
  Info(2).name = "Blue";
  GivenSteps(2, {{480, 80.5F}, {600, 20.0F}});
  for (int turns = 0; turns < 3; ++turns) user.TurnWheel(400, 300, -1, false, true);
  EXPECT_EQ(NewLog(), "Power of channel Blue was 80%\n");
  GivenSelection(1, -1);
  Info(1).name = "Red";
  Channel(1) = GivenChannel("08:00 60, 10:00 0");
  user.TurnWheel(400, 300, 1, false, true);
  EXPECT_EQ(NewLog(), "Power of channel Red was 60%\n");
  Channel(1)[0].value = 30.0F;
  user.TurnWheel(400, 300, 1, false, true);
  EXPECT_EQ(NewLog(), "Power of channel Red was 30%\n") << "somebody else changed it meanwhile";
  Channel(1)[0].value = 0.5F;
  user.TurnWheel(400, 300, -1, false, true);
  EXPECT_EQ(NewLog(), "") << "nothing changes";
}

TEST_F(ChannelCommands, ShiftAndWheelWithoutAChannelDoNothing) {
  const auto before = Program();
  GivenSelection(-1, -1);
  Desk().chart.invalidated.clear();
  user.TurnWheel(400, 300, 1, false, true);
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(Invalidations(), 0U);
}

}  // namespace
