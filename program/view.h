#pragma once

// The stretch of the day that the chart shows: zooming, panning and the scroll bar. Seconds of the day, kept
// within 0 to 86400; never narrower than two hours.

#include <cstdint>

#include "program/program.h"

namespace TCBase::Program {

inline constexpr float kMinViewHours = 2.0F;
inline constexpr float kMaxViewHours = kHoursPerDay;

/// State of the chart's scroll bar, in minutes. A shell sets range, page and position at once. Nobody sets or
/// reads `trackPosition`.
struct ViewScrollInfo {
  std::int32_t minimum = 0;
  std::int32_t maximum = kMinutesPerDay;
  std::int32_t page = 0;
  std::int32_t position = 0;
  std::int32_t trackPosition = 0;

  friend bool operator==(const ViewScrollInfo&, const ViewScrollInfo&) = default;
};

/// The width; any number for a view that was not set here.
float ViewHours(const ModeListView& document);
/// Sets the width, 2 to 24 hours, keeping the start where the day leaves room for it.
void SetViewHours(ModeListView& document, float hours);
/// Moves the view, keeping its width; any distance stops at the ends of the day.
void PanView(ModeListView& document, std::int32_t seconds);
/// Sets the view from the scroll bar, in minutes. Numbers off the day count as its nearest end.
void SetViewFromScrollBar(ModeListView& document, std::int32_t page, std::int32_t position);
/// One hour narrower.
void ViewZoomIn(ModeListView& document);
/// One hour wider.
void ViewZoomOut(ModeListView& document);
/// Takes a place of the zoom slider: 0 shows the whole day, each further place one hour less.
void SetViewFromSlider(ModeListView& document, std::int32_t position);
ViewScrollInfo GetViewScrollInfo(const ModeListView& document);

}  // namespace TCBase::Program
