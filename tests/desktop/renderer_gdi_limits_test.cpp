// Any document and any window is drawn over GDI+ without fault, and each frame gives back all it took.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "program/demo_state.h"
#include "tests/desktop/gdi_chart.h"
#include "tests/desktop/object_count.h"
// after windows.h
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>

namespace {

using namespace desktop;
using TCBase::Program::Channel;

using RendererGdiLimits = GdiChart;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr float kHuge = 1.0e30F;
constexpr float kInfinite = std::numeric_limits<float>::infinity();
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();

Channel ManySteps(int count) {
  Channel steps;
  for (int i = 0; i < count; ++i) {
    const int minute = static_cast<int>(std::int64_t{i} * 1440 / count);
    steps.push_back({minute / 60, minute % 60, static_cast<float>(i % 101), i % 7 == 0, 0});
  }
  return steps;
}

TEST_F(RendererGdiLimits, OneByOneWindow) {
  GivenSteps(0, ManySteps(48));
  Select(0, 3);
  GivenSize(1, 1);
  Draw();
  EXPECT_LE(picture.width(), 1);
}

TEST_F(RendererGdiLimits, WindowsOfAllSmallSizes) {
  for (int i = 0; i < 5; ++i) GivenSteps(i, ManySteps(10));
  Select(4, 2);
  for (int side = 0; side < 300; side += 13) {
    GivenSize(side, side);
    renderer.Rebuild();
    layout.FocusLane(side % 5);
    LetLanesSettle();
    Draw();
  }
  EXPECT_GT(picture.width(), 100);
}

TEST_F(RendererGdiLimits, NoCurrentMode) {
  Select(2, 0);
  for (const int mode : {-1, 1, kMost}) {
    program.currentMode = mode;
    Draw();
    EXPECT_EQ(At(0, "16:30", 25), 0x400000U) << mode;
  }
}

TEST_F(RendererGdiLimits, AllStepsOnOneMinute) {
  // The curve's value before and after them is infinite or no number at all.
  GivenSteps(0, {StepAt("12:00", 10), StepAt("12:00", 90), StepAt("12:00", 50, kJump)});
  Select(0, 1);
  Draw();
  EXPECT_EQ(At(0, "12:00", 90), 0xFF4500U);
  EXPECT_EQ(At(1, "16:30", 25), 0x004000U) << "the other lanes are as ever";
}

TEST_F(RendererGdiLimits, TimesAndValuesFarOutOfRange) {
  const Channel steps = {{kLeast, kLeast, -kHuge, false, 0}, {-100, 0, kNoNumber, true, 0},
                         {8, 0, kInfinite, false, 0},        {12, 0, 50, false, 0},
                         {16, 0, -kInfinite, true, 0},       {100, 59, kHuge, true, 0},
                         {kMost, kMost, kNoNumber, true, 0}};
  for (int i = 0; i < 5; ++i) GivenSteps(i, steps);
  for (int view = 0; view < 2; ++view) {
    for (int i = 0; i < static_cast<int>(steps.size()); ++i) {
      Select(1, i);
      Draw();
    }
    EXPECT_EQ(At(0, "12:00", 50), 0xFFFF00U);
    GivenView("11:00", "13:00");
  }
}

TEST_F(RendererGdiLimits, TenThousandSteps) {
  for (int i = 0; i < 5; ++i) GivenSteps(i, ManySteps(10'000));
  Select(2, 9'999);
  Draw();
  EXPECT_GT(Count(0xFFFF00U), 0);
}

TEST_F(RendererGdiLimits, TwoHoursOfTenThousandSteps) {
  for (int i = 0; i < 5; ++i) GivenSteps(i, ManySteps(10'000));
  GivenView("22:00", "24:00");
  Draw();
  EXPECT_GT(Count(0xFFFF00U), 0);
}

TEST_F(RendererGdiLimits, ViewWithoutWidth) {
  GivenSteps(0, ManySteps(20));
  Select(0, 5);
  demoState.SetRunning(12 * 3600, TCBase::StatePlaying);
  GivenView("12:00", "12:00");
  Draw();
  GivenView("14:00", "12:00");
  Draw();
  EXPECT_EQ(At(0, 0), 0xFFFFFFU);
}

TEST_F(RendererGdiLimits, NamesOfAnyLengthAndKind) {
  program.channelInfos[0].name = std::string(10'000, 'm');
  program.channelInfos[1].name = "\xFF\xFE not UTF-8";
  program.channelInfos[2].name = std::string("a\0b\n\n\n", 6);
  program.channelInfos[3].name = "{1} % \xE6\xB0\xB4\xE6\xA7\xBD";
  Draw();
  EXPECT_GT(picture.Count(0x87CEFA, {700, 10, 190, 105}), 0) << "runs over the whole lane";
}

TEST_F(RendererGdiLimits, ThousandModes) {
  program.modes.resize(1'000, program.modes[0]);
  program.modes[999].channels[0] = {StepAt("12:00", 50)};
  program.currentMode = 999;
  Draw();
  EXPECT_EQ(At(0, "12:00", 50), 0xFFFF00U);
}

TEST_F(RendererGdiLimits, CountersSeeWhatIsKept) {
  const int objects = CountGdiObjects();
  const int blocks = CountHeapBlocks();
  const HBRUSH brush = CreateSolidBrush(0x123456);
  Gdiplus::GpPen* pen = nullptr;
  Gdiplus::DllExports::GdipCreatePen1(0xFF123456, 1.0F, Gdiplus::UnitPixel, &pen);
  EXPECT_EQ(CountGdiObjects(), objects + 1);
  EXPECT_GT(CountHeapBlocks(), blocks);
  Gdiplus::DllExports::GdipDeletePen(pen);
  DeleteObject(brush);
}

TEST_F(RendererGdiLimits, FramesGiveBackWhatTheyTake) {
  for (int i = 0; i < 5; ++i) GivenSteps(i, ManySteps(5));
  Select(0, 3);
  demoState.SetRunning(12 * 3600, TCBase::StatePlaying);
  const auto draw = [&](int frames) {
    for (int i = 0; i < frames; ++i) {
      program.viewEnd = i % 2 == 0 ? 86400 : 43200;
      if (i % 5 == 0) renderer.Rebuild();
      InvalidateRect(window, nullptr, FALSE);
      renderer.Render();
    }
  };
  draw(20);
  const int objects = CountGdiObjects();
  const int blocks = CountHeapBlocks();
  draw(500);
  EXPECT_NEAR(CountGdiObjects(), objects, 10);
  EXPECT_NEAR(CountHeapBlocks(), blocks, 100);
}

}  // namespace
