#pragma once

// What the application asks of whoever draws the chart.

#include <cstdint>

#include "chart/chart_layout.h"
#include "chart/chart_overlay.h"
#include "chart/chart_window.h"
#include "program/demo_state.h"
#include "program/program.h"
#include "program/step_group.h"

namespace UX {

inline const TCBase::Program::StepGroup kNoGroup;
inline const ChartOverlay kNoOverlay;

/// What there is to draw. The application owns all of it, and it outlives the renderer.
struct ChartScene {
  const TCBase::Program::ModeListView& program;     // current mode, channel table, view
  const TCBase::Program::StepSelection& selection;  // current channel and the step chosen in it
  const TCBase::Program::StepSelection& hoverStep;  // the step under the mouse
  ChartLayout& layout;
  const TCBase::DemoState& demo;
  const double& now;                                   // the time of the present frame, in seconds
  const TCBase::Program::StepGroup& group = kNoGroup;  // steps selected together
  const ChartOverlay& overlay = kNoOverlay;
};

/// Draws the chart. User interface thread; nothing but Initialise fails.
class RendererBase {
 public:
  explicit RendererBase(const ChartScene& scene)
      : program(scene.program),
        selection(scene.selection),
        hoverStep(scene.hoverStep),
        layout(scene.layout),
        demo(scene.demo) {}
  virtual ~RendererBase() = default;
  RendererBase(const RendererBase&) = delete;
  RendererBase& operator=(const RendererBase&) = delete;

  /// Once, when the windows exist in their size and are not shown yet. Throws if the platform cannot draw;
  /// nothing catches that.
  virtual void Initialise() = 0;
  /// Once, at shut-down, when the windows have gone.
  virtual void Release() = 0;
  /// Draws a frame, on each paint event of the chart window and from the main loop. Where a toolkit draws
  /// only within its paint event, a call from outside has the window painted at once and the call from within
  /// that event draws.
  virtual void Render() = 0;
  /// Moves popups on: on each pass of the main loop without an event, before the decision to draw.
  virtual void Update() = 0;
  /// Resources, texts or colours may have changed.
  virtual void Rebuild() = 0;
  /// The view has changed.
  virtual void Relayout() = 0;
  /// The mouse is at this point, in the chart window's coordinates.
  virtual void MouseMoved(std::int32_t x, std::int32_t y) = 0;
  /// Whether something moves by itself, so that drawing must go on.
  virtual bool IsAnimating() = 0;

  ChartWindowPort* window = nullptr;  // null until it exists

 protected:
  const TCBase::Program::ModeListView& program;
  const TCBase::Program::StepSelection& selection;
  const TCBase::Program::StepSelection& hoverStep;
  ChartLayout& layout;
  const TCBase::DemoState& demo;
};

}  // namespace UX
