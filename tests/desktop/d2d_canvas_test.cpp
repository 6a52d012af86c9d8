// Direct2D's canvas in a window of its own, seen by its pixels. Edges may be smooth, so what is looked at
// lies within a shape or clear of it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include "platform/win32/d2d_canvas.h"
#include "tests/desktop/screen_picture.h"
#include "tests/desktop/test_window.h"
#include "tests/support/patience.h"

namespace {

using desktop::ScreenPicture;
using UX::Brush;
using UX::Color;

constexpr Color kWhite{255, 255, 255};
constexpr Color kBlack{0, 0, 0};
constexpr Color kRed{255, 0, 0};

constexpr int kWidth = 300;
constexpr int kHeight = 200;
constexpr int kMarkWidth = 10;
constexpr UX::TextSize kRoomy{1000.0F, 1000.0F};

// One window and target for all tests: making a target takes seconds where the graphics card is simulated.
struct DrawnWindow {
  DrawnWindow() {
    canvas.MakeFactories();
    MakeTarget();
  }
  void MakeTarget(UINT dotsPerInch = USER_DEFAULT_SCREEN_DPI) {
    dpi = dotsPerInch;
    canvas.MakeTarget(window.handle(), dpi);
    canvas.SetBrush(Brush::Black, kBlack, 1.0F);
    canvas.SetBrush(Brush::White, kWhite, 1.0F);
    canvas.SetBrush(Brush::Salmon, kRed, 1.0F);
    canvas.SetFont(UX::TextFormat::Small, {12.0F, false});
    canvas.SetFont(UX::TextFormat::Large, {40.0F, true});
  }

  const desktop::TestWindow window{kWidth + kMarkWidth, kHeight};
  win32::D2DCanvas canvas;
  UINT dpi = 0;
  std::uint8_t frames = 0;
};

class D2DCanvas : public testing::Test {
 protected:
  static void SetUpTestSuite() { drawn = std::make_unique<DrawnWindow>(); }
  static void TearDownTestSuite() { drawn.reset(); }

  // Draws a frame and waits until the screen shows it: each has a mark of its own colour beside it.
  template <class Draw>
  void Frame(const Draw& draw) {
    const Color mark{1, 2, ++drawn->frames};
    canvas.BeginFrame();
    draw();
    canvas.SetBrush(Brush::Gray, mark, 1.0F);
    canvas.SetTransform(UX::kIdentity);
    canvas.Fill(UX::Rectangle{Units(kWidth), 0, Units(kMarkWidth), Units(kHeight)}, Brush::Gray);
    EXPECT_EQ(canvas.EndFrame(), S_OK);
    const auto isShown = [&] {
      picture = ScreenPicture::Take();
      return At(kWidth + 1, 1) == mark;
    };
    EXPECT_TRUE(WaitUntil(isShown)) << "the frame is not shown";
  }
  // Of the canvas.
  static float Units(int pixels) {
    return static_cast<float>(pixels) * USER_DEFAULT_SCREEN_DPI / static_cast<float>(drawn->dpi);
  }
  static int Pixels(int units) {
    return MulDiv(units, static_cast<int>(drawn->dpi), USER_DEFAULT_SCREEN_DPI);
  }
  Color At(int x, int y) const { return picture.At(window.x() + x, window.y() + y); }
  int Count(const Rect& area, Color color) const {
    return picture.Count({window.x() + area.x, window.y() + area.y, area.width, area.height}, color);
  }
  int CountAll(Color color) const { return Count({0, 0, kWidth, kHeight}, color); }

