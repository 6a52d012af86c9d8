#include "app/view_control.h"

#include "app/numbers.h"
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

ViewControl::ViewControl(const Shell& shell, ModeListView& program, Ctrls& ctrls, ChartInput& chartInput,
                         UX::RendererBase& renderer)
    : shell_(shell), program_(program), ctrls_(ctrls), chartInput_(chartInput), renderer_(renderer) {}

void ViewControl::OnScrollBar(int code, int position) {
  ViewScrollInfo info = GetViewScrollInfo(program_);
  info.position = ScrolledTo(info, code, position);
  shell_.controls.SetScrollBar(info);
  // From what was computed here, not from what the bar made of it: the view clamps by its own rule.
  SetViewFromScrollBar(program_, info.page, info.position);
  renderer_.Relayout();
  chartInput_.InvalidateChart();
}

void ViewControl::OnZoomSlider(int code, int position) {
  Slider& slider = ctrls_.ZoomSlider();
  const std::int32_t place = ZoomedTo(slider.Position(), code, position);
  SetViewFromSlider(program_, place);
  slider.SetPosition(place);
  ctrls_.UpdateScrollBar();
  renderer_.Relayout();
  chartInput_.InvalidateChart();
  shell_.mainWindow.TakeFocus();
}

void ViewControl::OnViewTurned() {
  ctrls_.UpdateScrollBar();
  renderer_.Relayout();
  ctrls_.UpdateZoomSlider();
  chartInput_.InvalidateChart();
}

void ViewControl::ZoomIn() {
  ViewZoomIn(program_);
  RefreshView();
}

void ViewControl::ZoomOut() {
  ViewZoomOut(program_);
  RefreshView();
}

void ViewControl::ShowHours(float hours) {
  SetViewHours(program_, hours);
  RefreshView();
}

void ViewControl::Pan(std::int32_t seconds) {
  PanView(program_, seconds);
  RefreshView();
}

void ViewControl::RefreshView() {
  renderer_.Rebuild();
  chartInput_.InvalidateChart();
  ctrls_.UpdateScrollBar();
  ctrls_.UpdateZoomSlider();
}

}  // namespace app
