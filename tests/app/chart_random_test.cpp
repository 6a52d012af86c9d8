// Thousands of gestures without sense: whatever the mouse and the keys do to whatever document in whatever
// window, the program goes on, and a document that was in order stays so.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "app/main_window.h"
#include "chart/bumper.h"
#include "program/builtin_modes.h"
#include "program/channel_edit.h"
#include "program/demo_state.h"
#include "tests/app/chart_test.h"

namespace {

using namespace TCBase::Program;
namespace key = app::key;

constexpr int kKeys[] = {key::kBackspace, key::kSpace,  key::kLeft, key::kUp, key::kRight,
                         key::kDown,      key::kDelete, key::kJ,    key::kF1, 0};

class ChartRandom : public ChartTest {
 protected:
  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  bool OneIn(int count) { return Below(count) == 0; }

  // Mostly over the chart, at times where a mouse can be at all; often on a step.
  std::pair<int, int> Point() {
    if (OneIn(20)) return {Below(65536) - 32768, Below(65536) - 32768};
    if (OneIn(3)) {
      const int lane = Below(kChannelCount);
      const auto& steps = Channel(lane);
      if (!steps.empty()) {
        const Step& step = steps[static_cast<std::size_t>(Below(static_cast<int>(steps.size())))];
        const UX::Rect rect = Layout().LaneRect(lane);
        return {std::clamp(UX::TimeToX(rect, Program(), step), -32768, 32767),
                std::clamp(UX::PercentToY(rect, step.value), -32768, 32767)};
      }
    }
    return {Below(940) - 20, Below(640) - 20};
  }

  app::HeldKeys Keys() { return {.ctrl = OneIn(4), .shift = OneIn(6)}; }

  void Gesture() {
    const auto [x, y] = Point();
    const app::HeldKeys keys = Keys();
    switch (Below(6)) {
      case 5:
        user.State().chartInput.SelectAllSteps();
        return;
      case 0:
        Chart().OnKeyDown(kKeys[Below(std::size(kKeys))]);
        return;
      case 1: {
        const int pressed = kKeys[Below(std::size(kKeys))];
        for (int times = Below(5); times >= 0; --times) Chart().OnKeyDown(pressed);
        Chart().OnKeyUp(pressed);
        return;
      }
      case 2:
        Chart().OnWheel(x, y, Below(1000) - 500, OneIn(4), OneIn(2), OneIn(10));
        return;
      case 3:
        Chart().OnRightDown(x, y);
        Chart().OnRightUp(x, y);
        return;
      default:
        Chart().OnMouseMove(x, y, OneIn(10), keys);
        Chart().OnLeftDown(x, y, keys);
    }
    for (int moves = Below(4); moves > 0; --moves) {
      const auto [toX, toY] = Point();
      Chart().OnMouseMove(toX, toY, !OneIn(10), OneIn(10) ? Keys() : keys);
    }
    if (OneIn(10)) user.GetDesktop().chart.LoseCapture();
    if (!OneIn(10)) Chart().OnLeftUp(x, y);
  }

  void Other() {
    switch (Below(7)) {
      case 6:
        user.GetSettings().SetOn(app::kCarefulMouseSetting, OneIn(2));
        return;
      case 0:
        GivenDemoAt(OneIn(2) ? Below(86400) : -1);
        return;
      case 1:
        user.GetDesktop().size =
            OneIn(2) ? app::Size{1024, 768} : app::Size{Below(2000) + 1, Below(1200) + 1};
        user.GetDesktop().application->mainWindow.OnSize(app::SizeKind::Restored);
        return;
      case 2:
        user.GetDesktop().application->mainWindow.OnLeftButtonDown();
        return;
      case 3:
        (OneIn(2) ? History().Undo() : History().Redo());
        return;
      default:
        user.State().now += 0.07;
    }
  }

  void ExpectInOrder() {
    ASSERT_GE(Program().viewStart, 0);
    ASSERT_LE(Program().viewEnd, kSecondsPerDay);
    ASSERT_GE(Program().viewEnd - Program().viewStart, 7200);
    ASSERT_GE(Selected().first, -1);
    ASSERT_LT(Selected().first, kChannelCount);
    ASSERT_GE(Selected().second, -1);
    for (int lane = 0; lane < kChannelCount; ++lane) {
      for (const Step& step : Channel(lane)) {
        ASSERT_TRUE(step.hour >= 0 && step.hour < 24 && step.minute >= 0 && step.minute < 60) << Told(lane);
        ASSERT_TRUE(step.value >= 0.0F && step.value <= 100.0F) << Told(lane);
      }
      ASSERT_TRUE(Channel(lane).size() >= kMinChannelSteps) << Told(lane);
      ASSERT_TRUE(
          std::is_sorted(Channel(lane).begin(), Channel(lane).end(),
                         [](const Step& a, const Step& b) { return MinuteOfDay(a) < MinuteOfDay(b); }))
          << Told(lane);
    }
  }