  static std::unique_ptr<DrawnWindow> drawn;
  const desktop::TestWindow& window = drawn->window;
  win32::D2DCanvas& canvas = drawn->canvas;
  ScreenPicture picture = ScreenPicture::Take();
};

std::unique_ptr<DrawnWindow> D2DCanvas::drawn;

TEST_F(D2DCanvas, BeginsWhite) {
  Frame([] {});
  EXPECT_EQ(CountAll(kWhite), kWidth * kHeight);
}

TEST_F(D2DCanvas, FillsShapes) {
  Frame([&] {
    canvas.Fill(UX::Rectangle{10, 10, 30, 20}, Brush::Black);
    canvas.Fill(UX::RoundedRectangle{{60, 10, 30, 20}, 5}, Brush::Salmon);
    canvas.Fill(UX::Circle{{120, 20}, 10}, Brush::Black);
    canvas.Fill(UX::Line{{10, 60}, {100, 60}}, Brush::Black);
  });
  EXPECT_EQ(Count({10, 10, 30, 20}, kBlack), 30 * 20);
  EXPECT_EQ(At(9, 20), kWhite);
  EXPECT_EQ(At(40, 20), kWhite);
  EXPECT_EQ(At(75, 11), kRed);
  EXPECT_EQ(At(60, 10), kWhite) << "a round corner";
  EXPECT_EQ(At(120, 12), kBlack);
  EXPECT_EQ(At(112, 12), kWhite) << "beside the circle";
  EXPECT_EQ(Count({0, 50, 300, 20}, kWhite), 300 * 20) << "a line has no inside";
}

TEST_F(D2DCanvas, FillsColumnsFromTheLeft) {
  const Color colors[] = {kRed, kBlack, kWhite, kBlack};
  Frame([&] {
    canvas.FillColumns({10, 20, 40, 10}, colors);
    canvas.FillColumns({100, 20, 40, 10}, std::span(colors).first(2));
  });
  EXPECT_EQ(At(12, 25), kRed);
  EXPECT_EQ(At(18, 25), kRed);
  EXPECT_EQ(At(22, 25), kBlack);
  EXPECT_EQ(At(35, 25), kWhite);
  EXPECT_EQ(At(45, 25), kBlack);
  EXPECT_EQ(At(52, 25), kWhite);
  EXPECT_EQ(At(105, 25), kRed);
  EXPECT_EQ(At(135, 25), kBlack);
}

TEST_F(D2DCanvas, StrokesShapes) {
  Frame([&] {
    canvas.Stroke(UX::Rectangle{10, 10, 40, 30}, Brush::Black, 3.0F);
    canvas.Stroke(UX::RoundedRectangle{{60, 10, 40, 30}, 5}, Brush::Black, 3.0F);
    canvas.Stroke(UX::Circle{{130, 25}, 15}, Brush::Black, 4.0F);
    canvas.Stroke(UX::Line{{10, 60}, {100, 60}}, Brush::Salmon, 4.0F);
  });
  for (const int left : {10, 60, 115}) {
    EXPECT_EQ(At(left, 25), kBlack);
    EXPECT_EQ(At(left + 15, 25), kWhite) << "the inside";
  }
  EXPECT_EQ(At(50, 59), kRed);
  EXPECT_EQ(At(50, 60), kRed);
  EXPECT_EQ(At(50, 64), kWhite);
}

TEST_F(D2DCanvas, StrokesARectangleWithoutWidthOrHeightAsALine) {
  Frame([&] {
    canvas.Stroke(UX::Rectangle{10, 50, 100, 0}, Brush::Black, 4.0F);
    canvas.Stroke(UX::Rectangle{150, 10, 0, 100}, Brush::Black, 4.0F);
  });
  EXPECT_EQ(Count({20, 49, 80, 2}, kBlack), 160);
  EXPECT_EQ(Count({149, 20, 2, 80}, kBlack), 160);
}

TEST_F(D2DCanvas, DrawsFigures) {
  UX::Figure triangle;
  triangle.Begin({10, 60});
  triangle.LineTo({60, 10});
  triangle.LineTo({110, 60});
  UX::Figure grid;
  grid.AddLine({150, 20}, {250, 20});
  grid.AddLine({150, 40}, {250, 40});
  Frame([&] {
    canvas.FillFigure(triangle, Brush::Salmon);
    canvas.StrokeFigure(triangle, Brush::Black, 4.0F);
    canvas.StrokeFigure(grid, Brush::Black, 4.0F);
    triangle.Close();
    canvas.SetTransform(UX::Translation(0, 100));
    canvas.StrokeFigure(triangle, Brush::Black, 4.0F);
  });
  EXPECT_EQ(At(60, 40), kRed);
  EXPECT_EQ(At(35, 35), kBlack);
  EXPECT_EQ(At(60, 59), kRed) << "an open figure has no stroke from its end to its beginning";
  EXPECT_EQ(At(200, 20), kBlack);
  EXPECT_EQ(At(200, 30), kWhite) << "each line stands for itself";
  EXPECT_EQ(At(200, 40), kBlack);
  EXPECT_EQ(At(60, 160), kBlack) << "a closed one has";
}

TEST_F(D2DCanvas, ScalesThenMoves) {
  Frame([&] {
    canvas.SetTransform({2.0F, {50, 20}});
    canvas.Fill(UX::Rectangle{10, 10, 20, 10}, Brush::Black);
  });
  EXPECT_EQ(Count({70, 40, 40, 20}, kBlack), 800);
  EXPECT_EQ(CountAll(kBlack), 800);
}

TEST_F(D2DCanvas, TransformDoesNotReachIntoTheNextFrame) {
  Frame([&] { canvas.SetTransform(UX::Translation(100, 100)); });
  Frame([&] { canvas.Fill(UX::Rectangle{0, 0, 10, 10}, Brush::Black); });
  EXPECT_EQ(At(5, 5), kBlack);
}

TEST_F(D2DCanvas, OpacityLastsUntilItIsSetAnew) {
  canvas.SetOpacity(Brush::Black, 0.5F);
  Frame([&] { canvas.Fill(UX::Rectangle{0, 0, 10, 10}, Brush::Black); });
  EXPECT_NEAR(At(5, 5).red, 128, 1);
  Frame([&] {
    canvas.Fill(UX::Rectangle{0, 0, 10, 10}, Brush::Black);
    canvas.SetOpacity(Brush::Black, 1.0F);
    canvas.Fill(UX::Rectangle{20, 0, 10, 10}, Brush::Black);
  });
  EXPECT_NEAR(At(5, 5).red, 128, 1);
  EXPECT_EQ(At(25, 5), kBlack);
}

TEST_F(D2DCanvas, TextIsAsLargeAsItIsLaidOut) {
  const UX::TextSize one = canvas.LayOutText(UX::TextFormat::Small, "08:30", kRoomy);
  EXPECT_GT(one.width, 20.0F);
  EXPECT_LT(one.width, 50.0F);
  EXPECT_GT(one.height, 11.0F);
  EXPECT_LT(one.height, 20.0F);
  const UX::TextSize two = canvas.LayOutText(UX::TextFormat::Small, "08:30\n40%", kRoomy);
  EXPECT_EQ(two.width, one.width);
  EXPECT_EQ(two.height, 2 * one.height);
  const UX::TextSize broken = canvas.LayOutText(UX::TextFormat::Small, "many words on a line", {40, 10});
  EXPECT_LE(broken.width, 40.0F);
  EXPECT_GE(broken.height, 3 * one.height) << "higher than its limits";
}

TEST_F(D2DCanvas, TextIsDrawnFromTheOrigin) {
  UX::TextSize size;
  Frame([&] {
    size = canvas.LayOutText(UX::TextFormat::Large, "Grüße", kRoomy);
    canvas.SetTransform(UX::Translation(50, 60));
    canvas.DrawLayout(Brush::Black);
  });
  const int all = kWidth * kHeight - CountAll(kWhite);
  const Rect box{49, 60, static_cast<std::int32_t>(size.width) + 2,
                 static_cast<std::int32_t>(size.height) + 1};
  EXPECT_EQ(box.width * box.height - Count(box, kWhite), all) << "nothing beside its box";
  EXPECT_GT(all, 500);
}

TEST_F(D2DCanvas, DrawsNothingForATextThatCannotBeLaidOut) {
  Frame([&] {
    EXPECT_EQ(canvas.LayOutText(UX::TextFormat::Small, "abc", {-5, -5}).width, 0.0F);
    canvas.DrawLayout(Brush::Black);
  });
  EXPECT_EQ(CountAll(kWhite), kWidth * kHeight);
}

// Labels

TEST_F(D2DCanvas, LabelIsTransparentWhereNothingWasDrawn) {
  for (const UX::Label label : {UX::Label::Hours, UX::PercentLabel(30), UX::ChannelNameLabel(4)}) {
    canvas.BeginLabel(label, 100, 50);
    canvas.SetTransform(UX::Translation(10, 10));
    canvas.Fill(UX::Rectangle{0, 0, 20, 20}, Brush::Black);
    canvas.EndLabel();
    Frame([&] {
      canvas.Fill(UX::Rectangle{0, 0, 300, 100}, Brush::Salmon);
      canvas.SetTransform(UX::Translation(100, 20));
      canvas.DrawLabel(label);
    });
    EXPECT_EQ(Count({110, 30, 20, 20}, kBlack), 400);
    EXPECT_EQ(Count({0, 0, 300, 100}, kRed), 300 * 100 - 400);
  }
}

TEST_F(D2DCanvas, LabelsOfOneRunDoNotShareWhatIsInThem) {
  for (int percent = 10; percent <= 100; percent += 10) {
    canvas.BeginLabel(UX::PercentLabel(percent), 120, 20);
    canvas.Fill(UX::Rectangle{static_cast<float>(percent), 0, 5, 5}, Brush::Black);
    canvas.EndLabel();
  }
  Frame([&] { canvas.DrawLabel(UX::PercentLabel(40)); });
  EXPECT_EQ(At(42, 2), kBlack);
  EXPECT_EQ(CountAll(kBlack), 25);
}

TEST_F(D2DCanvas, LabelThatWasNeverMadeDrawsNothing) {
  Frame([&] { canvas.DrawLabel(UX::ChannelNameLabel(2)); });
  EXPECT_EQ(CountAll(kWhite), kWidth * kHeight);
}

TEST_F(D2DCanvas, LabelLargerThanAnyBitmapIsCutOff) {
  canvas.BeginLabel(UX::ChannelNameLabel(0), 2000000, 1000000);
  canvas.Fill(UX::Rectangle{0, 0, 1000, 1000}, Brush::Black);
  canvas.EndLabel();
  Frame([&] { canvas.DrawLabel(UX::ChannelNameLabel(0)); });
  EXPECT_EQ(CountAll(kBlack), kWidth * kHeight);
}

TEST_F(D2DCanvas, DrawsTheSameOnANewTarget) {
  const auto draw = [&] {
    canvas.Fill(UX::Circle{{100, 100}, 50}, Brush::Salmon);
    canvas.LayOutText(UX::TextFormat::Large, "Day", kRoomy);
    canvas.DrawLayout(Brush::Black);
  };
  Frame(draw);
  const ScreenPicture before = picture;
  drawn->MakeTarget();
  Frame(draw);
  EXPECT_EQ(before.CountDifferences({window.x(), window.y(), kWidth, kHeight}, picture), 0);
}

TEST_F(D2DCanvas, KeepsNothingOfFormerTargets) {
  // All that Direct2D makes holds its factory.
  const auto references = [&] {
    win32::ComPtr<ID2D1Factory> factory;
    canvas.MakeGeometry({})->GetFactory(factory.GetAddressOf());
    factory.Get()->AddRef();
    return factory.Get()->Release();
  };
  const auto useATarget = [&] {
    drawn->MakeTarget();
    for (int label = 0; label < UX::kLabelCount; ++label) {
      canvas.BeginLabel(static_cast<UX::Label>(label), 100, 20);
      canvas.LayOutText(UX::TextFormat::Small, "08:30", kRoomy);
      canvas.DrawLayout(Brush::Black);
      canvas.EndLabel();
    }
    Frame([&] {
      UX::Figure line;
      line.AddLine({0, 0}, {100, 100});
      canvas.StrokeFigure(line, Brush::Black, 2.0F);
      canvas.LayOutText(UX::TextFormat::Large, "Day", kRoomy);
      canvas.DrawLayout(Brush::Black);
      canvas.DrawLabel(UX::Label::Hours);
    });
  };
  useATarget();
  const ULONG before = references();
  for (int i = 0; i < 5; ++i) useATarget();
  EXPECT_EQ(references(), before);
}

// Other resolutions

class D2DCanvasOnAFineScreen : public D2DCanvas, public testing::WithParamInterface<UINT> {
 protected:
  void SetUp() override { drawn->MakeTarget(GetParam()); }

