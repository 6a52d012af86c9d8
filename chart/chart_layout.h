#pragma once

// The chart's geometry: how a window size becomes five lanes, and how a moment and a percentage become a
// pixel and back. Plain numbers, no window. User interface thread only.

#include <array>
#include <cstdint>
#include <optional>

#include "chart/bumper.h"
#include "common/geometry.h"
#include "program/program.h"

namespace UX {

using ::Rect;

/// Pixels between two lanes. A gap belongs to no lane.
inline constexpr std::int32_t kLaneGap = 14;

/// Says where the chart and its lanes are. The lanes glide to their places for 0.2 seconds after each change,
/// so a lane's rectangle is asked for anew at each use and never kept from one frame to the next.
class ChartLayout {
 public:
  /// `now` is the time of the present frame, see bumper.h; it outlives the layout.
  explicit ChartLayout(const double& now);

  /// Takes over the size of the main window's client area.
  void Update(std::int32_t clientWidth, std::int32_t clientHeight);

  /// Makes room for the strip of mixed light above the lanes, or gives it back to them. There is none at
  /// first.
  void ShowStrip(bool shown);

  /// Enlarges a lane. Nothing happens, and no motion starts over, for a lane that is enlarged already and for
  /// a number that is no lane.
  void FocusLane(std::int32_t index);
  /// All lanes alike again.
  void ClearFocus();

  /// Whether a lane has moved within the last second: its last frame has been drawn by then, too.
  bool IsGliding() const;

  /// Where a lane, 0 to 4, is at this moment, in the chart window's coordinates.
  Rect LaneRect(std::int32_t index);
  /// The lane that holds a point, or -1. Lanes are taken to be where they are gliding to.
  std::int32_t LaneAt(std::int32_t x, std::int32_t y) const;
  /// Where the strip of mixed light is, in the chart window's coordinates; without a size where it is not
  /// shown, or where there is no room.
  Rect StripRect() const;
  /// Where balloons stay and a demo's cursor runs: as wide as the lanes and as high as the chart's window, in
  /// the chart window's coordinates.
  Rect LaneStrip() const;

  // These are in the main window's coordinates.

  /// The chart window.
  Rect ChartWindowRect() const;
  /// What dialogs are placed against.
  Rect DialogAnchorChart() const;
  Rect DialogAnchorTop() const;
  Rect DialogAnchorBottom() const;

  Rect clientRect;                   // of the main window
  std::int32_t focusedLane = -1;     // the enlarged lane, -1 for none
  std::int32_t collapsedHeight = 0;  // of a lane while another one is enlarged
  std::array<bumper_base::FrameBumper, TCBase::Program::kChannelCount> laneHeights;
  Rect chartRect;  // that the lanes share, in the chart window's coordinates

 private:
  void PlaceLanes();
  void Reflow();

  bool showsStrip_ = false;
};

// Conversions between a point of a lane and what it stands for, over the stretch of the day that the document
// shows. 32-bit float, truncated.

std::int32_t TimeToX(const Rect& lane, const TCBase::Program::ModeListView& view, std::int64_t second);
/// A step's point.
std::int32_t TimeToX(const Rect& lane, const TCBase::Program::ModeListView& view,
                     const TCBase::Program::Step& step);
std::int32_t PercentToY(const Rect& lane, float percent);
/// The second under a pixel, or a point between two; left and right of the day there is none that is on the
/// day (see IsOnDay).
std::int32_t XToTime(const Rect& lane, const TCBase::Program::ModeListView& view, std::int32_t x);
std::int32_t XToTime(const Rect& lane, const TCBase::Program::ModeListView& view, float x);
/// The result is not clamped.
float YToPercent(const Rect& lane, std::int32_t y);
float YToPercent(const Rect& lane, float y);
/// Whether a second is from 0 to 86399.
bool IsOnDay(std::int32_t second);

/// Sizes of step markers; they go by the window's height, not the lane's.
struct MarkerSize {
  float plainDiameter;
  float plainRadius;  // also how near the mouse must be
  float selectedDiameter;
};
MarkerSize GetMarkerSize(const ChartLayout& layout);

}  // namespace UX
