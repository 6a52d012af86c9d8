#pragma once

// The stretch of the day that the chart shows, as the scroll bar and the zoom slider change it. User
// interface thread.

#include <utility>

#include "app/window/ports.h"
#include "app/window/refresh.h"
#include "app/window/slider.h"
#include "program/program.h"

namespace app {

class ViewControl {
 public:
  /// All of these outlive the control.
  ViewControl(ControlsPort& controls, TCBase::Program::ModeListView& program, Slider& zoomSlider,
              Refresh refresh)
      : controls_(controls), program_(program), zoomSlider_(zoomSlider), refresh_(std::move(refresh)) {}

  // Scroll events; codes of numbers.h.
  void OnScrollBar(int code, int position);
  void OnZoomSlider(int code, int position);

 private:
  ControlsPort& controls_;
  TCBase::Program::ModeListView& program_;
  Slider& zoomSlider_;
  const Refresh refresh_;
};

}  // namespace app
