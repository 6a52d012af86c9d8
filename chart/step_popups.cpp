#include "chart/step_popups.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "chart/heading.h"
#include "chart/popup_place.h"
#include "chart/scene_queries.h"
#include "chart/step_marker.h"
#include "common/truncate.h"
#include "program/channel_edit.h"

namespace UX {

namespace {

using bumper_base::BumperCurve;
using TCBase::Program::Step;
using TCBase::Program::StepSelection;

constexpr float kHoldSeconds = 1.7F;
constexpr float kFadeInSeconds = 0.3F;
constexpr float kFadeOutSeconds = 0.2F;
constexpr float kTravelSeconds = 0.1F;
constexpr float kNoticeable = 0.1F;
constexpr double kAnimatedSeconds = 1.0;

constexpr std::int32_t kTextRoom = 3;  // that the box has beyond its text
constexpr std::int32_t kBorder = 3;    // of the balloon, around the box
constexpr float kBalloonRadius = 5.0F;
constexpr float kBalloonLine = 2.0F;
constexpr float kLeaderLine = 1.0F;
constexpr float kTwoPi = 6.2831853F;

Point CenterOf(const Rect& box) {
  return {static_cast<float>(box.x) + static_cast<float>(box.width) / 2.0F,
          static_cast<float>(box.y) + static_cast<float>(box.height) / 2.0F};
}

// Everything keeps its place in relation to `center`.
Transform ScaledAbout(Point center, float scale, Point origin = {}) {
  const auto place = [scale](float c, float o) { return c * (1.0F - scale) + o * scale; };
  return {scale, {place(center.x, origin.x), place(center.y, origin.y)}};
}

// Draws a line from the rim of the step's marker to the centre of the balloon.
void DrawLeader(Canvas& canvas, Point marker, float markerRadius, Point center) {
  const Point rim = Along(marker, AngleTo(marker, center, kTwoPi), markerRadius);
  canvas.Stroke(Line{rim, center}, Brush::Gray, kLeaderLine);
}

// A balloon about the text that was laid out last, whose left top is `box`'s.
void DrawBalloon(Canvas& canvas, const Rect& box, Point center, float scale) {
  const Point text{static_cast<float>(box.x), static_cast<float>(box.y)};
  const RoundedRectangle balloon{
      {text.x - kBorder, text.y - kBorder, static_cast<float>(box.width + 2 * kBorder),
       static_cast<float>(box.height + 2 * kBorder)},
      kBalloonRadius};
  canvas.SetTransform(ScaledAbout(center, scale));
  canvas.Fill(balloon, Brush::White);
  canvas.Stroke(balloon, Brush::Black, kBalloonLine);
  canvas.SetTransform(ScaledAbout(center, scale, text));
  canvas.DrawLayout(Brush::Black);
  canvas.SetTransform(kIdentity);
}

}  // namespace

StepPopup::StepPopup(std::uint32_t id, Point start, const double& now)
    : stepId(id), size(0.0F, 1.0F, 0.0F, now), position(start), travel(bumper_base::FrameTimer(now)) {
  size.holdTime = kHoldSeconds;
  size.fadeInTime = kFadeInSeconds;
  size.fadeOutTime = kFadeOutSeconds;
}

Point StepPopup::PresentPoint() {
  return Along(position, heading, travel.Value());
}

void StepPopup::SendTo(Point goal) {
  position = PresentPoint();
  const float distance = DistanceBetween(position, goal);
  const float speed = distance > 0.0F ? distance / kTravelSeconds : 10.0F;
  secondsPerPixel = static_cast<double>(1.0F / speed * 500.0F / 500.0F);
  travelCurve = BumperCurve::Linear;
  heading = HeadingTo(position, goal);
  travel.from = 0.0F;
  travel.to = travel.goal = distance;
  travel.duration = static_cast<float>(static_cast<double>(distance) * secondsPerPixel);
  travel.curve = travelCurve;
  travel.timer.Reset();
}

void StepPopup::StayShown() {
  auto& fader = size.fader;
  const float stay = size.holdTime + size.fadeOutTime;
  const auto* const stage = fader.FindActive();
  if (stage == &fader.fadeIn) return;
  if (stage == &fader.hold) {
    fader.Start(size.low, size.high, stay, 0.0F, size.fadeOutTime, 0.0F);
    return;
  }
  // It grows back from where it is, in a time in proportion to what is missing.
  const float reached = fader.Value();
  const float growTime = (1.0F - reached) * size.fadeInTime;
  fader.Start(reached, size.high, stay + growTime, growTime, size.fadeOutTime, 0.0F);
}

bool StepPopup::IsGrowingOrShrinking() {
  const auto* const stage = size.fader.FindActive();
  return stage == &size.fader.fadeIn || stage == &size.fader.fadeOut;
}

void StepPopup::NoteChange() {
  const float presentSize = size.Value();
  const auto [x, y] = PresentPoint();
  changed = std::fabs(presentSize - lastSize) >= kNoticeable || std::fabs(x - lastX) >= kNoticeable ||
            std::fabs(y - lastY) >= kNoticeable;
  lastSize = presentSize;
  lastX = x;
  lastY = y;
}

StepPopups::StepPopups(const ChartScene& scene) : scene_(scene), animationTimer_(scene.now) {
  // No popup has moved yet: a program that shows none may rest at once.
  animationTimer_.frozen = kAnimatedSeconds;
}

void StepPopups::Update() {
  std::erase_if(popups_, [](StepPopup& popup) { return popup.size.fader.IsFinished(); });
  bool moved = false;
  for (StepPopup& popup : popups_) {
    popup.NoteChange();
    // A quick loop sees so little change from one time to the next that none would be noticed, and the
    // balloon of an idle program would stay on the screen.
    moved = moved || popup.changed || popup.IsGrowingOrShrinking();
  }
  Touch(scene_.hoverStep);
  Touch(scene_.selection);
  if (moved) animationTimer_.Reset();
}

bool StepPopups::IsAnimating() {
  return animationTimer_.Now() < kAnimatedSeconds;
}

void StepPopups::Touch(const StepSelection& stepRef) {
  const Step* const step = SelectedStep(stepRef);
  if (step == nullptr) return;
  StepPopup* popup = Find(step->id);
  if (popup == nullptr) popup = &popups_.emplace_back(step->id, StartPoint(stepRef, *step), scene_.now);
  popup->StayShown();
}

// The popup of a selected step, too, begins at the height of the lane under the mouse, even if its own is
// another: it comes flying from where the user looks.
Point StepPopups::StartPoint(const StepSelection& stepRef, const Step& step) {
  const bool hovers = SelectedStep(scene_.hoverStep) != nullptr;
  const Rect lane = scene_.layout.LaneRect(hovers ? scene_.hoverStep.channel : stepRef.channel);
  const MarkerCenter center = GetMarkerCenter(lane, scene_.program, step);
  return {static_cast<float>(center.x), static_cast<float>(center.y)};
}

StepPopup* StepPopups::Find(std::uint32_t stepId) {
  const auto found = std::find_if(popups_.begin(), popups_.end(),
                                  [stepId](const StepPopup& popup) { return popup.stepId == stepId; });
  return found != popups_.end() ? &*found : nullptr;
}

void StepPopups::DrawPopups(Canvas& canvas, std::int32_t lane) {
  if (popups_.empty()) return;
  const Rect area = scene_.layout.LaneRect(lane);
  for (const Step& step : ChannelOfLane(scene_.program, lane)) {
    StepPopup* const popup = Find(step.id);
    if (popup != nullptr && popup->size.Value() > 0.0F) DrawPopup(canvas, *popup, step, area);
  }
}

void StepPopups::DrawPopup(Canvas& canvas, StepPopup& popup, const Step& step, const Rect& lane) {
  const Rect& client = scene_.layout.clientRect;
  const MarkerSize sizes = GetMarkerSize(scene_.layout);
  const TextSize text = canvas.LayOutText(TextFormat::Medium, ToChartLabel(step),
                                          {4.0F * sizes.plainDiameter, 3.0F * sizes.plainDiameter});
  Rect box{0, 0, TruncateToInt(text.width + kTextRoom), TruncateToInt(text.height + kTextRoom)};

  const MarkerCenter anchor = GetMarkerCenter(lane, scene_.program, step);
  const Rect allowed = scene_.layout.LaneStrip();
  const Point place = CenterOf(FindPopupPlace(allowed, anchor.x, anchor.y, box.width, box.height,
                                              client.height / 48, HoveredMarker()));
  const Point present = popup.PresentPoint();
  popup.SendTo(place);

  box.x = TruncateToInt(present.x - static_cast<float>(box.width) / 2.0F);
  box.y = TruncateToInt(present.y - static_cast<float>(box.height) / 2.0F);
  const Point center = CenterOf(box);
  DrawLeader(canvas, {static_cast<float>(anchor.x), static_cast<float>(anchor.y)}, sizes.plainRadius, center);
  DrawBalloon(canvas, box, center, popup.size.Value());
  canvas.SetOpacity(Brush::White, 1.0F);
  canvas.SetOpacity(Brush::Black, 1.0F);
}

Rect StepPopups::HoveredMarker() {
  const Step* const step = SelectedStep(scene_.hoverStep);
  if (step == nullptr) return {};
  const Rect lane = scene_.layout.LaneRect(scene_.hoverStep.channel);
  const MarkerCenter center = GetMarkerCenter(lane, scene_.program, *step);
  const std::int32_t side = TruncateToInt(GetMarkerSize(scene_.layout).selectedDiameter);
  return {center.x - side / 2, center.y - side / 2, side, side};
}

}  // namespace UX
