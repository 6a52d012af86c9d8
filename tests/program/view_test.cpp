// The stretch of the day that the chart shows.

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "program/view.h"

namespace program_test {
namespace {

using namespace TCBase::Program;

constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();

struct ViewChange {
  const char* name;
  std::int32_t start;
  std::int32_t end;
  std::function<void(ModeListView&)> change;
  std::int32_t expectedStart;
  std::int32_t expectedEnd;
};

class ChangingTheView : public testing::TestWithParam<ViewChange> {};

TEST_P(ChangingTheView, KeepsItWithinTheDay) {
  const ViewChange& change = GetParam();
  ModeListView document;
  document.viewStart = change.start;
  document.viewEnd = change.end;
  change.change(document);
  EXPECT_EQ(document.viewStart, change.expectedStart);
  EXPECT_EQ(document.viewEnd, change.expectedEnd);
}

auto Hours(float hours) {
  return [hours](ModeListView& d) { SetViewHours(d, hours); };
}
auto Pan(std::int32_t seconds) {
  return [seconds](ModeListView& d) { PanView(d, seconds); };
}
auto ScrollBar(std::int32_t page, std::int32_t position) {
  return [page, position](ModeListView& d) { SetViewFromScrollBar(d, page, position); };
}
auto Slider(std::int32_t position) {
  return [position](ModeListView& d) { SetViewFromSlider(d, position); };
}

INSTANTIATE_TEST_SUITE_P(
    View, ChangingTheView,
    testing::Values(ViewChange{"OneHourIsTwo", 0, 86400, Hours(1.0F), 0, 7200},
                    ViewChange{"SixHoursNearTheEndKeepTheirWidth", 80000, 86400, Hours(6.0F), 64800, 86400},
                    ViewChange{"SixHoursFromTheStart", 3600, 7200, Hours(6.0F), 3600, 25200},
                    ViewChange{"MoreThanADayIsTheDay", 3600, 7200, Hours(30.0F), 0, 86400},
                    ViewChange{"HalvesOfHoursCount", 0, 86400, Hours(2.5F), 0, 9000},
                    ViewChange{"NoNumberIsTheNarrowest", 0, 86400,
                               Hours(std::numeric_limits<float>::quiet_NaN()), 0, 7200},
                    ViewChange{"ZoomInTakesAnHour", 0, 36000, ViewZoomIn, 0, 32400},
                    ViewChange{"ZoomInStopsAtTwoHours", 3600, 10800, ViewZoomIn, 3600, 10800},
                    ViewChange{"ZoomOutGivesAnHour", 3600, 36000, ViewZoomOut, 3600, 39600},
                    ViewChange{"ZoomOutAtTheEndMovesTheStart", 50400, 86400, ViewZoomOut, 46800, 86400},
                    ViewChange{"ZoomOutStopsAtTheDay", 0, 86400, ViewZoomOut, 0, 86400},
                    ViewChange{"PanByAQuarter", 3600, 10800, Pan(900), 4500, 11700},
                    ViewChange{"PanBackByAQuarter", 3600, 10800, Pan(-900), 2700, 9900},
                    ViewChange{"PanBackStopsAtTheStart", 600, 7800, Pan(-900), 0, 7200},
                    ViewChange{"PanStopsAtTheEnd", 79000, 86200, Pan(900), 79200, 86400},
                    ViewChange{"PanHome", 20000, 27200, Pan(-20000), 0, 7200},
                    ViewChange{"PanByADayGoesToTheEnd", 20000, 27200, Pan(86400), 79200, 86400},
                    ViewChange{"PanOfTheWholeDayIsNone", 0, 86400, Pan(900), 0, 86400},
                    ViewChange{"PanByAnyNumber", 20000, 27200, Pan(kFar), 79200, 86400},
                    ViewChange{"PanBackByAnyNumber", 20000, 27200, Pan(-kFar - 1), 0, 7200},
                    ViewChange{"ScrollBarPlacesThePage", 0, 86400, ScrollBar(120, 60), 3600, 10800},
                    ViewChange{"ScrollBarPastTheEndKeepsThePage", 0, 86400, ScrollBar(120, 1400), 79200,
                               86400},
                    ViewChange{"ScrollBarBeforeTheStartKeepsThePage", 0, 86400, ScrollBar(120, -10), 0, 7200},
                    ViewChange{"ScrollBarOfAnyNumber", 0, 86400, ScrollBar(kFar, kFar), 0, 86400},
                    ViewChange{"ScrollBarOfAnyNegativeNumber", 0, 86400, ScrollBar(120, -kFar - 1), 0, 7200},
                    ViewChange{"SliderAtRestShowsTheDay", 3600, 10800, Slider(0), 0, 86400},
                    ViewChange{"SliderAtTenShowsFourteenHours", 0, 86400, Slider(10), 0, 50400},
                    ViewChange{"SliderAtItsEndShowsTwoHours", 0, 86400, Slider(22), 0, 7200},
                    ViewChange{"SliderOfAnyNumber", 0, 86400, Slider(kFar), 0, 7200},
                    ViewChange{"SliderOfAnyNegativeNumber", 0, 7200, Slider(-kFar - 1), 0, 86400}),
    [](const auto& test) { return test.param.name; });

TEST(ViewScrollBar, TellsTheViewInMinutes) {
  ModeListView document;
  EXPECT_EQ(GetViewScrollInfo(document), (ViewScrollInfo{0, 1440, 1440, 0, 0}));
  document.viewStart = 3600;
  document.viewEnd = 10859;
  EXPECT_EQ(GetViewScrollInfo(document), (ViewScrollInfo{0, 1440, 120, 60, 0}));
}

TEST(ViewScrollBar, ReadsBackWhatItTold) {
  ModeListView document;
  SetViewHours(document, 5.0F);
  PanView(document, 7200);
  const ViewScrollInfo info = GetViewScrollInfo(document);
  ModeListView other;
  SetViewFromScrollBar(other, info.page, info.position);
  EXPECT_EQ(other.viewStart, document.viewStart);
  EXPECT_EQ(other.viewEnd, document.viewEnd);
}

}  // namespace
}  // namespace program_test
