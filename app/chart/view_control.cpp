#include "app/chart/view_control.h"

#include "app/window/numbers.h"
#include "program/view.h"

namespace app {

using namespace TCBase::Program;

namespace {

constexpr std::int32_t kScrollLineMinutes = 15;
std::int32_t ScrolledTo(const ViewScrollInfo& info, int code, int position) {
  switch (code) {
    case scroll::kLineBack:
      return info.position - kScrollLineMinutes;
    case scroll::kLineForward:
      return info.position + kScrollLineMinutes;
    case scroll::kPageBack:
      return info.position - info.page;
    case scroll::kPageForward:
      return info.position + info.page;
    case scroll::kThumbMoving:
      return position;
    default:
      return info.position;
  }
}

std::int32_t ZoomedTo(std::int32_t present, int code, int position) {
  switch (code) {
    case scroll::kLineBack:
    case scroll::kPageBack:
      return present - 1;
    case scroll::kLineForward:
    case scroll::kPageForward:
      return present + 1;
    case scroll::kThumbMoving:
      return position;
    case scroll::kFirst:
      return 0;
    case scroll::kLast:
      return kLastZoomPosition;
    default:
      return present;
  }
}

}  // namespace

void ViewControl::OnScrollBar(int code, int position) {
  ViewScrollInfo info = GetViewScrollInfo(program_);
  info.position = ScrolledTo(info, code, position);
  controls_.SetScrollBar(info);
  // From what was computed here, not from what the bar made of it: the view clamps by its own rule.
  SetViewFromScrollBar(program_, info.page, info.position);
  refresh_(part::kPlaces | part::kChart);
}

void ViewControl::OnZoomSlider(int code, int position) {
  const std::int32_t place = ZoomedTo(zoomSlider_.Position(), code, position);
  SetViewFromSlider(program_, place);
  zoomSlider_.SetPosition(place);
  refresh_(part::kScrollBar | part::kPlaces | part::kChart | part::kFocus);
}

}  // namespace app
