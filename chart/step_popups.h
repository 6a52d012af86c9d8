#pragma once

// The balloons that grow out of steps and tell their time and value: one for each step that is or was under
// the mouse or selected. A popup goes by its step's id, so it follows when the step is moved or sorted. User
// interface thread.

#include <cstdint>
#include <list>

#include "chart/bumper.h"
#include "chart/canvas.h"
#include "chart/figure.h"
#include "chart/renderer_base.h"

namespace UX {

struct StepPopup {
  /// `now` is the time of the present frame, see bumper.h.
  StepPopup(std::uint32_t id, Point start, const double& now);

  /// The centre of the balloon at this moment.
  Point PresentPoint();
  /// Sends the balloon to a point, from where it is; it arrives in a tenth of a second.
  void SendTo(Point goal);
  /// The step is hovered or selected: grows, or stays for another while.
  void StayShown();
  bool IsGrowingOrShrinking();
  /// Compares with the call before (see `changed`).
  void NoteChange();

  std::uint32_t stepId;
  bumper_base::BumperPulsedFader size;  // scale of the balloon, 0 to 1
  Point position;                       // where the run began
  float heading = 0.0F;                 // radians
  bumper_base::FrameBumper travel;      // pixels since
  double secondsPerPixel = 0.005;
  bumper_base::BumperCurve travelCurve = bumper_base::BumperCurve::EaseOut;
  bool changed = false;  // size or a coordinate was 0.1 or more from the one before
  // What these were at the last NoteChange().
  float lastSize = 0.0F;
  float lastX = 0.0F;
  float lastY = 0.0F;
};

class StepPopups {
 public:
  /// What the scene refers to outlives the popups.
  explicit StepPopups(const ChartScene& scene);

  /// Removes those that have faded, and keeps up those of the hovered and the selected step. Allocates for a
  /// new popup only.
  void Update();
  /// Whether any popup moved less than a second ago.
  bool IsAnimating();
  /// Draws the popups of a lane's steps and sends their balloons where they have room. Begins and ends with
  /// the identity for the canvas's transform; takes white as it is. Each popup leaves white and black opaque.
  void DrawPopups(Canvas& canvas, std::int32_t lane);

 private:
  void Touch(const TCBase::Program::StepSelection& stepRef);
  Point StartPoint(const TCBase::Program::StepSelection& stepRef, const TCBase::Program::Step& step);
  StepPopup* Find(std::uint32_t stepId);
  void DrawPopup(Canvas& canvas, StepPopup& popup, const TCBase::Program::Step& step, const Rect& lane);
  Rect HoveredMarker();

  const ChartScene scene_;
  std::list<StepPopup> popups_;
  timer_base::TimerFeatures<misc::TimerCore_MiscVal> animationTimer_;  // since a popup moved
};

}  // namespace UX
