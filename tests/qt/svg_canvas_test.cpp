// The SVG canvas, seen by another program's eyes: what each operation looks like in a reader of SVG.

#include "platform/qt/canvas/svg_canvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include <string>

#include "tests/qt/pictures.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using UX::Brush;
using UX::Figure;
using UX::Label;
using UX::Rectangle;

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;
constexpr QRgb kOrange = 0xFFFFA500;
constexpr UX::TextSize kRoomy{1000.0F, 1000.0F};

class SvgCanvasTest : public testing::Test {
 protected:
  SvgCanvasTest() {
    canvas.SetBrush(Brush::Black, {0, 0, 0}, 1.0F);
    canvas.SetBrush(Brush::Orange, {255, 165, 0}, 1.0F);
    canvas.SetFont(UX::TextFormat::Small, {12.0F, false});
    canvas.SetFont(UX::TextFormat::Large, {40.0F, true});
  }

  std::string Document() const { return canvas.Document(300, 200); }
  QImage Seen() const { return pictures::FromSvg(Document()); }
  static bool HasInk(const QImage& image, const QRect& part) {
    for (int y = part.top(); y <= part.bottom(); ++y)
      for (int x = part.left(); x <= part.right(); ++x)
        if (image.pixel(x, y) != kWhite) return true;
    return false;
  }

  qt::SvgCanvas canvas;
};

TEST_F(SvgCanvasTest, IsWhiteAndOfItsSizeInPixels) {
  const QImage seen = Seen();
  EXPECT_EQ(seen.size(), QSize(300, 200));
  EXPECT_EQ(seen.pixel(0, 0), kWhite);
  EXPECT_EQ(seen.pixel(299, 199), kWhite);
}

TEST_F(SvgCanvasTest, DrawsShapesWhereTheyAre) {
  canvas.Fill(Rectangle{10, 20, 100, 50}, Brush::Orange);
  canvas.Fill(UX::Circle{{200, 50}, 20}, Brush::Black);
  canvas.Stroke(Rectangle{150, 100, 0, 80}, Brush::Black, 4.0F);
  canvas.Stroke(UX::Line{{10, 100}, {100, 100}}, Brush::Orange, 4.0F);
  canvas.Fill(UX::RoundedRectangle{{200, 100, 60, 40}, 10}, Brush::Orange);
  const QImage seen = Seen();
  EXPECT_EQ(seen.pixel(10, 20), kOrange);
  EXPECT_EQ(seen.pixel(109, 69), kOrange);
  EXPECT_EQ(seen.pixel(110, 69), kWhite);
  EXPECT_EQ(seen.pixel(200, 31), kBlack);
  EXPECT_EQ(seen.pixel(182, 32), kWhite) << "beside the circle";
  EXPECT_EQ(seen.pixel(149, 140), kBlack) << "a rectangle without width is a line";
  EXPECT_EQ(seen.pixel(150, 140), kBlack);
  EXPECT_EQ(seen.pixel(50, 99), kOrange);
  EXPECT_EQ(seen.pixel(200, 100), kWhite) << "a round corner";
  EXPECT_EQ(seen.pixel(230, 101), kOrange);
}

TEST_F(SvgCanvasTest, FillsColumns) {
  const UX::Color colors[] = {{255, 165, 0}, {255, 165, 0}, {0, 0, 0}, {255, 255, 255}};
  canvas.Fill(Rectangle{0, 0, 300, 100}, Brush::Black);
  canvas.SetTransform(UX::Translation(0.0F, 10.0F));
  canvas.FillColumns({10, 20, 40, 5}, colors);
  const QImage seen = Seen();
  EXPECT_EQ(seen.pixel(9, 32), kBlack);
  EXPECT_EQ(seen.pixel(10, 30), kOrange);
  EXPECT_EQ(seen.pixel(20, 32), kOrange) << "no gap";
  EXPECT_EQ(seen.pixel(29, 34), kOrange);
  EXPECT_EQ(seen.pixel(30, 32), kBlack);
  EXPECT_EQ(seen.pixel(40, 32), kWhite);
  EXPECT_EQ(seen.pixel(49, 32), kWhite);
  EXPECT_EQ(seen.pixel(50, 32), kBlack);
}

TEST_F(SvgCanvasTest, DrawsFigures) {
  Figure figure;
  figure.Begin({10, 10});
  figure.LineTo({110, 10});
  figure.LineTo({110, 110});
  canvas.StrokeFigure(figure, Brush::Black, 4.0F);
  figure.Close();
  canvas.SetTransform(UX::Translation(150, 0));
  canvas.StrokeFigure(figure, Brush::Black, 4.0F);
  canvas.FillFigure(figure, Brush::Orange);
  const QImage seen = Seen();
  EXPECT_EQ(seen.pixel(60, 10), kBlack);
  EXPECT_EQ(seen.pixel(60, 60), kWhite) << "open";
  EXPECT_NE(seen.pixel(210, 61), kWhite) << "closed";
  EXPECT_EQ(seen.pixel(240, 50), kOrange);
}

