#pragma once

// The chart on the screen: the frame of UX::ChartDrawing, carried by Direct2D.

#include <cstdint>

#include "chart/chart_drawing.h"
#include "chart/renderer_base.h"
#include "platform/win32/chart_window.h"
#include "platform/win32/d2d_canvas.h"

namespace UX {

/// Initialise, Rebuild and Relayout throw _com_error where Direct2D refuses what the chart cannot be drawn
/// without; nothing catches that.
class RendererDX final : public RendererBase {
 public:
  /// The window outlives the renderer, and is made before Initialise.
  RendererDX(const ChartScene& scene, const win32::ChartWindow& chart);

  void Initialise() override;
  void Release() override;
  void Render() override;
  void Update() override { drawing_.Update(); }
  void Rebuild() override;
  void Relayout() override;
  void MouseMoved(std::int32_t x, std::int32_t y) override { drawing_.MouseMoved(x, y); }
  bool IsAnimating() override { return drawing_.IsAnimating(); }

  /// What Render does with the result of a frame: a target that was lost with the device is made anew, the
  /// next frame shows the chart again. Any other result is ignored.
  void AfterDraw(HRESULT result);

 private:
  void MakeGrid();

  const win32::ChartWindow& chart_;
  win32::D2DCanvas canvas_;
  ChartDrawing drawing_;
  // The grid of the first lane at the last Relayout. It is kept and not drawn: lanes glide, so each frame
  // builds its own.
  win32::ComPtr<ID2D1PathGeometry> gridGeometry_;
  std::uint64_t frameCount_ = 0;
};

}  // namespace UX
