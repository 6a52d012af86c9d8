#include "dialogs/dlg_change_steps.h"

#include <variant>
#include <vector>

#include "dialogs/change_answers.h"
#include "dialogs/dialog_template.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs::change_steps_control;
using namespace in_dialog;
using namespace TCBase::Program;
using dialogs::ChangeStepsParams;
using dialogs::DlgChangeSteps;
using dialogs::kCancel;
using dialogs::kOk;
using testing::ElementsAre;

// Places in the list of changes.
enum Row {
  kShift,
  kShiftToEnds,
  kShiftLevel,
  kScale,
  kStretch,
  kMirror,
  kJump,
  kFade,
  kCopy,
  kThin,
  kTimes,
  kPercents
};

class ChangeStepsTest : public DialogsTest {
 protected:
  ChangeStepsTest() {
    params_.beside = {300, 40, 600, 500};
    params_.channel = 1;
    params_.show = [this](const ModeChange& change, const ChangeScope& scope) {
      shown_ = change;
      scope_ = scope;
      ++shows_;
      return result_;
    };
    params_.takeBack = [this] { shown_.reset(); };
  }

  // Does this and looks, and cancels.
  void See(DialogScript script) {
    script.push_back(Look());
    script.push_back(PressEscape());
    EXPECT_EQ(Fill<DlgChangeSteps>(std::move(script), params_), kCancel);
  }

  // What is shown, with these answers, by its kind.
  template <class T>
  T Shown(int row, const std::string& first = {}, const std::string& second = {}) {
    DialogScript script{Pick(kWhat, row)};
    if (!first.empty()) script.push_back(Type(kFirst, first));
    if (!second.empty()) script.push_back(Type(kSecond, second));
    See(std::move(script));
    EXPECT_TRUE(shown_ && std::holds_alternative<T>(*shown_)) << row;
    return shown_ && std::holds_alternative<T>(*shown_) ? std::get<T>(*shown_) : T{};
  }

  // What is told of an answer that is wrong: nothing is shown, and OK does nothing.
  std::string Fault(int row, int field, const std::string& text) {
    shown_ = SetJump{};
    DialogScript script{Pick(kWhat, row), Paste(field, text), Look(), PressEnter(), PressEscape()};
    EXPECT_EQ(Fill<DlgChangeSteps>(std::move(script), params_), kCancel) << text;
    EXPECT_FALSE(shown_) << text;
    EXPECT_FALSE(Last().controls.at(kOk).enabled) << text;
    return Last().controls.at(kResult).text;
  }

  std::string Text(int control) const { return Last().controls.at(control).text; }
  bool IsEnabled(int control) const { return Last().controls.at(control).enabled; }

  ChangeStepsParams params_;
  ChangeResult result_{.steps = 4, .altered = 4, .rows = 9};
  std::optional<ModeChange> shown_;
  ChangeScope scope_;
  int shows_ = 0;
};

TEST_F(ChangeStepsTest, ComesUpBesideTheChartWithTheFirstChange) {
  See({});
  EXPECT_EQ(First().title, "Change steps");
  EXPECT_EQ(First().x, 900);
  EXPECT_EQ(First().y, 40);
  EXPECT_EQ(First().controls.at(kWhat).rows.size(), 12U);
  EXPECT_EQ(Text(kWhat), "Shift in time, round the day");
  EXPECT_EQ(Text(kFirstLabel), "By (minutes or hh:mm)");
  EXPECT_EQ(Text(kFirst), "0:00");
  EXPECT_FALSE(IsEnabled(kSecond));
  EXPECT_EQ(Text(kResult), "Steps changed: 4 of 4. Rows of the mode: 9 of 48.");
  EXPECT_EQ(shows_, 1);
}