TEST_F(SvgCanvasTest, ScalesThenMovesAndKeepsTheOpacity) {
  canvas.SetOpacity(Brush::Black, 0.5F);
  canvas.SetTransform({2.0F, {50, 20}});
  canvas.Fill(Rectangle{10, 10, 20, 10}, Brush::Black);
  const QImage seen = Seen();
  EXPECT_NEAR(qRed(seen.pixel(70, 40)), 128, 1);
  EXPECT_NEAR(qRed(seen.pixel(109, 59)), 128, 1);
  EXPECT_EQ(seen.pixel(110, 59), kWhite);
  EXPECT_EQ(seen.pixel(69, 40), kWhite);
}

TEST_F(SvgCanvasTest, CutsALabelToItsSize) {
  canvas.BeginLabel(Label::Hours, 40, 20);
  canvas.SetTransform(UX::Translation(-5, -5));
  canvas.Fill(Rectangle{0, 0, 100, 100}, Brush::Orange);
  canvas.EndLabel();
  canvas.Fill(Rectangle{0, 0, 5, 5}, Brush::Black);
  canvas.SetTransform(UX::Translation(100, 50));
  canvas.DrawLabel(Label::Hours);
  const QImage seen = Seen();
  EXPECT_EQ(seen.pixel(100, 50), kOrange);
  EXPECT_EQ(seen.pixel(139, 69), kOrange);
  EXPECT_EQ(seen.pixel(140, 60), kWhite);
  EXPECT_EQ(seen.pixel(120, 70), kWhite);
  EXPECT_EQ(seen.pixel(99, 60), kWhite);
  EXPECT_EQ(seen.pixel(2, 2), kBlack) << "the transform is as before";
}

TEST_F(SvgCanvasTest, DrawsTheLabelMadeLastAndNoneThatWasNeverMade) {
  for (const Brush brush : {Brush::Black, Brush::Orange}) {
    canvas.BeginLabel(Label::Hours, 40, 20);
    canvas.Fill(Rectangle{0, 0, 40, 20}, brush);
    canvas.EndLabel();
    canvas.BeginFrame();
  }
  canvas.DrawLabel(Label::Hours);
  canvas.SetTransform(UX::Translation(100, 50));
  canvas.DrawLabel(UX::ChannelNameLabel(2));
  const QImage seen = Seen();
  EXPECT_EQ(seen.pixel(20, 10), kOrange);
  EXPECT_FALSE(HasInk(seen, {100, 50, 200, 150}));
}

TEST_F(SvgCanvasTest, DrawsATextWithinTheSizeItWasLaidOutIn) {
  canvas.SetTransform(UX::Translation(50, 60));
  const UX::TextSize size = canvas.LayOutText(UX::TextFormat::Large, "8\xC2\xB0\n40%", kRoomy);
  canvas.DrawLayout(Brush::Black);
  const QImage seen = Seen();
  const int width = static_cast<int>(size.width) + 2;
  const int height = static_cast<int>(size.height) + 1;
  EXPECT_TRUE(HasInk(seen, {50, 60, width, height / 2})) << "the first line";
  EXPECT_TRUE(HasInk(seen, {50, 60 + height / 2, width, height / 2})) << "the second";
  EXPECT_FALSE(HasInk(seen, {0, 0, 49, 200}));
  EXPECT_FALSE(HasInk(seen, {0, 0, 300, 60}));
  EXPECT_FALSE(HasInk(seen, {50 + width, 0, 250 - width, 200}));
  EXPECT_FALSE(HasInk(seen, {0, 60 + height, 300, 140 - height}));
}

TEST_F(SvgCanvasTest, NamesAFamilyThatEveryReaderKnowsAndEscapesTexts) {
  canvas.LayOutText(UX::TextFormat::Large, "a < b & \"c\"\x01", kRoomy);
  canvas.DrawLayout(Brush::Black);
  EXPECT_THAT(Document(),
              HasSubstr("font-family=\"Tahoma, sans-serif\" font-size=\"40\" font-weight=\"700\""));
  EXPECT_THAT(Document(), HasSubstr(">a &lt; b &amp; &quot;c&quot;\xEF\xBF\xBD</text>"));
  canvas.BeginFrame();
  EXPECT_THAT(Document(), Not(HasSubstr("<text"))) << "a new frame begins with nothing";
}

}  // namespace
