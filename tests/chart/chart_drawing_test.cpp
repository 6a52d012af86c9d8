// What is in a frame, in which order, and what the brushes, fonts and labels are.

#include "chart/chart_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "program/builtin_modes.h"
#include "tests/chart/chart_fixture.h"
#include "tests/support/fake_translator.h"

namespace chart_test {
namespace {

using testing::TestWithParam;
using testing::Values;

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// What a line belongs to: one word, or nothing for a line of no interest here.
std::string PartOf(const std::string& line) {
  static const std::pair<const char*, const char*> kSigns[] = {
      {"stroke figure gray", "grid"},
      {"draw name", "name"},
      {"fill figure channel", "area"},
      {"stroke figure salmon", "curve"},
      {"% within 100x50 darkGray", "at"},
      {"within 100x50 darkGray", "at"},
      {"within 100x50 gray", "value"},
      {"fill circle 452,62 r8.18 white", "step"},
      {"text medium", "popup"},
      {"orange", "demo"},
      {"stroke box 10,200 884x0", "cross"},
  };
  for (const auto& [sign, part] : kSigns) {
    if (Contains(line, sign)) return part;
  }
  return "";
}

TEST(ChartDrawing, DrawsInThisOrder) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50, 18:00 80"));
  chart.Select(0, 2);
  chart.PointAt(500, 200);
  chart.drawing.Update();
  chart.Wait(0.3);
  chart.PlayDemo(0, {});
  std::string order;
  for (const std::string& line : chart.Frame().Lines()) {
    const std::string part = PartOf(line);
    if (!part.empty()) order += part + " ";
  }
  EXPECT_EQ(order,
            "grid name grid name grid name grid name grid name "
            "at at "
            "area curve value step value value value value "
            "popup demo cross ");
}

TEST(ChartDrawing, AStepUnderTheMouseTakesTheCursorLabelsAndItsLanesValueLabelAway) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50, 18:00 80"));
  chart.PointAt(452, 62);
  EXPECT_EQ(chart.Frame().Text("darkGray at").size() > 0, true);
  chart.Hover(0, 1);
  chart.Frame();
  EXPECT_EQ(chart.canvas.Text("darkGray at"), "") << "no cursor labels";
  EXPECT_EQ(chart.canvas.Text("within 100x50 gray"),
            "text small \"0%\" within 100x50 gray at 452,224\n"
            "text small \"0%\" within 100x50 gray at 452,343\n"
            "text small \"0%\" within 100x50 gray at 452,462\n"
            "text small \"0%\" within 100x50 gray at 452,581\n")
      << "the other lanes keep theirs";
  EXPECT_EQ(chart.canvas.Text("box 10,62"), "stroke box 10,62 884x0 darkGray w1\n")
      << "and so does the cross";
}

TEST(ChartDrawing, AHoverThatNamesNoStepTakesNothingAway) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50, 18:00 80"));
  chart.PointAt(452, 62);
  const std::string all = chart.Frame().Text();
  chart.Hover(0, 3);
  EXPECT_EQ(chart.Frame().Text(), all);
  chart.Hover(5, 0);
  EXPECT_EQ(chart.Frame().Text(), all);
}

TEST(ChartDrawing, BeforeTheMouseHasMovedTheFollowerIsOffTheWholeDay) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50"));
  chart.Frame();
  EXPECT_EQ(chart.canvas.Text("within 100x50"), "");
  EXPECT_EQ(chart.canvas.Text("darkGray"), "");
  // Ten pixels left of the lane are still on the day once the view begins later.
  chart.ShowHours(6, 12);
  chart.Frame();
  EXPECT_EQ(chart.canvas.Text("05:55"), "text small \"05:55\" within 100x50 darkGray at -22,-9\n");
  EXPECT_EQ(chart.canvas.Text("stroke box 0,0"), "stroke box 0,0 0x602 darkGray w1\n");
}

TEST(ChartDrawing, WhiteStaysAsTheLastLabelLeftItUntilAMarkerNeedsIt) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50"));
  chart.Select(0, 1);
  chart.PointAt(500, 200);
  chart.drawing.Update();
  chart.Wait(0.5);
  chart.Frame();
  chart.Wait(0.5);
  // The balloon is drawn with the opacity of the value label of lane 5, whose channel has no marker. It looks
  // odd and is meant to stay: no drawing but a marker's and a balloon's sets white back.
  EXPECT_EQ(chart.Frame().Text("white"),
            "fill round 474,187 24x15 r5 white 50%\n"
            "fill round 501,187 17x15 r5 white 50%\n"
            "fill round 496,53 17x15 r5 white 70%\n"
            "fill circle 231,115 r8.18 white\n"
            "fill round 496,221 13x15 r5 white 70%\n"
            "fill round 496,340 13x15 r5 white 70%\n"
            "fill round 496,459 13x15 r5 white 70%\n"
            "fill round 496,578 13x15 r5 white 70%\n"
            "fill round 431,12 41x34 r5 white 70%\n");
}

