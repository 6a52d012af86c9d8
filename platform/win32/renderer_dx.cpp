#include "platform/win32/renderer_dx.h"

#include "chart/lane_drawing.h"
#include "platform/win32/scale.h"

namespace UX {

RendererDX::RendererDX(const ChartScene& scene, const win32::ChartWindow& chart)
    : RendererBase(scene), chart_(chart), drawing_(scene) {}

void RendererDX::Initialise() {
  canvas_.MakeFactories();
  Rebuild();
}

void RendererDX::Release() {
  canvas_.ReleaseFactories();
}

void RendererDX::Rebuild() {
  RECT client{};
  GetClientRect(chart_.Handle(), &client);
  if (client.right <= 0 || client.bottom <= 0) return;
  canvas_.MakeTarget(chart_.Handle(), win32::Scale(chart_.Handle()).dpi());
  MakeGrid();
  drawing_.Rebuild(canvas_);
}

void RendererDX::Relayout() {
  if (!canvas_.HasTarget()) return;
  MakeGrid();
  drawing_.Relayout(canvas_);
}

void RendererDX::Render() {
  if (canvas_.IsHidden()) return;
  canvas_.BeginFrame();
  drawing_.Draw(canvas_);
  ++frameCount_;
  AfterDraw(canvas_.EndFrame());
  // No paint event is to follow for what this frame has shown.
  ValidateRect(chart_.Handle(), nullptr);
}

void RendererDX::AfterDraw(HRESULT result) {
  if (result == static_cast<HRESULT>(D2DERR_RECREATE_TARGET)) Rebuild();
}

void RendererDX::MakeGrid() {
  const Rect lane = layout.LaneRect(0);
  Figure grid;
  BuildGrid(grid, lane.width, lane.height, program);
  gridGeometry_ = canvas_.MakeGeometry(grid);
}

}  // namespace UX
