#pragma once

// A plain, still picture of the chart over GDI+: lanes in their channels' colours, without areas, popups or
// crosshair. Built beside the renderer that draws the program's chart, and never asked for a frame there.

#include <cstdint>

#include "chart/renderer_base.h"
#include "platform/win32/chart_window.h"
#include "platform/win32/grid_cache.h"

namespace win32 {
class GdiplusGraphics;
}

namespace UX {

/// Differs from the active renderer's picture in more than looks: see DrawCurve. Draws between the start and
/// the end of GDI+; the kept grids must be dropped (Rebuild) before that end. One unit of the layout is one
/// pixel.
class RendererGDI final : public RendererBase {
 public:
  /// The chart's window outlives the renderer.
  RendererGDI(const ChartScene& scene, const win32::ChartWindow& chart)
      : RendererBase(scene), chart_(chart) {}

  void Initialise() override {}
  void Release() override {}
  /// Answers a paint event: only what the window has been asked to paint anew is changed. Any document, view
  /// and size is drawn without fault.
  void Render() override;
  void Update() override {}
  /// Drops the grids that are kept: after a change of size or of colours.
  void Rebuild() override;
  void Relayout() override {}
  void MouseMoved(std::int32_t, std::int32_t) override {}
  bool IsAnimating() override { return false; }

 private:
  /// Seconds of the day.
  struct View {
    std::int32_t start;
    std::int32_t end;
  };

  void DrawLane(std::int32_t lane);
  const win32::GridBitmap& CachedGrid(const Rect& area, std::uint32_t color);
  static void DrawGrid(win32::GdiplusGraphics& graphics, const Rect& area, std::uint32_t color, View view);
  static void DrawGridLabels(win32::GdiplusGraphics& graphics, const Rect& area, View view);
  void FrameSelectedLane();
  void DrawChannels();
  void DrawChannelName(std::int32_t lane, const Rect& area);
  void DrawCurve(const TCBase::Program::Channel& channel, const Rect& area);
  void DrawSteps(const TCBase::Program::Channel& channel, const Rect& area);
  void DrawSelectedStep();
  void DrawTooltip(const TCBase::Program::Step& step, const Rect& area, std::int32_t x, std::int32_t y);
  void DrawDemoLine(std::int32_t position);

  View CurrentView() const { return {program.viewStart, program.viewEnd}; }
  static std::int32_t AcrossView(std::int32_t second, View view, std::int32_t left, std::int32_t width);

  const win32::ChartWindow& chart_;
  win32::GdiplusGraphics* graphics_ = nullptr;  // of the frame that is being drawn
  win32::GridCache gridCache_;
  HDC memoryDC_ = nullptr;  // of the frame that is being drawn
};

}  // namespace UX
