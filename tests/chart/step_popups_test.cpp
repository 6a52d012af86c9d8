#include "chart/step_popups.h"

#include <gtest/gtest.h>

#include "tests/chart/popups_fixture.h"

namespace chart_test {
namespace {

using UX::StepPopup;

using StepPopupsTest = GivenStepPopups;

TEST_F(StepPopupsTest, WithoutAStepThereIsNone) {
  Pass();
  Wait(0.5);
  EXPECT_EQ(Scale(), 0.0F);
  Hover(0, 3);  // there are three
  chart_.Select(5, 0);
  Pass();
  Wait(0.5);
  for (int lane = 0; lane < kChannelCount; ++lane) EXPECT_EQ(Scale(lane), 0.0F);
}

// Nothing reads most of it before the first frame.
TEST_F(StepPopupsTest, BeginsWithItsTimes) {
  double now = 0.0;
  const StepPopup popup(7, {10.0F, 20.0F}, now);
  EXPECT_EQ(popup.stepId, 7U);
  EXPECT_EQ(popup.size.low, 0.0F);
  EXPECT_EQ(popup.size.high, 1.0F);
  EXPECT_EQ(popup.size.pulseAmplitude, 0.0F);
  EXPECT_EQ(popup.size.holdTime, 1.7F);
  EXPECT_EQ(popup.size.fadeInTime, 0.3F);
  EXPECT_EQ(popup.size.fadeOutTime, 0.2F);
  EXPECT_EQ(popup.secondsPerPixel, 0.005);
  EXPECT_EQ(popup.travelCurve, bumper_base::BumperCurve::EaseOut);
  EXPECT_FALSE(popup.changed);
}

// The life of a popup.

TEST_F(StepPopupsTest, GrowsInThreeTenthsOfASecond) {
  Hover(0, 1);
  Pass();
  EXPECT_FALSE(Look()) << "nothing to see of a size of 0";
  Wait(0.15);
  EXPECT_NEAR(Scale(), 0.75F, 1e-4F);
  Wait(0.1501);
  EXPECT_EQ(Scale(), 1.0F);
}

TEST_F(StepPopupsTest, StaysAsLongAsItsStepIsHovered) {
  Hover(0, 1);
  Pass();
  PassFor(30.0);
  EXPECT_EQ(Scale(), 1.0F);
}

TEST_F(StepPopupsTest, StaysAsLongAsItsStepIsSelected) {
  chart_.Select(1, 0);
  Pass();
  PassFor(30.0);
  EXPECT_EQ(Scale(1), 1.0F);
}

TEST_F(StepPopupsTest, StaysForAWhileAfterThatAndShrinksAway) {
  GivenGrownPopup();
  HoverNothing();
  Wait(1.699);
  Pass();
  EXPECT_EQ(Scale(), 1.0F);
  Wait(0.001 + 0.1);
  Pass();
  EXPECT_NEAR(Scale(), 0.75F, 1e-3F);
  Wait(0.05);
  EXPECT_NEAR(Scale(), 0.4375F, 1e-3F);
  Wait(0.0501);
  EXPECT_EQ(Scale(), 0.0F);
}

// A popup that is gone leaves nothing behind: the next one comes out of the step again.
TEST_F(StepPopupsTest, IsRemovedWhenItHasShrunk) {
  GivenGrownPopup();
  EXPECT_LT(Look()->center.y, kNoonAt50.y - 20.0F);
  HoverNothing();
  Wait(1.95);
  Pass();
  Hover(0, 1);
  Pass();
  Wait(0.01);
  ExpectCenter(kNoonAt50);
}

TEST_F(StepPopupsTest, APopupThatGrowsGrowsOn) {
  Hover(0, 1);
  Pass();
  Wait(0.1);
  HoverNothing();
  Pass();
  Hover(0, 1);
  Pass();
  Wait(0.05);
  EXPECT_NEAR(Scale(), 0.75F, 1e-4F) << "as if nothing had been";
}

TEST_F(StepPopupsTest, APopupThatStaysStaysForTheWholeTimeAgain) {
  GivenGrownPopup();
  HoverNothing();
  Wait(1.5);
  Hover(0, 1);
  Pass();
  EXPECT_EQ(Scale(), 1.0F);
  HoverNothing();
  Wait(1.69);
  Pass();
  EXPECT_EQ(Scale(), 1.0F);
  Wait(0.11);
  EXPECT_NEAR(Scale(), 0.75F, 1e-3F);
}

TEST_F(StepPopupsTest, APopupThatShrinksGrowsBackInProportion) {
  GivenGrownPopup();
  HoverNothing();
  Wait(1.8);
  EXPECT_NEAR(Scale(), 0.75F, 1e-3F);
  Hover(0, 1);
  Pass();
  EXPECT_NEAR(Scale(), 0.75F, 1e-3F) << "no jump";
  Wait(0.0375);  // half of a quarter of 0.3 seconds
  EXPECT_NEAR(Scale(), 0.9375F, 1e-3F);
  Wait(0.038);
  EXPECT_EQ(Scale(), 1.0F);
  HoverNothing();
  Wait(1.69);
  EXPECT_EQ(Scale(), 1.0F) << "and stays for the whole time";
  Wait(0.108);
  EXPECT_NEAR(Scale(), 0.75F, 0.02F);
}

TEST_F(StepPopupsTest, HoveringTheSelectedStepMakesOnePopup) {
  chart_.Select(0, 1);
  Hover(0, 1);
  Pass();
  Wait(0.3);
  Draw();
  EXPECT_EQ(canvas_.All<UX::Line>(Done::Stroke).size(), 1U);
}

TEST_F(StepPopupsTest, TheHoveredAndTheSelectedStepHaveOneEach) {
  chart_.Select(0, 0);
  Hover(0, 2);
  Pass();
  Wait(0.3);
  Draw();
  EXPECT_EQ(canvas_.All<UX::Line>(Done::Stroke).size(), 2U);
}

// Whose it is.

TEST_F(StepPopupsTest, FollowsItsStepThroughASort) {
  GivenGrownPopup();
  Channel& channel = chart_.document.modes[0].channels[0];
  channel[1].hour = 20;
  SortSteps(channel);
  Hover(0, 2);
  Pass();
  EXPECT_EQ(Look()->text, "20:00\n50%");
  Draw();
  EXPECT_EQ(canvas_.All<UX::Line>(Done::Stroke).size(), 1U) << "no second one for the step now at index 1";
}

TEST_F(StepPopupsTest, IsNotDrawnWhenItsStepIsGone) {
  GivenGrownPopup();
  Channel& channel = chart_.document.modes[0].channels[0];
  const Step step = channel[1];
  channel.erase(channel.begin() + 1);
  HoverNothing();
  Pass();
  EXPECT_FALSE(Look());

  // It lives on unseen, as an undo within the time shows, and fades all the same.
  channel.insert(channel.begin() + 1, step);
  EXPECT_EQ(Scale(), 1.0F);
  Wait(1.8);
  EXPECT_NEAR(Scale(), 0.75F, 1e-3F);
  Wait(0.2);
  Pass();
  EXPECT_FALSE(Look());
}

TEST_F(StepPopupsTest, AChangeOfModeHidesItOnly) {
  GivenGrownPopup();
  chart_.document.modes.push_back(program_test::GivenMode({"10:00 10"}));
  chart_.document.currentMode = 1;
  HoverNothing();
  EXPECT_FALSE(Look());
  chart_.document.currentMode = 0;
  EXPECT_TRUE(Look());
}

TEST_F(StepPopupsTest, StandsInItsOwnLane) {
  Hover(1, 1);
  Pass();
  Wait(0.3);
  EXPECT_FALSE(Look(0));
  ASSERT_TRUE(Look(1));
  EXPECT_EQ(Look(1)->text, "12:00\n80%");
}

// When the program may rest.

TEST_F(StepPopupsTest, NothingMovesBeforeThereIsAPopup) {
  EXPECT_FALSE(popups_.IsAnimating());
  Pass();
  EXPECT_FALSE(popups_.IsAnimating());
}

TEST_F(StepPopupsTest, MovesFromTheStartToASecondAfterItHasGrown) {
  Hover(0, 1);
  Pass();
  PassFor(0.01);
  EXPECT_TRUE(popups_.IsAnimating());
  PassFor(1.27);
  EXPECT_TRUE(popups_.IsAnimating());
  PassFor(0.05);
  EXPECT_FALSE(popups_.IsAnimating());
}

TEST_F(StepPopupsTest, TheIdleProgramRestsWithAStepSelected) {
  chart_.Select(0, 1);
  Pass();
  for (int i = 0; i < 20; ++i) Draw(), PassFor(0.1);
  for (int i = 0; i < 200; ++i) {
    PassFor(0.1);
    ASSERT_FALSE(popups_.IsAnimating());
  }
}

// The passes of an idle program are so close to each other that a popup changes by less than what is noticed
// from one to the next. It is drawn to its end all the same.
TEST_F(StepPopupsTest, ShrinkingWakesAnIdleProgram) {
  GivenGrownPopup();
  HoverNothing();
  PassFor(1.69);
  EXPECT_FALSE(popups_.IsAnimating());
  PassFor(0.03);
  EXPECT_TRUE(popups_.IsAnimating());
  PassFor(0.2);
  EXPECT_TRUE(popups_.IsAnimating()) << "until it has been drawn without the popup";
  PassFor(1.0);
  EXPECT_FALSE(popups_.IsAnimating());
}

TEST_F(StepPopupsTest, ABalloonOnItsWayKeepsTheProgramDrawing) {
  GivenGrownPopup();
  PassFor(1.5);
  EXPECT_FALSE(popups_.IsAnimating());
  chart_.document.modes[0].channels[0][1].value = 0.0F;
  Draw();
  PassFor(0.01);
  EXPECT_TRUE(popups_.IsAnimating());
}

TEST_F(StepPopupsTest, ATenthIsAChange) {
  StepPopup popup(1, {100.0F, 50.0F}, chart_.now);
  popup.NoteChange();
  EXPECT_TRUE(popup.changed) << "compared with nothing yet";
  popup.NoteChange();
  EXPECT_FALSE(popup.changed);

  popup.position.x += 0.09F;
  popup.NoteChange();
  EXPECT_FALSE(popup.changed);
  popup.position.x += 0.09F;
  popup.NoteChange();
  EXPECT_FALSE(popup.changed) << "compared with the time before, not with the last change";

  popup.position.x += 0.125F;
  popup.NoteChange();
  EXPECT_TRUE(popup.changed);
  popup.position.y -= 0.125F;
  popup.NoteChange();
  EXPECT_TRUE(popup.changed);
  EXPECT_EQ(popup.lastX, popup.position.x);
  EXPECT_EQ(popup.lastY, popup.position.y);

  popup.StayShown();
  Wait(0.02);
  popup.NoteChange();
  EXPECT_TRUE(popup.changed) << "the size counts too";
  EXPECT_GT(popup.lastSize, 0.1F);
}

}  // namespace
}  // namespace chart_test
