#pragma once

// A chart whose steps are hovered and selected, and what is seen of their popups.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "chart/step_popups.h"
#include "tests/chart/chart_fixture.h"
#include "tests/chart/sketch_canvas.h"

namespace chart_test {

/// What is seen of a popup.
struct Balloon {
  std::string text;
  float scale;
  UX::Point center;
};

/// Two lanes in a window of 1024 by 768: the lanes are 105 pixels high, their tops at 10 and 129, and noon is
/// at x 452.
class GivenStepPopups : public ::testing::Test {
 protected:
  static constexpr UX::Point kNoonAt50{452.0F, 62.0F};
  static constexpr UX::Point kSixAt100{231.0F, 10.0F};

  void Hover(std::int32_t channel, std::int32_t step) { chart_.Hover(channel, step); }
  void HoverNothing() { chart_.Hover(-1, -1); }

  /// An idle pass of the main loop, without a frame.
  void Pass() { popups_.Update(); }
  /// Many of them, as quick as an idle program makes them.
  void PassFor(double seconds) {
    const int passes = static_cast<int>(std::lround(seconds / kPassSeconds));
    for (int i = 0; i < passes; ++i) {
      Wait(kPassSeconds);
      Pass();
    }
  }
  void Wait(double seconds) { chart_.Wait(seconds); }

  void Draw(std::int32_t lane = 0) {
    canvas_.drawn.clear();
    popups_.DrawPopups(canvas_, lane);
    EXPECT_EQ(canvas_.transform, UX::kIdentity);
  }
  /// What a frame shows of the first popup in a lane, if anything.
  std::optional<Balloon> Look(std::int32_t lane = 0) {
    Draw(lane);
    if (canvas_.drawn.empty()) return std::nullopt;
    const UX::Line leader = canvas_.All<UX::Line>(Done::Stroke).at(0);
    return Balloon{canvas_.text, canvas_.drawn.at(1).transform.scale, leader.to};
  }
  /// 0 if there is none.
  float Scale(std::int32_t lane = 0) {
    const auto balloon = Look(lane);
    return balloon ? balloon->scale : 0.0F;
  }
  void ExpectCenter(UX::Point expected, float tolerance = 1.0F) {
    const auto balloon = Look();
    ASSERT_TRUE(balloon);
    EXPECT_NEAR(balloon->center.x, expected.x, tolerance);
    EXPECT_NEAR(balloon->center.y, expected.y, tolerance);
  }

  /// The popup of a hovered step, grown and where it belongs.
  void GivenGrownPopup() {
    Hover(0, 1);
    Pass();
    PassFor(0.3);
    for (int i = 0; i < 3; ++i) Draw(), PassFor(0.1);
  }

  static constexpr double kPassSeconds = 0.005;

  GivenChart chart_{program_test::GivenDocument(
      program_test::GivenMode({"06:00 100, 12:00 50, 18:00 0", "06:00 20, 12:00 80"}))};
  UX::StepPopups popups_{chart_.scene};
  SketchCanvas canvas_;
};

}  // namespace chart_test
