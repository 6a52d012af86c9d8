#pragma once

// The stretch of the day that the chart shows, as the scroll bar, the zoom slider and the keys change it.
// User interface thread.

#include <cstdint>

#include "app/chart_input.h"
#include "app/ctrls.h"
#include "app/ports.h"
#include "chart/renderer_base.h"
#include "program/program.h"

namespace app {

class ViewControl {
 public:
  ViewControl(const Shell& shell, TCBase::Program::ModeListView& program, Ctrls& ctrls,
              ChartInput& chartInput, UX::RendererBase& renderer);

  // Scroll events; codes of numbers.h.
  void OnScrollBar(int code, int position);
  void OnZoomSlider(int code, int position);

  /// The wheel has changed the view.
  void OnViewTurned();

  // Commands.
  void ZoomIn();
  void ZoomOut();
  void ShowHours(float hours);
  void Pan(std::int32_t seconds);

 private:
  void RefreshView();

  const Shell& shell_;
  TCBase::Program::ModeListView& program_;
  Ctrls& ctrls_;
  ChartInput& chartInput_;
  UX::RendererBase& renderer_;
};

}  // namespace app
