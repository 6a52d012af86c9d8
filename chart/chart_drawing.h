#pragma once

// What a frame of the chart shows, in which order, with every size and colour. Drawn on any canvas; a
// renderer brings the canvas, clears it and shows it. User interface thread.

#include <cstdint>

#include "chart/canvas.h"
#include "chart/cursor_follower.h"
#include "chart/cursor_labels.h"
#include "chart/demo_cursor.h"
#include "chart/lane_drawing.h"
#include "chart/light_strip.h"
#include "chart/renderer_base.h"
#include "chart/step_popups.h"

namespace UX {

class ChartDrawing {
 public:
  /// What the scene refers to outlives the drawing.
  explicit ChartDrawing(const ChartScene& scene);

  /// Sets brushes and fonts and makes all labels: before the first frame on a canvas, and when texts, colours
  /// or sizes may have changed.
  void Rebuild(Canvas& canvas);
  /// The view has changed: makes the labels of the axes anew.
  void Relayout(Canvas& canvas);
  /// A frame, on a canvas that is white. Any document, view and size is drawn without fault. Allocates
  /// nothing once its figures have grown to what they need.
  void Draw(Canvas& canvas);

  // These do what RendererBase tells of the operations with their names.
  void Update();
  void MouseMoved(std::int32_t x, std::int32_t y);
  bool IsAnimating();

 private:
  const ChartScene scene_;
  LaneDrawing lanes_;
  LightStrip strip_;
  CursorFollower follower_;
  CursorLabels cursorLabels_;
  StepPopups popups_;
  DemoCursor demoCursor_;
};

}  // namespace UX
