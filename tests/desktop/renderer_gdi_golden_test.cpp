// Whole frames over GDI+, kept as maps of letters that a person can read.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "program/demo_state.h"
#include "tests/desktop/gdi_chart.h"
#include "tests/support/golden.h"

namespace {

using namespace desktop;

struct Ink {
  char letter;
  std::uint32_t color;
  std::string_view meaning;
};

// The first of these that a cell holds is its letter.
constexpr Ink kInks[] = {
    {'D', 0x32B40A, "demo line"},
    {'S', 0xFF4500, "selected step"},
    {'T', 0xFAFAD2, "tooltip"},
    {'B', 0x000000, "rim of the selected step, outline of the tooltip"},
    {'J', 0xAA46E6, "rim of a step that jumps"},
    {'R', 0xFF0000, "rim of a step that fades"},
    {'Y', 0xFFFF00, "step"},
    {'F', 0x323232, "frame of the selected channel"},
    {'*', 0xFA8072, "curve"},
    {'1', 0x400000, "the first lane, and so on"},
    {'2', 0x004000, ""},
    {'3', 0x000040, ""},
    {'4', 0x404000, ""},
    {'5', 0x004040, ""},
    {'.', 0xFFFFFF, "background"},
};

// A letter for each 8 by 8 pixels. Grid lines and texts are left out.
std::string MapOf(const WindowPicture& picture) {
  constexpr int kCell = 8;
  std::string map;
  for (const Ink& ink : kInks) {
    if (!ink.meaning.empty()) map.append({ink.letter, ' '}).append(ink.meaning) += '\n';
  }
  map += '\n';
  for (int y = 0; y < picture.height(); y += kCell) {
    for (int x = 0; x < picture.width(); x += kCell) {
      char letter = '?';
      for (const Ink& ink : kInks) {
        if (picture.Count(ink.color, {x, y, kCell, kCell}) == 0) continue;
        letter = ink.letter;
        break;
      }
      map += letter;
    }
    map += '\n';
  }
  return map;
}

class RendererGdiGolden : public GdiChart {
 protected:
  RendererGdiGolden() {
    GivenSteps(0, {StepAt("06:00", 20), StepAt("12:00", 80, kJump), StepAt("18:00", 40)});
    GivenSteps(1, {StepAt("00:00", 0), StepAt("08:00", 100), StepAt("16:00", 100), StepAt("23:59", 0)});
    GivenSteps(2, {StepAt("09:00", 35, kJump)});
    GivenSteps(4, {StepAt("04:00", 70, kJump), StepAt("10:00", 10, kJump), StepAt("20:00", 90, kJump)});
  }
};

TEST_F(RendererGdiGolden, WholeDay) {
  Select(0, 1);
  golden::Expect("tests/desktop/golden/gdi/whole_day.txt", MapOf(Draw()));
}

TEST_F(RendererGdiGolden, FourHoursOfADemoWithALaneEnlarged) {
  GivenView("08:00", "12:00");
  layout.FocusLane(4);
  LetLanesSettle();
  Select(4, 1);
  demoState.SetRunning(9 * 3600 + 1800, TCBase::StatePlaying);
  golden::Expect("tests/desktop/golden/gdi/zoomed_demo.txt", MapOf(Draw()));
}

}  // namespace
