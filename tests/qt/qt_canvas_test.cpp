// The operations of the canvas one by one, told by the colours of pixels.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

#include "platform/qt/canvas/qt_canvas.h"
#include "tests/qt/pictures.h"

namespace {

using UX::Brush;
using UX::Circle;
using UX::Figure;
using UX::Label;
using UX::Line;
using UX::Rectangle;
using UX::RoundedRectangle;

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;
constexpr QRgb kOrange = 0xFFFFA500;

int Redness(QRgb color) {
  return qRed(color);
}

class QtCanvasTest : public testing::Test {
 protected:
  QtCanvasTest() {
    Start(1.0);
    canvas_->SetBrush(Brush::Black, {0, 0, 0}, 1.0F);
    canvas_->SetBrush(Brush::White, {255, 255, 255}, 1.0F);
    canvas_->SetBrush(Brush::Orange, {255, 165, 0}, 1.0F);
  }
  ~QtCanvasTest() override { canvas_->End(); }

  QRgb At(int x, int y) const { return image_.pixel(x, y); }
  UX::Canvas& canvas() { return *canvas_; }

  void Start(double scale) {
    if (painter_) painter_->end();
    image_ = QImage(QSize(300, 200) * scale, QImage::Format_ARGB32_Premultiplied);
    image_.setDevicePixelRatio(scale);
    image_.fill(Qt::white);
    painter_.emplace(&image_);
    canvas_.emplace(qt::Surface::Pixels, scale);
    canvas_->Begin(*painter_);
  }

