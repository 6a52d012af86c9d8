#include "tests/app/chart_test.h"

using namespace TCBase::Program;

void ChartTest::SetUp() {
  AppTest::SetUp();
  GivenTheProgramRuns();
  Rest();
}

void ChartTest::TearDown() {
  GivenDemoAt(-1);
}

void ChartTest::GivenChannels(std::initializer_list<const char*> channels) {
  GivenSelection(-1, -1);
  Mode().channels = {};
  int index = 0;
  for (const char* steps : channels) Channel(index++) = program_test::GivenChannel(steps);
  RenumberSteps(Mode());
  Rest();
}

void ChartTest::GivenFocusOn(int lane) {
  Layout().FocusLane(lane);
  Rest();
}

void ChartTest::GivenView(int fromHour, int toHour) {
  Program().viewStart = fromHour * 3600;
  Program().viewEnd = toHour * 3600;
}

void ChartTest::GivenStepsInLane0(const char* steps) {
  GivenChannels({steps});
  GivenSelection(0, -1);
  GivenFocusOn(0);
}

void ChartTest::GivenMergedSteps(int count) {
  GivenChannels({});
  Mode().channels = program_test::GivenModeOfMergedSteps(count, 10).channels;
  RenumberSteps(Mode());
  GivenSelection(0, -1);
  GivenFocusOn(0);
}

void ChartTest::Drag(int fromX, int fromY, int toX, int toY) {
  Press(fromX, fromY);
  Move(toX, toY);
  Release();
}

void ChartTest::Rest() {
  user.Wait(0.3);
  Invalidated();
}

std::vector<UX::Rect> ChartTest::Invalidated() {
  return std::exchange(user.GetDesktop().chart.invalidated, {});
}

UX::Rect ChartTest::LaneArea(int lane) {
  const UX::Rect rect = Layout().LaneRect(lane);
  return {rect.x - 9, rect.y - 13, rect.width + 18, rect.height + 26};
}
