#include "chart/curve_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "chart/scene_queries.h"
#include "common/truncate.h"

namespace UX {

namespace {

using namespace TCBase::Program;

// Puts points into a figure, at most four of those that follow one another in one column.
class ThinnedLine {
 public:
  explicit ThinnedLine(Figure& figure) : figure_(figure) { figure_.Clear(); }

  void Add(Point point) {
    if (count_ > 0 && run_.front().x != point.x) Flush();
    run_[count_++] = point;
    if (count_ == run_.size()) Thin();
  }

  void Flush() {
    for (std::size_t i = 0; i < count_; ++i) {
      if (figure_.Points().empty()) {
        figure_.Begin(run_[i]);
      } else {
        figure_.LineTo(run_[i]);
      }
    }
    count_ = 0;
  }

 private:
  void Thin() {
    const auto byHeight = [](Point a, Point b) { return a.y < b.y; };
    const auto [highest, lowest] = std::minmax_element(run_.begin(), run_.end(), byHeight);
    const std::array<Point, 5> all = run_;
    const auto highestIndex = static_cast<std::size_t>(highest - run_.begin());
    const auto lowestIndex = static_cast<std::size_t>(lowest - run_.begin());
    count_ = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (i == 0 || i == highestIndex || i == lowestIndex || i == all.size() - 1) run_[count_++] = all[i];
    }
  }

  Figure& figure_;
  std::array<Point, 5> run_;  // of one column; the last place is free but within Add
  std::size_t count_ = 0;
};

}  // namespace

void BuildCurveLine(Figure& line, const Channel& channel, const Rect& lane, const ModeListView& view) {
  ThinnedLine thinned(line);
  if (channel.size() < 2) return;

  const auto add = [&](std::int32_t x, float percent) {
    thinned.Add({WithinReach(x), WithinReach(PercentToY(lane, percent))});
  };
  const auto truncated = [](float value) { return static_cast<float>(TruncateToInt(value)); };

  float held = truncated(ChannelValueAt(channel, 0));
  add(TimeToX(lane, view, 0), held);
  // Begins with the last step, so that a jump at the day's end goes on at its beginning.
  const Step* previous = &channel.back();
  for (const Step& step : channel) {
    const std::int32_t x = TimeToX(lane, view, step);
    if (previous->jump) add(x, held);
    add(x, step.value);
    held = truncated(step.value);
    previous = &step;
  }
  // The line ends with the last minute, not with the last second of the day.
  add(TimeToX(lane, view, kDayEnd), ChannelValueAt(channel, kDayEnd));
  thinned.Flush();
}

}  // namespace UX
