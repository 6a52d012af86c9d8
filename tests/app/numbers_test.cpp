// The numbers of events and of the timer.

#include "app/window/numbers.h"

#include <gtest/gtest.h>

namespace {

TEST(Events, HaveTheirNumbers) {
  EXPECT_EQ(app::WM_LOG_PENDING, 1024U);
  EXPECT_EQ(app::WM_SCAN_FINISHED, 1025U);
  EXPECT_EQ(app::WM_DEVICES_CHANGED, 1026U);
  EXPECT_EQ(app::WM_DEMO_STATE, 1027U);
  EXPECT_EQ(app::kDemoTimer, 300);
  EXPECT_EQ(app::kDemoTimerMilliseconds, 100);
}

}  // namespace