  std::mt19937 random_{20261121};
};

TEST_F(ChartRandom, ADocumentInOrderStaysInOrder) {
  for (int i = 0; i < 5000; ++i) {
    OneIn(4) ? Other() : Gesture();
    ExpectInOrder();
    if (HasFatalFailure()) FAIL() << "after " << i;
  }
}

TEST_F(ChartRandom, WholeGesturesCanAllBeUndone) {
  const ModeListView before = Program();
  for (int i = 0; i < 1500; ++i) {
    const auto [x, y] = Point();
    const auto [toX, toY] = Point();
    const int pressed = kKeys[Below(std::size(kKeys))];
    if (OneIn(20)) user.State().chartInput.SelectAllSteps();
    if (OneIn(2)) {
      const app::HeldKeys keys = Keys();
      Chart().OnLeftDown(x, y, keys);
      Chart().OnMouseMove(toX, toY, true, keys);
      Release();
    } else {
      Chart().OnKeyDown(pressed);
      Chart().OnKeyUp(pressed);
    }
    user.State().now += 0.07;
  }
  EXPECT_GT(UndoDepth(), 100);
  while (History().Undo()) {
  }
  EXPECT_TRUE(Program() == before);
}

TEST_F(ChartRandom, DocumentsOutOfAllBoundsDoNoHarm) {
  constexpr float kValues[] = {std::numeric_limits<float>::quiet_NaN(),
                               std::numeric_limits<float>::infinity(),
                               -std::numeric_limits<float>::infinity(),
                               1e38F,
                               -5.0F,
                               50.0F,
                               100.0F};
  constexpr std::int32_t kTimes[] = {std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min(),
                                     -1,
                                     0,
                                     12,
                                     23,
                                     59,
                                     5000};
  for (int round = 0; round < 40; ++round) {
    for (int lane = 0; lane < kChannelCount; ++lane) {
      Channel(lane).clear();
      for (int steps = Below(12); steps > 0; --steps) {
        Channel(lane).push_back({kTimes[Below(std::size(kTimes))], kTimes[Below(std::size(kTimes))],
                                 kValues[Below(std::size(kValues))], OneIn(2)});
      }
      RenumberSteps(Channel(lane));
    }
    GivenSelection(Below(9) - 2, Below(15) - 2);
    for (int i = 0; i < 50; ++i) OneIn(4) ? Other() : Gesture();
  }
}

TEST_F(ChartRandom, ChannelsOfTenThousandStepsDoNoHarm) {
  for (int lane = 0; lane < kChannelCount; ++lane) {
    Channel(lane).clear();
    for (int i = 0; i < 10000; ++i) {
      Channel(lane).push_back({Below(24), Below(60), static_cast<float>(Below(101))});
    }
    SortSteps(Channel(lane));
    RenumberSteps(Channel(lane));
  }
  for (int i = 0; i < 200; ++i) {
    const auto [x, y] = Point();
    Chart().OnMouseMove(x, y, false);
    Chart().OnRightDown(x, y);
  }
  Drag(450, 60, 460, 70);
  user.State().chartInput.SelectAllSteps();
  user.State().chartInput.SelectAllSteps();
  Drag(450, 60, 460, 70);
  EXPECT_LE(CountModeSteps(Mode()), kMaxModeSteps) << "the release brings the mode within the limit";
}

TEST_F(ChartRandom, EmptyChannelsDoNoHarm) {
  for (int lane = 0; lane < kChannelCount; ++lane) Channel(lane).clear();
  for (int i = 0; i < 500; ++i) OneIn(4) ? Other() : Gesture();
}

TEST_F(ChartRandom, AWindowOfOnePixelDoesNoHarm) {
  user.GetDesktop().size = {1, 1};
  user.GetDesktop().application->mainWindow.OnSize(app::SizeKind::Restored);
  for (int i = 0; i < 1000; ++i) {
    Gesture();
    user.State().now += 0.07;
    ExpectInOrder();
    if (HasFatalFailure()) FAIL() << "after " << i;
  }
}

}  // namespace