  QImage image_;
  std::optional<QPainter> painter_;
  std::optional<qt::QtCanvas> canvas_;
};

TEST_F(QtCanvasTest, ARectangleOnWholePixelsHasSharpEdges) {
  canvas().Fill(Rectangle{10, 20, 100, 50}, Brush::Orange);
  EXPECT_EQ(At(10, 20), kOrange);
  EXPECT_EQ(At(109, 69), kOrange);
  EXPECT_EQ(At(9, 20), kWhite);
  EXPECT_EQ(At(10, 19), kWhite);
  EXPECT_EQ(At(110, 69), kWhite);
  EXPECT_EQ(At(109, 70), kWhite);
}

TEST_F(QtCanvasTest, ARectangleOffThePixelsIsSmooth) {
  canvas().Fill(Rectangle{10.5F, 20, 100, 50}, Brush::Black);
  EXPECT_NEAR(Redness(At(10, 30)), 128, 3);
  EXPECT_EQ(At(11, 30), kBlack);
}

TEST_F(QtCanvasTest, ColumnsFillTheirBoxFromTheLeft) {
  const UX::Color colors[] = {{255, 165, 0}, {0, 0, 0}, {255, 255, 255}, {0, 0, 0}};
  for (int time = 0; time < 2; ++time) {
    canvas().SetTransform(UX::Translation(0.0F, 0.0F));
    canvas().FillColumns({10, 20, 40, 5}, colors);
    EXPECT_EQ(At(10, 20), kOrange);
    EXPECT_EQ(At(19, 24), kOrange);
    EXPECT_EQ(At(20, 20), kBlack);
    EXPECT_EQ(At(29, 24), kBlack);
    EXPECT_EQ(At(30, 22), kWhite);
    EXPECT_EQ(At(49, 22), kBlack);
    EXPECT_EQ(At(50, 22), kWhite);
    EXPECT_EQ(At(9, 22), kWhite);
    EXPECT_EQ(At(40, 25), kWhite);
  }
  canvas().FillColumns({100, 20, 40, 5}, std::span(colors).first(2));
  EXPECT_EQ(At(119, 22), kOrange) << "of another number";
  EXPECT_EQ(At(120, 22), kBlack);
}

TEST_F(QtCanvasTest, ColumnsAreSharpOnAFineScreen) {
  Start(1.5);
  const UX::Color colors[] = {{0, 0, 0}, {255, 165, 0}};
  canvas().FillColumns({10, 20, 40, 6}, colors);
  EXPECT_EQ(At(15, 30), kBlack);
  EXPECT_EQ(At(44, 30), kBlack);
  EXPECT_EQ(At(45, 30), kOrange);
  EXPECT_EQ(At(74, 38), kOrange);
}

TEST_F(QtCanvasTest, AStrokeLiesOnBothSidesOfItsLine) {
  canvas().Stroke(Rectangle{100, 50, 150, 100}, Brush::Black, 4.0F);
  EXPECT_EQ(At(98, 48), kBlack) << "the corner is a corner";
  EXPECT_EQ(At(101, 51), kBlack);
  EXPECT_EQ(At(97, 60), kWhite);
  EXPECT_EQ(At(102, 60), kWhite);
  EXPECT_EQ(At(175, 100), kWhite) << "the inside";
}

TEST_F(QtCanvasTest, ALineEndsWhereItEnds) {
  canvas().Stroke(Line{{50, 50}, {200, 50}}, Brush::Black, 4.0F);
  EXPECT_EQ(At(50, 50), kBlack);
  EXPECT_EQ(At(199, 50), kBlack);
  EXPECT_EQ(At(49, 50), kWhite);
  EXPECT_EQ(At(200, 50), kWhite);
  EXPECT_EQ(At(100, 48), kBlack);
  EXPECT_EQ(At(100, 47), kWhite);
}

TEST_F(QtCanvasTest, ARectangleOfNoWidthOrNoHeightIsALine) {
  canvas().Stroke(Rectangle{50, 20, 0, 100}, Brush::Black, 2.0F);
  canvas().Stroke(Rectangle{100, 60, 100, 0}, Brush::Black, 2.0F);
  EXPECT_EQ(At(49, 60), kBlack);
  EXPECT_EQ(At(50, 60), kBlack);
  EXPECT_EQ(At(51, 60), kWhite);
  EXPECT_EQ(At(150, 59), kBlack);
  EXPECT_EQ(At(150, 60), kBlack);
  EXPECT_EQ(At(150, 61), kWhite);
}

TEST_F(QtCanvasTest, ALineHasNoInside) {
  canvas().Fill(Line{{10, 10}, {100, 100}}, Brush::Black);
  canvas().Fill(Rectangle{10, 10, 0, 100}, Brush::Black);
  EXPECT_EQ(At(50, 50), kWhite);
  EXPECT_EQ(At(10, 50), kWhite);
}

TEST_F(QtCanvasTest, ACircleReachesAsFarAsItsRadius) {
  for (const float radius : {10.0F, 60.0F}) {  // small ones are put in place as pictures
    Start(1.0);
    canvas().SetBrush(Brush::Black, {0, 0, 0}, 1.0F);
    canvas().Fill(Circle{{150, 100}, radius}, Brush::Black);
    const int reach = static_cast<int>(radius);
    EXPECT_EQ(At(150, 100), kBlack);
    EXPECT_LT(Redness(At(150 - reach, 100)), 100) << radius;
    EXPECT_EQ(At(150 - reach - 1, 100), kWhite) << radius;
    EXPECT_EQ(At(150 + reach, 100), kWhite) << radius;
    EXPECT_EQ(At(150 - reach, 100 - reach), kWhite) << radius;
  }
}

TEST_F(QtCanvasTest, ARoundedRectangleLacksItsCorners) {
  canvas().Fill(RoundedRectangle{{100, 50, 100, 60}, 5}, Brush::Black);
  EXPECT_EQ(At(100, 50), kWhite);
  EXPECT_EQ(At(199, 109), kWhite);
  EXPECT_EQ(At(105, 50), kBlack);
  EXPECT_EQ(At(100, 56), kBlack);
  EXPECT_EQ(At(150, 80), kBlack);
}

TEST_F(QtCanvasTest, ASmallShapeIsTheSameWhereverItStands) {
  canvas().Fill(Circle{{50, 50}, 8.16F}, Brush::Orange);
  canvas().Stroke(Circle{{50, 50}, 8.16F}, Brush::Black, 3.0F);
  canvas().SetTransform(UX::Translation(117, 60));
  canvas().Fill(Circle{{83, 40}, 8.16F}, Brush::Orange);
  canvas().Stroke(Circle{{83, 40}, 8.16F}, Brush::Black, 3.0F);
  EXPECT_EQ(image_.copy(30, 30, 40, 40), image_.copy(180, 80, 40, 40));
}

TEST_F(QtCanvasTest, SmallShapesBetweenPixelsStandThere) {
  canvas().Fill(Rectangle{50.25F, 50, 10, 10}, Brush::Black);
  EXPECT_NEAR(Redness(At(50, 55)), 64, 3);
  EXPECT_NEAR(Redness(At(60, 55)), 191, 3);
}

TEST_F(QtCanvasTest, ABrushKeepsItsOpacityUntilItIsSetAnew) {
  canvas().SetOpacity(Brush::Black, 0.5F);
  canvas().Fill(Rectangle{0, 0, 100, 100}, Brush::Black);
  canvas().Fill(Rectangle{150, 0, 10, 10}, Brush::Black);
  EXPECT_NEAR(Redness(At(50, 50)), 127, 2);
  EXPECT_NEAR(Redness(At(155, 5)), 127, 2);
  canvas().SetOpacity(Brush::Black, 1.0F);
  canvas().Fill(Rectangle{0, 0, 100, 100}, Brush::Black);
  EXPECT_EQ(At(50, 50), kBlack);
}

TEST_F(QtCanvasTest, OpacityBeyondItsRangeIsItsEnd) {
  canvas().SetOpacity(Brush::Black, -1.0F);
  canvas().Fill(Rectangle{0, 0, 100, 100}, Brush::Black);
  canvas().SetOpacity(Brush::Black, std::nanf(""));
  canvas().Fill(Rectangle{0, 0, 100, 100}, Brush::Black);
  EXPECT_EQ(At(50, 50), kWhite);
  canvas().SetOpacity(Brush::Black, 7.0F);
  canvas().Fill(Rectangle{0, 0, 100, 100}, Brush::Black);
  EXPECT_EQ(At(50, 50), kBlack);
}

TEST_F(QtCanvasTest, ATransformScalesFirstAndMovesThen) {
  canvas().SetTransform({2.0F, {100, 50}});
  canvas().Fill(Rectangle{10, 10, 20, 20}, Brush::Black);
  EXPECT_EQ(At(120, 70), kBlack);
  EXPECT_EQ(At(159, 109), kBlack);
  EXPECT_EQ(At(119, 70), kWhite);
  EXPECT_EQ(At(160, 109), kWhite);
  canvas().SetTransform(UX::kIdentity);
  canvas().Fill(Rectangle{0, 0, 10, 10}, Brush::Black);
  EXPECT_EQ(At(5, 5), kBlack) << "nothing is left of it";
}

TEST_F(QtCanvasTest, TheTransformOfThePainterIsUnderneath) {
  canvas_->End();
  painter_->translate(100, 0);
  canvas_->Begin(*painter_);
  canvas().SetTransform({2.0F, {10, 0}});
  canvas().Fill(Rectangle{0, 0, 10, 10}, Brush::Black);
  canvas().SetTransform(UX::Translation(50, 50));
  canvas().Fill(Rectangle{0, 0, 10, 10}, Brush::Orange);
  EXPECT_EQ(At(110, 0), kBlack);
  EXPECT_EQ(At(129, 19), kBlack);
  EXPECT_EQ(At(150, 50), kOrange);
}

TEST_F(QtCanvasTest, AFigureIsFilledWhetherClosedOrNot) {
  Figure figure;
  figure.Begin({20, 150});
  figure.LineTo({20, 50});
  figure.LineTo({120, 50});
  figure.LineTo({120, 150});
  canvas().FillFigure(figure, Brush::Orange);
  EXPECT_EQ(At(70, 100), kOrange);
  EXPECT_EQ(At(20, 149), kOrange);
  EXPECT_EQ(At(121, 100), kWhite);
}

TEST_F(QtCanvasTest, AnOpenFigureIsStrokedOpenAndAClosedOneClosed) {
  for (const bool closed : {false, true}) {
    Figure figure;
    figure.Begin({20, 150});
    figure.LineTo({20, 50});
    figure.LineTo({120, 50});
    figure.LineTo({120, 150});
    if (closed) figure.Close();
    canvas().StrokeFigure(figure, Brush::Black, 4.0F);
    EXPECT_EQ(At(20, 100), kBlack);
    EXPECT_EQ(At(70, 50), kBlack);
    EXPECT_EQ(At(18, 48), kBlack) << "mitred";
    EXPECT_EQ(At(70, 150), closed ? kBlack : kWhite);
  }
}

TEST_F(QtCanvasTest, AThinGridIsPale) {
  Figure figure;
  for (int x = 0; x <= 200; x += 20) figure.AddLine({static_cast<float>(x), 0}, {static_cast<float>(x), 100});
  canvas().StrokeFigure(figure, Brush::Black, 0.5F);
  // Half a pixel, on both sides of the boundary.
  for (const int x : {20, 180}) {
    const int both = (255 - Redness(At(x - 1, 50))) + (255 - Redness(At(x, 50)));
    EXPECT_NEAR(both, 128, 8) << x;
  }
  EXPECT_EQ(At(30, 50), kWhite);
}

// A zigzag of as many points as are asked for, with its ends below as an area has them.
Figure Zigzag(int count, bool area) {
  Figure figure;
  const auto x = [count](int i) {
    const int column = 10 + i * 280 / count;
    return static_cast<float>(column);
  };
  if (area) {
    figure.Begin({10, 190});
  } else {
    figure.Begin({x(0), 50});
  }
  for (int i = 0; i < count; ++i) figure.LineTo({x(i), static_cast<float>(20 + i * i * 7 % 150)});
  if (area) {
    figure.LineTo({x(count - 1), 190});
    figure.Close();
  }
  return figure;
}

QPainterPath PlainPath(const Figure& figure) {
  QPainterPath path;
  for (const UX::Point point : figure.Points()) {
    const QPointF place(point.x, point.y);
    path.elementCount() == 0 ? path.moveTo(place) : path.lineTo(place);
  }
  return path;
}

QImage White() {
  QImage image(300, 200, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  return image;
}

TEST_F(QtCanvasTest, ACurveInPiecesLooksLikeTheWhole) {
  for (const int count : {3, 12, 48, 300, 3000}) {
    Start(1.0);
    canvas().SetBrush(Brush::Salmon, {250, 128, 114}, 1.0F);
    const Figure figure = Zigzag(count, false);
    canvas().StrokeFigure(figure, Brush::Salmon, 4.0F);
    QImage plain = White();
    QPainter painter(&plain);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(QColor(250, 128, 114), 4.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setMiterLimit(5.0);
    painter.strokePath(PlainPath(figure), pen);
    pictures::ExpectAlike(image_, plain, std::to_string(count) + " points", {40, 0.01});
  }
}

TEST_F(QtCanvasTest, AnAreaInPiecesLooksLikeTheWholeAndHasNoSeams) {
  for (const int count : {3, 12, 48, 300, 3000}) {
    Start(1.0);
    canvas().SetBrush(Brush::Orange, {255, 165, 0}, 0.5F);
    const Figure figure = Zigzag(count, true);
    canvas().FillFigure(figure, Brush::Orange);
    QImage plain = White();
    QPainter painter(&plain);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(PlainPath(figure), QColor(255, 165, 0, 128));
    pictures::ExpectAlike(image_, plain, std::to_string(count) + " points", {4, 0.0});
  }
}

TEST_F(QtCanvasTest, AnAreaThatGoesBackIsFilledAsItIs) {
  Figure figure;
  figure.Begin({20, 180});
  for (const float x : {20.0F, 250.0F, 100.0F, 200.0F, 60.0F, 90.0F, 280.0F}) figure.LineTo({x, x * 0.5F});
  figure.LineTo({280, 180});
  figure.Close();
  canvas().FillFigure(figure, Brush::Orange);
  QImage plain = White();
  QPainter painter(&plain);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(PlainPath(figure), QColor(255, 165, 0));
  pictures::ExpectAlike(image_, plain, "an unsorted area", {2, 0.0});
}

TEST_F(QtCanvasTest, ALabelIsPutInPlaceAsItWasDrawn) {
  canvas().SetTransform(UX::Translation(50, 50));
  canvas().BeginLabel(Label::Hours, 40, 20);
  canvas().Fill(Rectangle{10, 5, 50, 5}, Brush::Orange);
  canvas().EndLabel();
  EXPECT_EQ(image_, White()) << "nothing of it is seen yet";
  canvas().Fill(Rectangle{0, 0, 5, 5}, Brush::Black);
  EXPECT_EQ(At(52, 52), kBlack) << "the transform is as before";

  canvas().SetTransform(UX::Translation(100, 100));
  canvas().DrawLabel(Label::Hours);
  EXPECT_EQ(At(110, 105), kOrange);
  EXPECT_EQ(At(139, 109), kOrange);
  EXPECT_EQ(At(140, 107), kWhite) << "off the label";
  EXPECT_EQ(At(105, 107), kWhite) << "see-through";
}

TEST_F(QtCanvasTest, ALabelThatWasNeverMadeDrawsNothing) {
  canvas().DrawLabel(UX::ChannelNameLabel(4));
  canvas().DrawLabel(UX::PercentLabel(10));
  EXPECT_EQ(image_, White());
}

TEST_F(QtCanvasTest, ALabelCanBeMadeWhileNothingIsDrawn) {
  canvas_->End();
  canvas().BeginLabel(Label::Hours, 40, 20);
  canvas().Fill(Rectangle{0, 0, 40, 20}, Brush::Orange);
  canvas().EndLabel();
  canvas_->Begin(*painter_);
  canvas().DrawLabel(Label::Hours);
  EXPECT_EQ(At(20, 10), kOrange);
}

// Where a widget may begin in its window, in units.
constexpr QPointF kOrigins[] = {{0.0, 0.0}, {0.0, 30.0}, {10.6, 30.3}, {0.2, 0.45}};
constexpr double kScales[] = {1.0, 1.25, 1.37, 1.5, 2.0};

TEST_F(QtCanvasTest, ALabelIsPutOnWholePixelsAtEveryScaleWhereverTheWidgetBegins) {
  for (const double scale : kScales) {
    Start(scale);
    canvas().SetBrush(Brush::Black, {0, 0, 0}, 1.0F);
    canvas().SetFont(UX::TextFormat::Small, {12.0F, false});
    canvas().BeginLabel(Label::Hours, 40, 20);
    canvas().LayOutText(UX::TextFormat::Small, "08:30", {40.0F, 20.0F});
    canvas().DrawLayout(Brush::Black);
    canvas().EndLabel();
    canvas().DrawLabel(Label::Hours);
    const QSize size(static_cast<int>(40 * scale), static_cast<int>(20 * scale));
    const QImage letters = image_.copy({{0, 0}, size});
    for (const QPointF& origin : kOrigins) {
      canvas_->End();
      painter_->resetTransform();
      painter_->translate(origin);
      painter_->setRenderHint(QPainter::SmoothPixmapTransform);  // would blur what is not copied
      canvas_->Begin(*painter_);
      for (const QPointF place : {QPointF(41, 43), QPointF(42, 81), QPointF(43.4, 80.8), QPointF(44.5, 7)}) {
        canvas().SetTransform(UX::Translation(static_cast<float>(place.x()), static_cast<float>(place.y())));
        image_.fill(Qt::white);
        canvas().DrawLabel(Label::Hours);
        const QPoint pixel = ((place + origin) * scale).toPoint();
        EXPECT_EQ(image_.copy({pixel, size}), letters)
            << scale << ", " << pixel.x() << ", " << pixel.y() << ", " << origin.y();
        canvas().Fill(Rectangle{0, 0, 5, 5}, Brush::Black);
        EXPECT_EQ(image_.pixel(((place + origin + QPointF(2.5, 2.5)) * scale).toPoint()), kBlack)
            << "the transform is as before";
      }
    }
  }
}

// What is put in place as a picture is where Qt draws the shape itself.
TEST_F(QtCanvasTest, EveryShapeIsInItsPlaceWhereverTheWidgetBegins) {
  for (const double scale : kScales) {
    for (const QPointF& origin : kOrigins) {
      Start(scale);
      canvas_->End();
      painter_->translate(origin);
      painter_->setRenderHint(QPainter::SmoothPixmapTransform);
      canvas_->Begin(*painter_);
      canvas().SetBrush(Brush::Black, {0, 0, 0}, 1.0F);
      canvas().SetBrush(Brush::Orange, {255, 165, 0}, 0.5F);
      Figure grid;
      grid.AddLine({20, 10}, {20, 150});
      grid.AddLine({10, 20.3F}, {250, 20.3F});
      grid.AddLine({10, 10}, {60, 60});
      const Figure area = Zigzag(48, true);
      canvas().FillFigure(area, Brush::Orange);
      canvas().Fill(Rectangle{30.4F, 40, 10, 10}, Brush::Black);
      canvas().Stroke(Rectangle{60, 40, 10, 10}, Brush::Orange, 3.0F);
      canvas().Stroke(Rectangle{100, 40, 90, 80}, Brush::Orange, 3.0F);
      canvas().StrokeFigure(grid, Brush::Black, 0.5F);

      QImage plain(image_.size(), image_.format());
      plain.setDevicePixelRatio(scale);
      plain.fill(Qt::white);
      QPainter painter(&plain);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.translate(origin);
      const QColor orange(255, 165, 0, 128);
      const auto pen = [](const QColor& color, double width) {
        return QPen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
      };
      painter.fillPath(PlainPath(area), orange);
      painter.fillRect(QRectF(30.4, 40, 10, 10), Qt::black);
      painter.setPen(pen(orange, 3.0));
      painter.drawRect(QRectF(60, 40, 10, 10));
      painter.drawRect(QRectF(100, 40, 90, 80));
      painter.setPen(pen(Qt::black, 0.5));
      for (const QLineF& line :
           {QLineF(20, 10, 20, 150), QLineF(10, 20.3, 250, 20.3), QLineF(10, 10, 60, 60)})
        painter.drawLine(line);
      painter.end();
      pictures::ExpectAlike(image_, plain, std::to_string(scale) + " at " + std::to_string(origin.y()),
                            {4, 0.0});
    }
  }
}

TEST_F(QtCanvasTest, ALabelOfVectorsHasItsSizeOnEveryDevice) {
  for (const int dotsPerInch : {72, 96, 300}) {
    QImage image = White();
    image.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch / 0.0254)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    qt::QtCanvas vectors(qt::Surface::Vectors);
    vectors.SetBrush(Brush::Orange, {255, 165, 0}, 1.0F);
    vectors.BeginLabel(Label::Hours, 40, 20);
    vectors.Fill(Rectangle{10, 5, 20, 5}, Brush::Orange);
    vectors.EndLabel();
    vectors.Begin(painter);
    vectors.SetTransform(UX::Translation(100, 100));
    vectors.DrawLabel(Label::Hours);
    vectors.Fill(Rectangle{0, 0, 5, 5}, Brush::Orange);
    EXPECT_EQ(image.pixel(110, 105), kOrange) << dotsPerInch;
    EXPECT_EQ(image.pixel(129, 109), kOrange) << dotsPerInch;
    EXPECT_EQ(image.pixel(130, 109), kWhite) << dotsPerInch;
    EXPECT_EQ(image.pixel(109, 105), kWhite) << dotsPerInch;
    EXPECT_EQ(image.pixel(102, 102), kOrange) << "the transform is as before";
  }
}

TEST_F(QtCanvasTest, ATangleOfPointsIsFilledInItsPlace) {
  Figure figure;
  figure.Begin({10, 190});
  for (int i = 0; i < 20'000; ++i)
    figure.LineTo({static_cast<float>(10 + i * 7919 % 281), static_cast<float>(20 + i * 6007 % 151)});
  figure.LineTo({290, 190});
  figure.Close();
  canvas().FillFigure(figure, Brush::Black);
  EXPECT_EQ(At(5, 100), kWhite);
  EXPECT_EQ(At(295, 100), kWhite);
  EXPECT_EQ(At(150, 10), kWhite);
  int black = 0;
  for (int x = 10; x < 290; ++x) black += At(x, 100) == kBlack ? 1 : 0;
  EXPECT_NEAR(black, 140, 70) << "about one half is inside";
}

TEST_F(QtCanvasTest, AHugeLabelIsMadeAsFarAsScreensReach) {
  canvas().BeginLabel(Label::Hours, 2'000'000'000, 1);
  canvas().Fill(Rectangle{0, 0, 100, 1}, Brush::Orange);
  canvas().EndLabel();
  canvas().DrawLabel(Label::Hours);
  EXPECT_EQ(At(50, 0), kOrange);
}

TEST_F(QtCanvasTest, OnAFineScreenEverythingHasMorePixels) {
  Start(2.0);
  canvas().SetBrush(Brush::Orange, {255, 165, 0}, 1.0F);
  canvas().SetBrush(Brush::Black, {0, 0, 0}, 0.5F);
  canvas().BeginLabel(Label::Hours, 10, 10);
  canvas().Fill(Rectangle{0.5F, 0, 5, 5}, Brush::Orange);
  canvas().EndLabel();
  canvas().SetTransform(UX::Translation(20, 20));
  canvas().DrawLabel(Label::Hours);
  EXPECT_EQ(At(40, 40), kWhite);
  EXPECT_EQ(At(41, 40), kOrange);
  EXPECT_EQ(At(50, 49), kOrange);
  EXPECT_EQ(At(51, 49), kWhite);

  canvas().SetTransform(UX::kIdentity);
  canvas().Fill(Rectangle{100.5F, 10, 4, 4}, Brush::Orange);
  EXPECT_EQ(At(201, 20), kOrange);
  EXPECT_EQ(At(200, 20), kWhite);
  EXPECT_EQ(At(208, 27), kOrange);
  EXPECT_EQ(At(209, 27), kWhite);

  canvas().Stroke(Rectangle{150, 50, 100, 100}, Brush::Black, 2.0F);
  EXPECT_NEAR(Redness(At(298, 200)), 127, 2);
  EXPECT_EQ(At(297, 200), kWhite);
  EXPECT_NEAR(Redness(At(301, 200)), 127, 2);
  EXPECT_EQ(At(302, 200), kWhite);
}

TEST_F(QtCanvasTest, TheFarthestCoordinatesAreDrawnWithoutFault) {
  constexpr float kFar = UX::kFarthest;
  Figure figure;
  figure.Begin({-kFar, kFar});
  for (int i = 0; i < 20'000; ++i) figure.LineTo({i % 3 == 0 ? kFar : -kFar, i % 2 == 0 ? -kFar : 100});
  figure.LineTo({kFar, kFar});
  figure.Close();
  for (const float opacity : {1.0F, 0.5F}) {
    canvas().SetOpacity(Brush::Black, opacity);
    canvas().FillFigure(figure, Brush::Black);
    canvas().StrokeFigure(figure, Brush::Black, 4.0F);
    for (const UX::Shape& shape : std::vector<UX::Shape>{
             Line{{-kFar, -kFar}, {kFar, kFar}}, Rectangle{-kFar, -kFar, 2 * kFar, 2 * kFar},
             Rectangle{kFar, kFar, 10, 10}, RoundedRectangle{{-kFar, 0, 2 * kFar, 100}, 5},
             Circle{{0, 0}, kFar}, Circle{{kFar, -kFar}, 10}, Circle{{-kFar, 5}, 5}}) {
      canvas().Fill(shape, Brush::Black);
      canvas().Stroke(shape, Brush::Black, 3.0F);
    }
    canvas().SetTransform({0.001F, {kFar, -kFar}});
    canvas().Fill(Circle{{kFar, kFar}, 10}, Brush::Black);
    canvas().SetTransform(UX::Translation(-kFar, kFar));
    canvas().Stroke(Circle{{kFar, -kFar}, 10}, Brush::Black, 3.0F);
    canvas().SetTransform(UX::kIdentity);
  }
  canvas().Fill(Rectangle{10, 10, 10, 10}, Brush::Orange);
  EXPECT_EQ(At(15, 15), kOrange);
}

TEST_F(QtCanvasTest, ShapesWithoutSizeDrawNoMoreThanTheirStroke) {
  for (const UX::Shape& shape :
       std::vector<UX::Shape>{Rectangle{50, 50, 0, 0}, Circle{{50, 50}, 0}, Rectangle{50, 50, -5, -5},
                              RoundedRectangle{{50, 50, 0, 0}, 5}, Circle{{50, 50}, -5}}) {
    canvas().Fill(shape, Brush::Black);
    canvas().Stroke(shape, Brush::Black, 1.0F);
  }
  EXPECT_EQ(At(70, 70), kWhite);
  EXPECT_EQ(At(30, 50), kWhite);
}

}  // namespace
