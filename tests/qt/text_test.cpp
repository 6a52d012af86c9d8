// Texts: their sizes, where lines break, and that any text is set. What letters look like is the font's.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <optional>
#include <string>

#include "platform/qt/canvas/qt_canvas.h"

namespace {

using UX::Brush;
using UX::TextFormat;
using UX::TextSize;

constexpr TextSize kWide = {1000.0F, 1000.0F};

class TextTest : public testing::Test {
 protected:
  TextTest() {
    image_.fill(Qt::white);
    painter_.emplace(&image_);
    canvas_.Begin(*painter_);
    canvas_.SetBrush(Brush::Black, {0, 0, 0}, 1.0F);
    canvas_.SetFont(TextFormat::Small, {10.0F, false});
    canvas_.SetFont(TextFormat::Medium, {20.0F, false});
    canvas_.SetFont(TextFormat::Large, {20.0F, true});
  }

  TextSize LayOut(TextFormat format, const std::string& text, const TextSize& limits = kWide) {
    return canvas_.LayOutText(format, text, limits);
  }

  // Whether anything is drawn within a part of the picture.
  bool HasInk(const QRect& part) const {
    for (int y = part.top(); y <= part.bottom(); ++y)
      for (int x = part.left(); x <= part.right(); ++x)
        if (image_.pixel(x, y) != 0xFFFFFFFF) return true;
    return false;
  }

  QImage image_{300, 200, QImage::Format_ARGB32_Premultiplied};
  std::optional<QPainter> painter_;
  qt::QtCanvas canvas_{qt::Surface::Pixels};
};

TEST_F(TextTest, ATextIsAsHighAsItsFontAndGrowsWithIt) {
  const TextSize small = LayOut(TextFormat::Small, "12:00");
  const TextSize medium = LayOut(TextFormat::Medium, "12:00");
  EXPECT_GT(small.height, 10.0F);
  EXPECT_LT(small.height, 15.0F);
  EXPECT_NEAR(medium.height, 2.0F * small.height, 0.01F);
  EXPECT_NEAR(medium.width, 2.0F * small.width, 0.01F);
}

TEST_F(TextTest, AFractionOfAPixelMatters) {
  canvas_.SetFont(TextFormat::Small, {7.4F, false});
  const float width = LayOut(TextFormat::Small, "12:00").width;
  canvas_.SetFont(TextFormat::Small, {7.6F, false});
  EXPECT_NEAR(LayOut(TextFormat::Small, "12:00").width, width * 7.6F / 7.4F, 0.01F);
}

TEST_F(TextTest, BoldIsWider) {
  EXPECT_GT(LayOut(TextFormat::Large, "Moonlight").width, LayOut(TextFormat::Medium, "Moonlight").width);
}

TEST_F(TextTest, ALineFeedBreaksTheLine) {
  const TextSize one = LayOut(TextFormat::Small, "08:05");
  const TextSize two = LayOut(TextFormat::Small, "08:05\n40%");
  EXPECT_NEAR(two.height, 2.0F * one.height, 0.01F);
  EXPECT_NEAR(two.width, one.width, 0.01F) << "the wider of the two";
}

TEST_F(TextTest, ALongTextIsBrokenAtTheLimit) {
  const float line = LayOut(TextFormat::Small, "one").height;
  const TextSize words = LayOut(TextFormat::Small, "one two three four", {40.0F, 10.0F});
  EXPECT_LE(words.width, 40.0F);
  EXPECT_GE(words.height, 2.0F * line - 0.01F);
  const TextSize word = LayOut(TextFormat::Small, std::string(40, 'w'), {60.0F, 10.0F});
  EXPECT_LE(word.width, 60.0F) << "within a word, where there is no other place";
  EXPECT_GT(word.height, 10.0F) << "larger than the limits";
}

TEST_F(TextTest, ATextIsDrawnWithItsLeftTopAtTheOrigin) {
  canvas_.SetTransform(UX::Translation(100, 50));
  const TextSize size = LayOut(TextFormat::Medium, "88%");
  canvas_.DrawLayout(Brush::Black);
  EXPECT_TRUE(HasInk(QRect(100, 50, static_cast<int>(size.width), static_cast<int>(size.height))));
  EXPECT_FALSE(HasInk(QRect(0, 0, 99, 200)));
  EXPECT_FALSE(HasInk(QRect(0, 0, 300, 50)));
  EXPECT_FALSE(HasInk(QRect(0, 50 + static_cast<int>(size.height) + 1, 300, 80)));
  EXPECT_FALSE(HasInk(QRect(100 + static_cast<int>(size.width) + 2, 0, 100, 200)));
}

TEST_F(TextTest, ATextIsScaledWithTheRest) {
  canvas_.SetTransform({0.5F, {100, 50}});
  const TextSize size = LayOut(TextFormat::Medium, "88%");
  canvas_.DrawLayout(Brush::Black);
  EXPECT_FALSE(HasInk(QRect(100 + static_cast<int>(size.width / 2) + 2, 0, 100, 200)));
  EXPECT_TRUE(HasInk(QRect(100, 50, static_cast<int>(size.width / 2), static_cast<int>(size.height / 2))));
}

TEST_F(TextTest, TheTextLaidOutLastIsDrawn) {
  LayOut(TextFormat::Medium, "88%");
  LayOut(TextFormat::Medium, "");
  canvas_.DrawLayout(Brush::Black);
  EXPECT_FALSE(HasInk(image_.rect()));
}

TEST_F(TextTest, ANewFontLeavesNothingToDraw) {
  LayOut(TextFormat::Medium, "88%");
  canvas_.SetFont(TextFormat::Medium, {5.0F, false});
  canvas_.DrawLayout(Brush::Black);
  EXPECT_FALSE(HasInk(image_.rect()));
}

TEST_F(TextTest, ManyTextsInAFrameKeepTheirSizes) {
  const float first = LayOut(TextFormat::Small, "text 1").width;
  for (int i = 0; i < 200; ++i) LayOut(TextFormat::Small, "text " + std::to_string(i));
  EXPECT_EQ(LayOut(TextFormat::Small, "text 1").width, first);
}

TEST_F(TextTest, AnyTextIsSet) {
  for (const std::string& text :
       {std::string(), std::string("\n\n\n"), std::string("\xFF\xC0\x80 broken"),
        std::string("a\0b\x1B[2J\t\0", 9), std::string("\xEF\xBF\xBF"),
        std::string("\xE2\x80\xAE right to left"), std::string(1'000'000, 'w'), std::string(100'000, '\n')}) {
    for (const TextSize& limits : {kWide, TextSize{0.0F, 0.0F}, TextSize{1.0F, 1.0F}, TextSize{-5.0F, -5.0F},
                                   TextSize{UX::kFarthest, UX::kFarthest}}) {
      const TextSize size = LayOut(TextFormat::Large, text, limits);
      EXPECT_GE(size.width, 0.0F);
      EXPECT_GE(size.height, 0.0F);
      canvas_.DrawLayout(Brush::Black);
    }
  }
}

TEST_F(TextTest, AnySizeOfFontIsSet) {
  for (const float size : {0.01F, 1.0F, 500.0F, 10'000.0F}) {
    canvas_.SetFont(TextFormat::Small, {size, true});
    EXPECT_GT(LayOut(TextFormat::Small, "12:00", {UX::kFarthest, UX::kFarthest}).width, 0.0F);
    canvas_.DrawLayout(Brush::Black);
  }
}

}  // namespace