TEST(ChartDrawing, AMarkerOutOfSightSetsWhiteBackForTheBalloons) {
  GivenChart chart(program_test::GivenDocument(
      program_test::GivenMode({"06:00 0, 12:00 50", "", "", "", "01:00 0, 02:00 50"})));
  chart.ShowHours(11, 13);
  chart.Select(0, 1);
  chart.PointAt(500, 200);
  chart.drawing.Update();
  chart.Wait(0.5);
  chart.Frame();
  EXPECT_TRUE(Contains(chart.canvas.Text("fill round"), "white 70%")) << "the last lane's value label";
  EXPECT_EQ(chart.canvas.Text("fill round").substr(chart.canvas.Text("fill round").rfind("fill")),
            "fill round 431,45 41x34 r5 white\n");
}

TEST(ChartDrawing, TheAreaIsHalfTransparentWhateverTheDemoLeft) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50"));
  chart.PlayDemo(12 * 3600, {100, 0, 0, 0, 0});
  EXPECT_TRUE(Contains(chart.Frame().Text("fill circle"), "channel1"));
  EXPECT_EQ(chart.Frame().Text("fill figure").substr(0, 25), "fill figure channel1 50%:");
}

TEST(ChartDrawing, ADemosDotsRideOnAFocusedLane) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50"));
  chart.PlayDemo(12 * 3600, {50, 50, 50, 50, 50});
  chart.Frame();
  chart.Wait(0.5);
  EXPECT_EQ(chart.Frame().Text("r24.54 black"),
            "stroke circle 452,62 r24.54 black w3\nstroke circle 452,181 r24.54 black w3\n"
            "stroke circle 452,300 r24.54 black w3\nstroke circle 452,419 r24.54 black w3\n"
            "stroke circle 452,538 r24.54 black w3\n");
  chart.layout.FocusLane(0);
  chart.Wait(0.5);  // the lanes have arrived
  chart.Frame();    // and only now the dots are sent after them
  chart.Wait(0.5);
  EXPECT_EQ(chart.Frame().Text("r24.54 black"),
            "stroke circle 452,107 r24.54 black w3\nstroke circle 452,259 r24.54 black w3\n"
            "stroke circle 452,356 r24.54 black w3\nstroke circle 452,453 r24.54 black w3\n"
            "stroke circle 452,550 r24.54 black w3\n");
}

TEST(ChartDrawing, HoursMoveWithTheViewOnlyAfterARelayout) {
  GivenChart chart(NewProgram());
  const auto labels = [&] { return chart.canvas.Text("label "); };
  chart.document.viewStart = 6 * 3600;
  chart.document.viewEnd = 12 * 3600;
  chart.Frame();
  EXPECT_EQ(labels(), "") << "a frame makes no label";
  chart.drawing.Relayout(chart.canvas);
  EXPECT_EQ(chart.canvas.Text("\"07:00\""), "  text small \"07:00\" within 884x8 gray at 147,0\n");
}

TEST(ChartDrawing, ARelayoutMakesTheLabelsOfTheAxesOnly) {
  GivenChart chart(NewProgram());
  chart.drawing.Relayout(chart.canvas);
  EXPECT_EQ(chart.canvas.Text("label "),
            "label hours 884x8\nlabel 10% 36x8\nlabel 20% 36x8\nlabel 30% 36x8\nlabel 40% 36x8\n"
            "label 50% 36x8\nlabel 60% 36x8\nlabel 70% 36x8\nlabel 80% 36x8\nlabel 90% 36x8\n"
            "label 100% 36x8\n");
  EXPECT_EQ(chart.canvas.Text("brush"), "");
  EXPECT_EQ(chart.canvas.Text("font"), "");
}

TEST(ChartDrawing, AnEmptyNameShowsTheChannelsNumberAsOfTheLastRebuild) {
  GivenChart chart(NewProgram());
  chart.document.channelInfos[1].name = "Moon";
  chart.document.channelInfos[2].name = "";
  chart.Frame();
  EXPECT_EQ(chart.canvas.Text("Moon"), "");
  chart.drawing.Rebuild(chart.canvas);
  EXPECT_EQ(chart.canvas.Text("text large"),
            "  text large \"Channel 1\" within 884x83 lightSkyBlue\n"
            "  text large \"Moon\" within 884x83 lightSkyBlue\n"
            "  text large \"Channel 3\" within 884x83 lightSkyBlue\n"
            "  text large \"Channel 4\" within 884x83 lightSkyBlue\n"
            "  text large \"Channel 5\" within 884x83 lightSkyBlue\n");
}

