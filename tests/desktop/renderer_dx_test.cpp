// The chart's renderer on a window of its own: what becomes of its resources.

#include "platform/win32/renderer_dx.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

#include "program/builtin_modes.h"
#include "tests/desktop/screen_picture.h"
#include "tests/desktop/test_window.h"
#include "tests/support/patience.h"

namespace {

using desktop::ScreenPicture;
using UX::Color;
using UX::Rect;

constexpr int kWidth = 600;
constexpr int kHeight = 400;
constexpr Color kSalmon{250, 128, 114};

// The chart's window is smaller than the main one, which the layout goes by.
constexpr int kMainWidth = kWidth + 120;
constexpr int kMainHeight = kHeight + 166;

// One window for all tests: making a device takes seconds where the graphics card is simulated.
struct DrawnChart {
  DrawnChart() {
    chart.Attach(window.handle());
    layout.Update(kMainWidth, kMainHeight);
    now += 1.0;  // the lanes are at rest
    renderer.Initialise();
  }
  ~DrawnChart() { renderer.Release(); }

  const desktop::TestWindow window{kWidth, kHeight};
  win32::ChartWindow chart;
  TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  TCBase::Program::StepSelection selection{program};
  TCBase::Program::StepSelection hoverStep{program};
  TCBase::DemoState demo;
  double now = 0.0;
  UX::ChartLayout layout{now};
  UX::RendererDX renderer{{program, selection, hoverStep, layout, demo, now}, chart};
};

class RendererDX : public testing::Test {
 protected:
  static void SetUpTestSuite() { drawn = std::make_unique<DrawnChart>(); }
  static void TearDownTestSuite() { drawn.reset(); }
  void SetUp() override {
    program = TCBase::Program::NewProgram();
    renderer.Rebuild();
  }

  // Draws until the window looks as it should.
  bool Shows(const std::function<bool(const ScreenPicture&)>& isShown) {
    return WaitUntil([&] {
      renderer.Render();
      return isShown(ScreenPicture::OfWindow(window.handle()));
    });
  }
  static bool HasCurves(const ScreenPicture& picture) { return picture.Count(All(), kSalmon) > 1000; }
  static bool HasNone(const ScreenPicture& picture) { return picture.Count(All(), kSalmon) == 0; }
  // What the screen shows once it has shown another picture of this very document: frames come to the screen
  // later than they are drawn, and one that was drawn before would be taken for it.
  ScreenPicture AtRest() {
    const auto channels = std::exchange(program.modes[0].channels, {});
    EXPECT_TRUE(Shows(HasNone));
    program.modes[0].channels = channels;
    EXPECT_TRUE(Shows(HasCurves));
    ScreenPicture last = ScreenPicture::OfWindow(window.handle());
    EXPECT_TRUE(Shows([&](const ScreenPicture& picture) {
      const int changed = picture.CountDifferences(All(), last);
      last = picture;
      return changed == 0;
    }));
    return last;
  }
  bool ShowsAgain(const ScreenPicture& before) { return AtRest().CountDifferences(All(), before) == 0; }
  bool ShowsOther(const ScreenPicture& before) {
    return Shows([&](const ScreenPicture& picture) { return picture.CountDifferences(All(), before) > 50; });
  }
  static Rect All() { return {0, 0, kWidth, kHeight}; }

  static std::unique_ptr<DrawnChart> drawn;
  const desktop::TestWindow& window = drawn->window;
  TCBase::Program::ModeListView& program = drawn->program;
  UX::ChartLayout& layout = drawn->layout;
  UX::RendererDX& renderer = drawn->renderer;
};

std::unique_ptr<DrawnChart> RendererDX::drawn;

TEST_F(RendererDX, LostTargetIsMadeAnewAtOnce) {
  const ScreenPicture before = AtRest();
  // A white frame over the picture, as a card that was taken away leaves it.
  const TCBase::Program::ModeListView kept = program;
  program.modes[0].channels = {};
  ASSERT_TRUE(ShowsOther(before));
  program = kept;
  renderer.AfterDraw(static_cast<HRESULT>(D2DERR_RECREATE_TARGET));
  EXPECT_TRUE(ShowsAgain(before));
}

TEST_F(RendererDX, OnlyALostTargetIsMadeAnew) {
  const ScreenPicture before = AtRest();
  program.channelInfos[0].name = "Another name";
  for (const HRESULT result : {S_OK, E_FAIL, E_OUTOFMEMORY}) renderer.AfterDraw(result);
  EXPECT_TRUE(ShowsAgain(before)) << "names are drawn when the target is made";
  renderer.AfterDraw(static_cast<HRESULT>(D2DERR_RECREATE_TARGET));
  EXPECT_TRUE(ShowsOther(before));
}

TEST_F(RendererDX, WindowWithoutSizeLeavesEverythingAsItIs) {
  const ScreenPicture before = AtRest();
  SetWindowPos(window.handle(), nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  renderer.Rebuild();
  renderer.Render();
  SetWindowPos(window.handle(), nullptr, 0, 0, kWidth, kHeight, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_TRUE(ShowsAgain(before)) << "with the target that it had";
}

TEST_F(RendererDX, AxisMovesWithTheViewOnlyAfterRelayout) {
  const Rect lane = layout.LaneRect(4);
  const Rect hours{lane.x + 40, lane.y + lane.height - 12, lane.width - 80, 8};
  AtRest();
  program.modes[0].channels = {};
  ASSERT_TRUE(Shows(HasNone));
  const ScreenPicture before = ScreenPicture::OfWindow(window.handle());
  program.viewStart = 1800;
  renderer.Relayout();
  EXPECT_TRUE(
      Shows([&](const ScreenPicture& picture) { return picture.CountDifferences(hours, before) > 20; }));
}

TEST_F(RendererDX, FrameLeavesNothingToBePainted) {
  InvalidateRect(window.handle(), nullptr, FALSE);
  renderer.Render();
  EXPECT_FALSE(GetUpdateRect(window.handle(), nullptr, FALSE));
}

}  // namespace
