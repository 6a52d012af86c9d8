// Whole frames as text, to be reviewed by eye: what recording_canvas.h explains, with the labels of a lane on
// one line. A table of documents, windows, views, selections, hovered steps, places of the mouse and of the
// demo, and moments. The files in golden/frames tell at their heads what they show.
//
// After a change that is meant to be seen, write them anew and review the diff:
//
//   LUMARINE_REWRITE_GOLDEN=1 GTEST_FILTER='*Golden*' ctest --preset native-debug -R chart_drawing_tests
//   git diff tests/chart/golden

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "program/builtin_modes.h"
#include "tests/chart/chart_fixture.h"
#include "tests/support/golden.h"

namespace chart_test {
namespace {

constexpr const char* kFolder = "tests/chart/golden/frames";

// Documents.

struct Document {
  const char* name;
  ModeListView (*make)();
};

constexpr Document kSample{"two curves, a step, and nothing", [] {
                             return program_test::GivenDocument(program_test::GivenMode(
                                 {"06:00 0, 12:00 50, 18:00 80.7 J", "08:00 10, 20:00 100", "12:00 30"}));
                           }};
constexpr Document kDaily{"the built-in daily program", [] { return NewProgram(); }};
constexpr Document kAlwaysOn{"the built-in mode for cleaning", [] {
                               ModeListView document = NewProgram();
                               document.currentMode = 1;
                               return document;
                             }};
constexpr Document kFull{"48 steps, one channel after the other in turn", [] {
                           return program_test::GivenDocument(program_test::GivenModeOfMergedSteps(48, 30));
                         }};
constexpr Document kMidnight{"jumps at both ends of the day", [] {
                               return program_test::GivenDocument(program_test::GivenMode(
                                   {"00:00 20, 23:59 90 J", "00:00 0 J, 00:01 100 J, 23:58 50 J"}));
                             }};
constexpr Document kNonsense{"steps on one minute, off the day, out of range and no numbers", [] {
                               ModeListView document = program_test::GivenDocument(program_test::GivenMode(
                                   {"12:00 10, 12:00 90, 12:00 50", "-5:00 50, 12:00 150, 30:00 -20",
                                    "18:00 40, 06:00 80, 12:00 0", "06:00 1, 12:00 2, 18:00 3"}));
                               Channel& channel = document.modes[0].channels[3];
                               channel[0].value = std::numeric_limits<float>::quiet_NaN();
                               channel[1].value = std::numeric_limits<float>::infinity();
                               return document;
                             }};
constexpr Document kColors{"a blue, a white and a red channel that fade", [] {
                             ModeListView document = program_test::GivenDocument(program_test::GivenMode(
                                 {"06:00 0, 12:00 100", "09:00 0, 12:00 80", "10:00 50 J, 11:00 0 J"}));
                             const std::uint32_t colors[] = {0xFF2060FF, 0xFFF0F0E0, 0xFFFF3020};
                             for (std::size_t i = 0; i < 3; ++i) document.channelInfos[i].color = colors[i];
                             return document;
                           }};
constexpr Document kNothing{"no modes", [] { return ModeListView(); }};

// Frames.

using Pair = std::pair<std::int32_t, std::int32_t>;

struct Demo {
  std::int32_t second;
  std::array<std::int32_t, kChannelCount> values;
};

constexpr Pair kNone{-1, -1};
constexpr int kAtRest = 1000;

struct FrameCase {
  const char* name;
  Document document = kSample;
  Pair window{1024, 768};
  Pair view{0, kMinutesPerDay};  // minutes
  int focusedLane = -1;
  Pair selected = kNone;  // channel and step, from 0
  Pair hovered = kNone;
  Pair hoveredBefore = kNone;  // until everything was at rest, and no longer
  std::optional<Pair> mouse = std::nullopt;
  std::optional<Demo> demo = std::nullopt;
  int milliseconds = kAtRest;  // since all of this
  bool strip = false;
};

const FrameCase kFrames[] = {
    // Documents.
    {.name = "sample"},
    {.name = "daily_program", .document = kDaily},
    {.name = "always_on", .document = kAlwaysOn},
    {.name = "full", .document = kFull},
    {.name = "midnight", .document = kMidnight, .mouse = Pair{893, 200}},
    {.name = "nonsense",
     .document = kNonsense,
     .selected = {1, 1},
     .hovered = {3, 0},
     .mouse = Pair{452, 180}},
    {.name = "no_modes", .document = kNothing, .selected = {0, 0}, .mouse = Pair{452, 180}},
    // Windows.
    {.name = "large_window", .window = {1920, 1080}, .selected = {0, 1}, .mouse = Pair{800, 300}},
    {.name = "small_window", .window = {400, 330}, .selected = {0, 1}, .mouse = Pair{100, 50}},
    {.name = "window_of_one_pixel", .window = {1, 1}, .selected = {0, 1}},
    // Views.
    {.name = "two_hours", .view = {11 * 60, 13 * 60}, .selected = {0, 1}, .mouse = Pair{600, 62}},
    {.name = "last_hours", .document = kMidnight, .view = {22 * 60, 24 * 60}, .hovered = {1, 2}},
    {.name = "view_within_hours", .view = {10 * 60 + 7, 14 * 60 + 52}, .mouse = Pair{5, 300}},
    // Selections, hovered steps and enlarged lanes.
    {.name = "channel_selected", .focusedLane = 1, .selected = {1, -1}, .mouse = Pair{300, 200}},
    {.name = "step_selected", .focusedLane = 0, .selected = {0, 1}, .mouse = Pair{300, 100}},
    {.name = "jump_hovered", .hovered = {0, 2}, .mouse = Pair{673, 31}},
    {.name = "jump_selected_and_hovered", .selected = {0, 2}, .hovered = {0, 2}, .mouse = Pair{673, 31}},
    {.name = "selected_and_hovered_in_two_lanes",
     .selected = {0, 1},
     .hovered = {1, 0},
     .mouse = Pair{305, 223}},
    // The mouse.
    {.name = "mouse_between_lanes", .mouse = Pair{452, 120}},
    {.name = "mouse_on_its_way", .mouse = Pair{452, 60}, .milliseconds = 50},
    // The demo.
    {.name = "demo_at_noon", .demo = Demo{12 * 3600, {50, 40, 30, 0, 100}}},
    {.name = "demo_on_its_way", .demo = Demo{12 * 3600, {50, 40, 30, 0, 100}}, .milliseconds = 50},
    {.name = "demo_beside_the_view",
     .view = {6 * 60, 12 * 60},
     .focusedLane = 4,
     .demo = Demo{18 * 3600 + 59, {80, 85, 30, 0, 0}}},
    // The strip of mixed light.
    {.name = "strip", .selected = {0, 1}, .mouse = Pair{452, 100}, .strip = true},
    {.name = "strip_of_colors",
     .document = kColors,
     .view = {5 * 60, 13 * 60},
     .focusedLane = 2,
     .strip = true},
    {.name = "strip_of_nonsense", .document = kNonsense, .strip = true},
    {.name = "strip_in_a_small_window", .window = {400, 330}, .strip = true},
    // Moments.
    {.name = "focus_and_balloons_on_their_way",
     .focusedLane = 1,
     .selected = {1, 1},
     .hovered = {0, 1},
     .mouse = Pair{452, 62},
     .milliseconds = 100},
    {.name = "balloon_shrinking", .hoveredBefore = {0, 1}, .milliseconds = 1800},
};

// What happens.

// Frame after frame, as the main loop makes them.
void Pass(GivenChart& chart, int milliseconds) {
  constexpr int kFrameMilliseconds = 50;
  chart.drawing.Update();
  chart.Frame();
  for (int passed = 0; passed < milliseconds; passed += kFrameMilliseconds) {
    chart.Wait(kFrameMilliseconds / 1000.0);
    chart.drawing.Update();
    chart.Frame();
  }
}

void Show(GivenChart& chart, const FrameCase& frame) {
  chart.layout.ShowStrip(frame.strip);
  chart.document.viewStart = frame.view.first * 60;
  chart.document.viewEnd = frame.view.second * 60;
  chart.drawing.Relayout(chart.canvas);
  if (frame.hoveredBefore != kNone) {
    chart.Hover(frame.hoveredBefore.first, frame.hoveredBefore.second);
    Pass(chart, kAtRest);
  }
  chart.layout.FocusLane(frame.focusedLane);
  chart.Select(frame.selected.first, frame.selected.second);
  chart.Hover(frame.hovered.first, frame.hovered.second);
  if (frame.mouse) chart.drawing.MouseMoved(frame.mouse->first, frame.mouse->second);
  if (frame.demo) chart.PlayDemo(frame.demo->second, frame.demo->values);
  Pass(chart, frame.milliseconds);
}

// How it is told.

std::string Told(Pair pair) {
  return std::to_string(pair.first) + "," + std::to_string(pair.second);
}

// "channel 1", "channel 1 step 2", counted as users do.
std::string ToldPlace(Pair place) {
  if (place.first < 0) return "nothing";
  const std::string channel = "channel " + std::to_string(place.first + 1);
  return place.second < 0 ? channel : channel + " step " + std::to_string(place.second + 1);
}

std::string ToldTime(std::int32_t second) {
  const auto digits = [](std::int32_t n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  return digits(second / 3600) + ":" + digits(second / 60 % 60) + ":" + digits(second % 60);
}

std::string ToldDemo(const Demo& demo) {
  std::string text = ToldTime(demo.second);
  for (const std::int32_t value : demo.values) text += " " + std::to_string(value);
  return text;
}

std::string ToldScene(const FrameCase& frame) {
  std::string text = std::string("document: ") + frame.document.name + "\n";
  text += "window: " + std::to_string(frame.window.first) + "x" + std::to_string(frame.window.second) + "\n";
  text += "view: " + ToldTime(frame.view.first * 60) + " to " + ToldTime(frame.view.second * 60) + "\n";
  text += "enlarged: " + ToldPlace({frame.focusedLane, -1}) + "\n";
  text += "selected: " + ToldPlace(frame.selected) + "\n";
  text += "hovered: " + ToldPlace(frame.hovered);
  if (frame.hoveredBefore != kNone) text += ", before that " + ToldPlace(frame.hoveredBefore);
  text += "\nmouse: " + (frame.mouse ? Told(*frame.mouse) : "has not moved") + "\n";
  text += "demo: " + (frame.demo ? ToldDemo(*frame.demo) : "none") + "\n";
  text += "after: " + std::to_string(frame.milliseconds) + " ms\n";
  if (frame.strip) text += "strip: shown\n";
  return text;
}

// The lines, but labels that follow one another on one.
std::string Compact(const std::vector<std::string>& lines) {
  constexpr std::string_view kDraw = "draw ";
  std::string text;
  bool draws = false;
  for (const std::string& line : lines) {
    const bool isDraw = line.starts_with(kDraw);
    if (isDraw && draws) {
      text.back() = ',';
      text += line.substr(kDraw.size() - 1) + "\n";
    } else {
      text += line + "\n";
    }
    draws = isDraw;
  }
  return text;
}

// Tests.

class GoldenFrames : public testing::TestWithParam<FrameCase> {};

TEST_P(GoldenFrames, AreAsTold) {
  const FrameCase& frame = GetParam();
  GivenChart chart(frame.document.make(), frame.window.first, frame.window.second);
  Show(chart, frame);
  golden::Expect(std::string(kFolder) + "/" + frame.name + ".txt",
                 ToldScene(frame) + "\n" + Compact(chart.canvas.Lines()));
}

INSTANTIATE_TEST_SUITE_P(Table, GoldenFrames, testing::ValuesIn(kFrames),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(GoldenFramesFolder, HasNoFileLeftFromAFrameThatIsGone) {
  std::set<std::string> names;
  for (const FrameCase& frame : kFrames) names.insert(frame.name);
  const std::filesystem::path folder = std::filesystem::path(LUMARINE_SOURCE_DIR) / kFolder;
  std::error_code missing;  // before the first are written
  for (const auto& entry : std::filesystem::directory_iterator(folder, missing))
    EXPECT_TRUE(names.contains(entry.path().stem().string()))
        << entry.path() << " is of no frame in the table";
}

}  // namespace
}  // namespace chart_test