  std::vector<Color> PixelsOf(const Rect& area) const {
    std::vector<Color> pixels;
    for (int y = area.y; y < area.y + area.height; ++y)
      for (int x = area.x; x < area.x + area.width; ++x) pixels.push_back(At(x, y));
    return pixels;
  }
};
INSTANTIATE_TEST_SUITE_P(DotsPerInch, D2DCanvasOnAFineScreen, testing::Values(96, 120, 144, 192));

TEST_P(D2DCanvasOnAFineScreen, HasMorePixelsForAUnit) {
  Frame([&] { canvas.Fill(UX::Rectangle{8, 16, 40, 24}, Brush::Black); });
  EXPECT_EQ(Count({Pixels(8), Pixels(16), Pixels(40), Pixels(24)}, kBlack), Pixels(40) * Pixels(24));
  EXPECT_EQ(CountAll(kBlack), Pixels(40) * Pixels(24));
}

TEST_P(D2DCanvasOnAFineScreen, PutsLabelsOnWholePixels) {
  canvas.BeginLabel(UX::Label::Hours, 40, 20);
  canvas.LayOutText(UX::TextFormat::Small, "08:30", kRoomy);
  canvas.DrawLayout(Brush::Black);
  canvas.EndLabel();
  Frame([&] { canvas.DrawLabel(UX::Label::Hours); });
  const int width = Pixels(40);
  const int height = Pixels(20);
  const std::vector<Color> letters = PixelsOf({0, 0, width, height});
  EXPECT_GT(std::ranges::count(letters, kWhite), 0);
  EXPECT_LT(std::ranges::count(letters, kWhite), std::ssize(letters));
  for (const int x : {41, 42, 43}) {
    const int y = x / 2;
    Frame([&] {
      canvas.SetTransform(UX::Translation(static_cast<float>(x), static_cast<float>(y)));
      canvas.DrawLabel(UX::Label::Hours);
    });
    EXPECT_EQ(PixelsOf({Pixels(x), Pixels(y), width, height}), letters) << x;
  }
}

}  // namespace
