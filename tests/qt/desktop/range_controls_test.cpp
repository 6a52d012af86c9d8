// What slider and scroll bar tell of.

#include "platform/qt/desktop/range_controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <utility>
#include <vector>

#include "app/window/numbers.h"

namespace {

using testing::ElementsAre;
using testing::Pair;
namespace scroll = app::scroll;

using Told = std::vector<std::pair<int, int>>;

void Press(QWidget& widget, int key) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &down);
  QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &up);
}

void Mouse(QWidget& widget, QEvent::Type type, QPoint place) {
  const bool isDown = type != QEvent::MouseButtonRelease;
  QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton,
                    isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &event);
}

void Turn(QWidget& widget, int delta) {
  QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &event);
}

class SliderTest : public testing::Test {
 protected:
  SliderTest() {
    slider.resize(110, 20);
    slider.setRange(0, 22);
    slider.setPageStep(1);
    slider.setValue(10);
    slider.Connect([this](int code, int position) { told.emplace_back(code, position); });
  }

  qt::Slider slider{nullptr};
  Told told;
};

TEST_F(SliderTest, TellsOfEachKey) {
  const std::vector<std::pair<int, int>> keys = {
      {Qt::Key_Left, scroll::kLineBack},     {Qt::Key_Up, scroll::kLineBack},
      {Qt::Key_Right, scroll::kLineForward}, {Qt::Key_Down, scroll::kLineForward},
      {Qt::Key_PageUp, scroll::kPageBack},   {Qt::Key_PageDown, scroll::kPageForward},
      {Qt::Key_Home, scroll::kFirst},        {Qt::Key_End, scroll::kLast}};
  for (const auto& [key, code] : keys) {
    told.clear();
    Press(slider, key);
    EXPECT_THAT(told, ElementsAre(Pair(code, 0), Pair(scroll::kEnd, 0))) << code;
  }
}

TEST_F(SliderTest, StandsElsewhereAlreadyWhenItTells) {
  int seen = -1;
  slider.Connect([&](int code, int) {
    if (code == scroll::kLineForward) seen = slider.sliderPosition();
  });
  Press(slider, Qt::Key_Right);
  EXPECT_EQ(seen, 11);
}

TEST_F(SliderTest, StaysWhereTheAnswerPutsIt) {
  slider.Connect([this](int, int) { slider.setValue(3); });
  Press(slider, Qt::Key_End);
  EXPECT_EQ(slider.value(), 3);
}

TEST_F(SliderTest, IsNotHeardOfWhatTheApplicationDoes) {
  slider.setValue(5);
  slider.setRange(0, 4);
  slider.setPageStep(2);
  EXPECT_TRUE(told.empty());
}

TEST_F(SliderTest, IsDragged) {
  QStyleOptionSlider option;
  option.initFrom(&slider);
  option.minimum = 0;
  option.maximum = 22;
  option.sliderPosition = option.sliderValue = 10;
  option.orientation = Qt::Horizontal;
  option.state |= QStyle::State_Horizontal;
  const QRect thumb =
      slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider);
  Mouse(slider, QEvent::MouseButtonPress, thumb.center());
  Mouse(slider, QEvent::MouseMove, thumb.center() + QPoint(30, 0));
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back().first, scroll::kThumbMoving);
  EXPECT_GT(told.back().second, 10);
  told.clear();
  Mouse(slider, QEvent::MouseButtonRelease, thumb.center() + QPoint(30, 0));
  EXPECT_THAT(told, ElementsAre(Pair(scroll::kThumbReleased, 0), Pair(scroll::kEnd, 0)));
}

TEST_F(SliderTest, IsTurnedByTheWheel) {
  Turn(slider, 120);
  EXPECT_THAT(told, ElementsAre(Pair(scroll::kLineBack, 0), Pair(scroll::kEnd, 0)));
}

TEST_F(SliderTest, TakesTheFractionsOfATouchpadTogether) {
  for (int i = 0; i < 7; ++i) Turn(slider, -16);
  EXPECT_TRUE(told.empty());
  Turn(slider, -16);
  EXPECT_THAT(told, ElementsAre(Pair(scroll::kLineForward, 0), Pair(scroll::kEnd, 0)));
  told.clear();
  Turn(slider, -232);
  EXPECT_THAT(
      told, ElementsAre(Pair(scroll::kLineForward, 0), Pair(scroll::kLineForward, 0), Pair(scroll::kEnd, 0)));
}

class ScrollBarTest : public testing::Test {
 protected:
  ScrollBarTest() {
    bar.resize(400, 16);
    bar.SetStretch(0, 1440, 480, 300);
    bar.Connect([this](int code, int position) { told.emplace_back(code, position); });
  }

  qt::ScrollBar bar{nullptr};
  Told told;
};

TEST_F(ScrollBarTest, EndsWhereTheThumbFits) {
  EXPECT_EQ(bar.maximum(), 1440 - 480 + 1);
  EXPECT_EQ(bar.value(), 300);
  bar.SetStretch(0, 1440, 480, 5000);
  EXPECT_EQ(bar.value(), 961);
  bar.SetStretch(0, 1440, 1441, 0);
  EXPECT_EQ(bar.maximum(), 0) << "the whole day is shown";
}

TEST_F(ScrollBarTest, StaysWhereItIs) {
  Mouse(bar, QEvent::MouseButtonPress, {395, 8});  // the arrow at its end
  Mouse(bar, QEvent::MouseButtonRelease, {395, 8});
  EXPECT_THAT(told, ElementsAre(Pair(scroll::kLineForward, 0), Pair(scroll::kEnd, 0)));
  EXPECT_EQ(bar.value(), 300);
  EXPECT_EQ(bar.sliderPosition(), 300);
}

TEST_F(ScrollBarTest, GoesWhereTheAnswerPutsIt) {
  bar.Connect([this](int code, int) {
    if (code == scroll::kLineForward) bar.SetStretch(0, 1440, 480, 310);
  });
  Mouse(bar, QEvent::MouseButtonPress, {395, 8});
  Mouse(bar, QEvent::MouseButtonRelease, {395, 8});
  EXPECT_EQ(bar.value(), 310);
}

TEST_F(ScrollBarTest, FollowsTheMouseByItsThumb) {
  const QPoint thumb(200, 8);
  Mouse(bar, QEvent::MouseButtonPress, thumb);
  Mouse(bar, QEvent::MouseMove, thumb + QPoint(20, 0));
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back().first, scroll::kThumbMoving);
  EXPECT_GT(told.back().second, 300);
  told.clear();
  Mouse(bar, QEvent::MouseButtonRelease, thumb + QPoint(20, 0));
  EXPECT_THAT(told, ElementsAre(Pair(scroll::kThumbReleased, 0), Pair(scroll::kEnd, 0)));
}

}  // namespace