TEST(ChartDrawing, ARebuildWritesTheNumbersInTheLanguageOfTheMoment) {
  GivenChart chart(NewProgram());
  chart.document.channelInfos[1].name = "Moon";
  const FakeTranslator slovak(
      [](std::string_view key) { return key == "Channel {1}" ? "{1}. kanál" : std::string(key); });
  chart.drawing.Rebuild(chart.canvas);
  EXPECT_THAT(chart.canvas.Text("text large"),
              testing::AllOf(testing::HasSubstr("\"1. kanál\""), testing::HasSubstr("\"Moon\""),
                             testing::HasSubstr("\"5. kanál\"")));
}

TEST(ChartDrawing, ANamesLabelIsAsLargeAsTheNameAndNoSmallerThanThirtyTwo) {
  GivenChart chart(NewProgram());
  chart.document.channelInfos[0].name = "I";
  chart.document.channelInfos[1].name = "Moonlight";
  chart.drawing.Rebuild(chart.canvas);
  EXPECT_EQ(chart.canvas.Text("label name1"), "label name1 32x35\n");
  EXPECT_EQ(chart.canvas.Text("label name2"), "label name2 156x35\n") << "whole letters";
}

TEST(ChartDrawing, ChannelColoursComeFromTheDocument) {
  GivenChart chart(NewProgram());
  chart.document.channelInfos[0].color = 0xFF102030;
  chart.document.channelInfos[4].color = 0x00FF8001;  // alpha is ignored
  chart.drawing.Rebuild(chart.canvas);
  EXPECT_EQ(chart.canvas.Text("brush channel1"), "brush channel1 #102030 50%\n");
  EXPECT_EQ(chart.canvas.Text("brush channel5"), "brush channel5 #ff8001 50%\n");
}

class ChartBrushes : public TestWithParam<const char*> {};

TEST_P(ChartBrushes, HaveTheirColours) {
  GivenChart chart(NewProgram());
  chart.drawing.Rebuild(chart.canvas);
  EXPECT_TRUE(Contains("\n" + chart.canvas.Text("brush"), std::string("\n") + GetParam() + "\n"));
}

INSTANTIATE_TEST_SUITE_P(Table, ChartBrushes,
                         Values("brush black #000000", "brush white #ffffff", "brush darkGray #a9a9a9",
                                "brush gray #808080", "brush lightSalmon #ffa07a", "brush orange #ffa500 50%",
                                "brush salmon #fa8072", "brush lightSkyBlue #87cefa",
                                "brush cornflowerBlue #6495ed"));

struct SizeCase {
  const char* name;
  std::int32_t width;
  std::int32_t height;
  const char* fonts;
  const char* labels;  // hours, 100 % and the first name
};
class ChartSizes : public TestWithParam<SizeCase> {};

TEST_P(ChartSizes, FontsAndLabelsFollowTheWindow) {
  const SizeCase& size = GetParam();
  GivenChart chart(NewProgram(), size.width, size.height);
  chart.drawing.Rebuild(chart.canvas);
  EXPECT_EQ(chart.canvas.Text("font"), size.fonts);
  EXPECT_EQ(
      chart.canvas.Text("label hours") + chart.canvas.Text("label 100%") + chart.canvas.Text("label name1"),
      size.labels);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, ChartSizes,
    Values(SizeCase{"Usual", 1024, 768, "font small 7.55\nfont medium 10.38 bold\nfont large 27.67 bold\n",
                    "label hours 884x8\nlabel 100% 36x8\nlabel name1 156x35\n"},
           SizeCase{"Large", 1920, 1200, "font small 13.09\nfont medium 18 bold\nfont large 48 bold\n",
                    "label hours 1780x14\nlabel 100% 74x14\nlabel name1 270x60\n"},
           SizeCase{"TooFlatForAxes", 1024, 186 + 63,
                    "font small 0.82\nfont medium 1.12 bold\nfont large 3 bold\n", "label name1 32x32\n"},
           SizeCase{"TooNarrowForPercents", 160, 768,
                    "font small 7.55\nfont medium 10.38 bold\nfont large 27.67 bold\n",
                    "label hours 20x8\nlabel name1 32x312\n"},
           SizeCase{"NoLanes", 1024, 186, "font small 0.09\nfont medium 0.12 bold\nfont large 0.33 bold\n",
                    ""},
           SizeCase{"OnePixel", 1, 1, "font small 0.09\nfont medium 0.12 bold\nfont large 0.33 bold\n", ""}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ChartDrawing, LabelsLeftFromALargerWindowAreNotShownInOneTooSmallForThem) {
  GivenChart chart(NewProgram());
  chart.Resize(1024, 186 + 63);
  EXPECT_EQ(chart.Frame().Text("draw hours"), "");
  EXPECT_EQ(chart.Frame().Text("draw 1"), "");
  EXPECT_NE(chart.Frame().Text("draw name1"), "");
  chart.Resize(1024, 186);
  EXPECT_EQ(chart.Frame().Text("draw "), "");
}

}  // namespace
}  // namespace chart_test
