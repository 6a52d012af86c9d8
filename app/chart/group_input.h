#pragma once

// Selecting several steps on the chart, and dragging them together. ChartInput hands on to it what the mouse
// does to steps; undo, the log and painting stay there. User interface thread.

#include <cstdint>
#include <optional>
#include <vector>

#include "app/chart/chart_hit.h"
#include "app/chart/held_keys.h"
#include "chart/chart_layout.h"
#include "chart/chart_overlay.h"
#include "program/program.h"
#include "program/step_group.h"

namespace app {

/// All of it outlives the input.
struct GroupParts {
  TCBase::Program::ModeListView& program;
  TCBase::Program::StepSelection& selection;
  TCBase::Program::StepGroup& group;
  UX::ChartLayout& chartLayout;
  UX::ChartOverlay& overlay;
};

class GroupInput {
 public:
  explicit GroupInput(const GroupParts& parts) : parts_(parts) {}

  // Choosing.

  /// Whether the step is one of several that are selected.
  bool Holds(const StepPlace& place) const;
  /// Makes the step the selected one and adds it to those that are, or takes it from them. True if it is
  /// selected behind it. A step that stays of them becomes the selected one instead of one that went.
  bool Toggle(const StepPlace& place);
  /// All steps of the selected channel, or of the mode where these are selected already or no channel is.
  void SelectAll();

  // A frame that is drawn open on the chart.

  void BeginFrame(std::int32_t x, std::int32_t y);
  bool IsFraming() const { return parts_.overlay.frame.has_value(); }
  void DrawFrame(std::int32_t x, std::int32_t y);
  /// Adds the steps in sight whose markers' centres are in the frame to those that are selected.
  void EndFrame();

  // Dragging the selected steps, one or several.

  /// Keeps where they are; the mouse is at this point.
  void BeginDrag(std::int32_t x, std::int32_t y);
  void EndDrag() { drag_.reset(); }
  /// The point that the mouse counts as: with Shift held the step keeps its time or its percent, whichever
  /// the mouse has moved it away from by fewer pixels.
  struct Target {
    std::optional<std::int32_t> x;  // none: the time stays
    std::optional<std::int32_t> y;  // none: the percent stays
  };
  Target TargetOf(std::int32_t x, std::int32_t y, const HeldKeys& keys) const;
  /// Puts the selected step at a time and a value, and the others with it. The channels stay sorted. False if
  /// only one is selected, and nothing happened.
  bool DragTo(std::int32_t second, float value);
  // Where the selected step was when the drag began, which it has.
  std::int32_t OriginSecond() const;
  float OriginValue() const { return drag_->origin.value; }

 private:
  struct Drag {
    std::int32_t x;
    std::int32_t y;
    TCBase::Program::Step origin;
    TCBase::Program::StepMove move;
  };

  /// The group has these; if the selected step is none of them another one is.
  void SetGroup(std::vector<std::uint32_t> ids);
  void SelectStep(std::uint32_t id);

  const GroupParts parts_;
  Position frameStart_;
  std::optional<Drag> drag_;
};

}  // namespace app