TEST_F(ChangeStepsTest, EachChangeIsMadeOfItsAnswers) {
  EXPECT_EQ(Shown<ShiftTime>(kShift, "-1:30").minutes, -90);
  EXPECT_FALSE(Shown<ShiftTime>(kShift, "5").stopAtEnds);
  EXPECT_EQ(Shown<ShiftTime>(kShiftToEnds, "90").minutes, 90);
  EXPECT_TRUE(Shown<ShiftTime>(kShiftToEnds, "5").stopAtEnds);
  EXPECT_EQ(Shown<ShiftPercent>(kShiftLevel, "-12.5").percent, -12.5F);
  EXPECT_EQ(Shown<ScalePercent>(kScale, "80", "30").percent, 80.0F);
  EXPECT_EQ(Shown<ScalePercent>(kScale, "80", "30").about, 30.0F);
  EXPECT_EQ(Shown<StretchTime>(kStretch, "120", "13:00").percent, 120.0F);
  EXPECT_EQ(Shown<StretchTime>(kStretch, "120", "13:00").about, 780);
  EXPECT_EQ(Shown<MirrorTime>(kMirror, "9:30").about, 570);
  EXPECT_TRUE(Shown<SetJump>(kJump).jump);
  EXPECT_FALSE(Shown<SetJump>(kFade).jump);
  EXPECT_EQ(Shown<CopyToChannels>(kCopy, "1,3", "60").to, ChannelSet(0b00101));
  EXPECT_EQ(Shown<CopyToChannels>(kCopy, "1,3", "60").percent, 60.0F);
  EXPECT_EQ(Shown<ThinOut>(kThin, "2.5").tolerance, 2.5F);
  EXPECT_EQ(Shown<ThinOut>(kThin, "2,5").tolerance, 2.5F) << "as most write it";
  EXPECT_EQ(Shown<RoundTimes>(kTimes, "15").minutes, 15);
  EXPECT_EQ(Shown<RoundPercents>(kPercents, "10").percent, 10);
}

TEST_F(ChangeStepsTest, FieldsBecomeThoseOfTheChange) {
  See({Type(kFirst, "5"), Pick(kWhat, kStretch)});
  EXPECT_EQ(Text(kFirstLabel), "To (percent)");
  EXPECT_EQ(Text(kFirst), "100");
  EXPECT_EQ(Text(kSecondLabel), "About (hh:mm)");
  EXPECT_EQ(Text(kSecond), "12:00");
  EXPECT_TRUE(IsEnabled(kSecond));
  See({Pick(kWhat, kStretch), Pick(kWhat, kFade)});
  for (const int label : {kFirstLabel, kSecondLabel, kFirst, kSecond}) EXPECT_EQ(Text(label), "");
  EXPECT_FALSE(IsEnabled(kFirst));
  EXPECT_FALSE(IsEnabled(kSecond));
}

// Once for the choice, not again for each field that is filled.
TEST_F(ChangeStepsTest, AChoiceIsShownOnce) {
  See({Pick(kWhat, kStretch)});
  EXPECT_EQ(shows_, 2);
}

TEST_F(ChangeStepsTest, WhatIsTypedWrongSaysWhatIsExpected) {
  EXPECT_EQ(Fault(kShift, kFirst, "1:60"), "Minutes are expected, or hh:mm, up to a day: 90, -90 or 1:30.");
  EXPECT_EQ(Fault(kShiftLevel, kFirst, "101"), "A number from -100 to 100 is expected.");
  EXPECT_EQ(Fault(kScale, kFirst, "x"), "A number from 0 to 1000 is expected.");
  EXPECT_EQ(Fault(kScale, kSecond, "-1"), "A number from 0 to 100 is expected.");
  EXPECT_EQ(Fault(kStretch, kFirst, "0"), "A number from 1 to 1000 is expected.");
  EXPECT_EQ(Fault(kStretch, kSecond, "24:00"), "A time from 00:00 to 23:59 is expected.");
  EXPECT_EQ(Fault(kMirror, kFirst, "noon"), "A time from 00:00 to 23:59 is expected.");
  EXPECT_EQ(Fault(kCopy, kFirst, "1;2"),
            "Numbers of channels from 1 to 5 are expected, with commas between them: 2,3.");
  EXPECT_EQ(Fault(kThin, kFirst, ""), "A number from 0 to 100 is expected.");
  EXPECT_EQ(Fault(kTimes, kFirst, "2.5"), "A whole number from 1 to 720 is expected.");
  EXPECT_EQ(Fault(kPercents, kFirst, "0"), "A whole number from 1 to 100 is expected.");
  EXPECT_EQ(Fault(kShift, kFrom, "8"), "A time from 00:00 to 23:59 is expected.");
  EXPECT_EQ(Fault(kShift, kTo, "-"), "A time from 00:00 to 23:59 is expected.");
}

TEST_F(ChangeStepsTest, HostileTextsAreOnlyWrong) {
  const std::string hostile[] = {
      "nan",  "inf", "-inf", "1e999", "99999999999999999999", "%s%n", "{1}", "\xF0\x9F\x90\xA0", "１２",
      "0x10", "--1", "1\t",  "&",     std::string(5000, '9')};
  for (const std::string& text : hostile) {
    for (int row = kShift; row <= kPercents; ++row) {
      if (row != kJump && row != kFade) Fault(row, kFirst, text);
    }
    Fault(kFade, kFrom, text);
  }
}

