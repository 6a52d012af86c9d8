// What a window's chart shows besides the program: steps selected together, a frame around others, and the
// curves that these are compared with.

#include "chart/chart_overlay.h"

#include <gtest/gtest.h>

#include "tests/chart/chart_fixture.h"

namespace chart_test {
namespace {

using With = UX::Comparison::With;

TEST(SeveralSelectedSteps, AllHaveTheRing) {
  GivenChart chart(GivenSteps("06:00 20, 12:00 50, 18:00 80"));
  chart.Select(0, 1);
  const std::string alone = chart.Steps().Text();
  chart.group.Set({chart.document.modes[0].channels[0][0].id, chart.document.modes[0].channels[0][1].id});
  const std::string both = chart.Steps().Text();
  EXPECT_NE(both, alone);
  chart.Select(0, 0);
  EXPECT_EQ(chart.Steps().Text(), both) << "whichever of them is the selected one";
  chart.Select(0, 2);
  const std::string another = chart.Steps().Text();
  chart.group.Clear();
  EXPECT_EQ(chart.Steps().Text(), another) << "they are not selected while another one is";
}

TEST(SelectionFrame, IsDrawnOverAllElse) {
  GivenChart chart(GivenSteps("06:00 20, 12:00 50"));
  EXPECT_EQ(chart.Frame().Text("box 20,30"), "");
  chart.overlay.frame = Rect{20, 30, 100, 40};
  EXPECT_EQ(chart.Frame().Text("box 20,30"),
            "fill box 20,30 100x40 cornflowerBlue 15%\n"
            "stroke box 20,30 100x40 cornflowerBlue w1\n");
  chart.Select(0, -1);
  EXPECT_EQ(chart.Background(0).Text("cornflowerBlue").find('%'), std::string::npos)
      << "the brush is as it was";
}

TEST(ComparedCurve, IsAThinLineBehindTheCurve) {
  GivenChart chart(GivenSteps("06:00 20, 12:00 50"));
  const std::string plain = chart.Frame().Text();
  chart.overlay.comparison.kept = program_test::GivenMode({"06:00 0, 12:00 100", "12:00 1"});
  EXPECT_EQ(chart.Frame().Text(), plain) << "nothing is compared yet";
  chart.overlay.comparison.with = With::Kept;
  const std::string compared = chart.Frame().Text();
  ASSERT_NE(compared, plain);
  const auto line = compared.find("black w1.5");
  ASSERT_NE(line, std::string::npos);
  EXPECT_EQ(compared.find("black w1.5", line + 1), std::string::npos) << "of one step there is no line";
  EXPECT_LT(line, compared.find("salmon w4"));
}

TEST(ComparedCurve, OfAModeThatIsNotThereIsNone) {
  GivenChart chart(GivenSteps("06:00 20, 12:00 50"));
  const std::string plain = chart.Frame().Text();
  chart.overlay.comparison.with = With::Saved;
  EXPECT_EQ(chart.Frame().Text(), plain) << "nothing was saved";
  const ModeListView empty;
  chart.overlay.comparison.saved = &empty;
  EXPECT_EQ(chart.Frame().Text(), plain);
  const ModeListView saved = chart.document;
  chart.overlay.comparison.saved = &saved;
  EXPECT_NE(chart.Frame().Text(), plain);
  chart.document.currentMode = 7;
  chart.Frame();
}

}  // namespace
}  // namespace chart_test
