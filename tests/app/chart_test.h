#pragma once

// What the tests of the chart's mouse and keys share. The window is 1024 by 768: the lanes are 884 pixels
// wide from 10 on; all alike, they are 105 high and begin at 10, 129, 248, 367 and 486. With lane 0 enlarged
// they begin at 10 (194 high), 218, 315, 412 and 509 (83 high), and in lane 0 a percent is 1.94 pixels up
// from 204. With the whole day shown, 12:00 is at 452.

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tests/app/app_test.h"
#include "tests/program/program_fixture.h"

class ChartTest : public AppTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Given

  /// The current mode with these channels first, empty ones behind, nothing selected.
  void GivenChannels(std::initializer_list<const char*> channels);
  /// A lane enlarged, at rest.
  void GivenFocusOn(int lane);
  /// A stretch of the day shown, in hours.
  void GivenView(int fromHour, int toHour);
  /// The same, at rest with its first lane enlarged and selected.
  void GivenStepsInLane0(const char* steps);
  /// A mode of that many merged steps, in lanes that leave 18:00 and later free; lane 0 enlarged and
  /// selected.
  void GivenMergedSteps(int count);

  // When. At a pixel, with nothing turning the main loop: time stands still, and so do the lanes.

  void Press(int x, int y) {
    buttonHeld_ = true;
    Chart().OnLeftDown(x, y);
  }
  void Move(int x, int y) { Chart().OnMouseMove(x, y, buttonHeld_); }
  void Release() {
    buttonHeld_ = false;
    Chart().OnLeftUp(0, 0);
  }
  void Drag(int fromX, int fromY, int toX, int toY);
  /// Lets the lanes come to rest.
  void Rest();

  // Then

  std::string Told(int channel) { return program_test::Told(Channel(channel)); }
  using Place = std::pair<int, int>;  // channel and step
  Place Selected() { return {user.State().selection.channel, user.State().selection.step}; }
  Place Hovered() { return {user.State().hoverStep.channel, user.State().hoverStep.step}; }
  /// Since the last call.
  std::vector<UX::Rect> Invalidated();
  /// What InvalidateLane asks for, as the lane is now.
  UX::Rect LaneArea(int lane);

  app::ChartWindow& Chart() { return user.GetDesktop().application->chartWindow; }
  UX::ChartLayout& Layout() { return user.State().chartLayout; }
  bool IsCaptured() { return user.GetDesktop().chart.captured; }
  bool ChartHasFocus() { return user.GetDesktop().focus == headless::Focus::Chart; }
  app::UndoStack& History() { return user.State().undoStack; }

  /// What the log says behind the first release of a step.
  static inline const std::string kHints =
      "Hint: Press DELETE or BACKSPACE to remove the selected step.\n"
      "Hint: You can also use keyboard ARROWS to move the step with higher accuracy.\n";
  static constexpr UX::Rect kWholeChart{0, 0, 904, 602};

 private:
  bool buttonHeld_ = false;
};