TEST_F(ChangeStepsTest, SpacesAroundAnAnswerAreNothing) {
  EXPECT_EQ(Shown<ShiftTime>(kShift, " 90 ").minutes, 90);
  EXPECT_EQ(Fault(kShift, kFirst, "   "), "Minutes are expected, or hh:mm, up to a day: 90, -90 or 1:30.");
}

TEST_F(ChangeStepsTest, TheScopeIsTheSelectionTheChannelOrAll) {
  See({});
  EXPECT_THAT(First().controls.at(kWhich).rows, ElementsAre("Selected channel", "All channels"));
  EXPECT_EQ(scope_.channels, ChannelSet(0b00010));
  EXPECT_FALSE(scope_.stepIds);
  See({Pick(kWhich, 1)});
  EXPECT_EQ(scope_.channels, ChannelSet().set());

  params_.selected = {7, 9};
  See({});
  EXPECT_THAT(First().controls.at(kWhich).rows,
              ElementsAre("Selected steps", "Selected channel", "All channels"));
  EXPECT_EQ(Text(kWhich), "Selected steps");
  EXPECT_EQ(scope_.stepIds, params_.selected);
  EXPECT_EQ(scope_.channels, ChannelSet().set());

  params_.selected = {7};
  See({});
  EXPECT_EQ(Text(kWhich), "Selected channel") << "one step is selected by looking at it";
  EXPECT_FALSE(scope_.stepIds);

  params_.selected = {};
  params_.channel = -1;
  See({});
  EXPECT_THAT(First().controls.at(kWhich).rows, ElementsAre("All channels"));
  EXPECT_EQ(scope_.channels, ChannelSet().set());
}

TEST_F(ChangeStepsTest, ASpanLimitsTheScope) {
  See({});
  EXPECT_FALSE(scope_.span);
  See({Type(kFrom, "22:00"), Type(kTo, "6:00")});
  ASSERT_TRUE(scope_.span);
  EXPECT_EQ(scope_.span->from, 1320);
  EXPECT_EQ(scope_.span->to, 360);
  See({Type(kFrom, "8:00")});
  ASSERT_TRUE(scope_.span);
  EXPECT_EQ(scope_.span->to, 1439);
  See({Type(kTo, "08:00")});
  ASSERT_TRUE(scope_.span);
  EXPECT_EQ(scope_.span->from, 0);
}

TEST_F(ChangeStepsTest, OkIsForWhatIsPossible) {
  EXPECT_EQ(Fill<DlgChangeSteps>({Type(kFirst, "5"), Press(kOk)}, params_), kOk);
  EXPECT_EQ(Fill<DlgChangeSteps>({Type(kFirst, "5"), PressEnter()}, params_), kOk);
  EXPECT_EQ(Fill<DlgChangeSteps>({Type(kFirst, "x"), Type(kFirst, "5"), Press(kOk)}, params_), kOk);
  result_.refusal = ChangeRefusal::TooFewSteps;
  EXPECT_EQ(Fill<DlgChangeSteps>({Type(kFirst, "5"), Look(), PressEnter(), Press(kCancel)}, params_),
            kCancel);
  EXPECT_EQ(Text(kResult), "Not possible: a channel needs at least 2 steps.");
  EXPECT_FALSE(IsEnabled(kOk));
}

TEST(PlaceBeside, TakesTheFirstSideWithRoom) {
  using dialogs::PlaceBeside;
  constexpr Rect kScreen{0, 0, 1000, 800};
  EXPECT_EQ(PlaceBeside({100, 50, 600, 500}, 300, 200, kScreen), (Position{700, 50}));
  EXPECT_EQ(PlaceBeside({100, 50, 800, 500}, 300, 200, kScreen), (Position{100, 550}));
  EXPECT_EQ(PlaceBeside({300, 50, 700, 700}, 300, 200, kScreen), (Position{0, 50}));
  EXPECT_EQ(PlaceBeside({100, 300, 900, 500}, 300, 200, kScreen), (Position{100, 100}));
  EXPECT_EQ(PlaceBeside({0, 0, 1000, 800}, 300, 200, kScreen), (Position{700, 600}));
}

TEST(PlaceBeside, KeepsTheDialogOnTheScreen) {
  using dialogs::PlaceBeside;
  constexpr Rect kScreen{1000, 100, 1000, 800};
  EXPECT_EQ(PlaceBeside({1100, 850, 400, 100}, 300, 200, kScreen), (Position{1500, 700}));
  EXPECT_EQ(PlaceBeside({1100, -50, 400, 100}, 300, 200, kScreen), (Position{1500, 100}));
  EXPECT_EQ(PlaceBeside({1000, 100, 1000, 800}, 3000, 2000, kScreen), (Position{1000, 100}));
}

}  // namespace
