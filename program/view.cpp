#include "program/view.h"

#include <algorithm>

#include "common/truncate.h"

namespace TCBase::Program {

namespace {

// Brings a view back into the day, keeping its width of `span` seconds.
void SetView(ModeListView& document, std::int64_t start, std::int64_t end, float span) {
  if (end > kSecondsPerDay) {
    end = kSecondsPerDay;
    start = TruncateToInt(static_cast<float>(kSecondsPerDay) - span);
  }
  if (start < 0) {
    start = 0;
    end = TruncateToInt(span);
  }
  document.viewStart = static_cast<std::int32_t>(start);
  document.viewEnd = static_cast<std::int32_t>(end);
}

}  // namespace

float ViewHours(const ModeListView& document) {
  return static_cast<float>(document.viewEnd - document.viewStart) / static_cast<float>(kSecondsPerHour);
}

void SetViewHours(ModeListView& document, float hours) {
  // Written so that not a number is the lower bound.
  hours = hours > kMinViewHours ? std::min(hours, kMaxViewHours) : kMinViewHours;
  const std::int32_t start = document.viewStart;
  const std::int32_t end =
      TruncateToInt(static_cast<float>(start) + hours * static_cast<float>(kSecondsPerHour));
  SetView(document, start, end, static_cast<float>(end - start));
}

void PanView(ModeListView& document, std::int32_t seconds) {
  const auto span = static_cast<float>(document.viewEnd - document.viewStart);
  SetView(document, std::int64_t{document.viewStart} + seconds, std::int64_t{document.viewEnd} + seconds,
          span);
}

void SetViewFromScrollBar(ModeListView& document, std::int32_t page, std::int32_t position) {
  page = std::clamp(page, 0, kMinutesPerDay);
  position = std::clamp(position, 0, kMinutesPerDay);
  const std::int32_t start = position * kSecondsPerMinute;
  SetView(document, start, start + page * kSecondsPerMinute, static_cast<float>(page * kSecondsPerMinute));
}

void ViewZoomIn(ModeListView& document) {
  SetViewHours(document, ViewHours(document) - 1.0F);
}

void ViewZoomOut(ModeListView& document) {
  SetViewHours(document, ViewHours(document) + 1.0F);
}

void SetViewFromSlider(ModeListView& document, std::int32_t position) {
  SetViewHours(document, kMaxViewHours - static_cast<float>(position));
}

ViewScrollInfo GetViewScrollInfo(const ModeListView& document) {
  ViewScrollInfo info;
  info.page = (document.viewEnd - document.viewStart) / kSecondsPerMinute;
  info.position = document.viewStart / kSecondsPerMinute;
  return info;
}

}  // namespace TCBase::Program
