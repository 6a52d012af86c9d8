#include "tests/support/tour.h"

#include <cstdint>
#include <string>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/files.h"

namespace {

constexpr double kPatienceSeconds = 0.5;
constexpr double kDemoSeconds = 2.0;
constexpr int kLane = 0;

// Clicks where a time and a percentage are in the lane, enlarged or like the others. At rest: lanes have had
// the time to glide to their places.
void ClickLane(User& user, bool isEnlarged, int hour, float percent) {
  double now = 0.0;
  UX::ChartLayout layout{now};
  const app::Size client = user.ClientSize();
  layout.Update(client.width, client.height);
  if (isEnlarged) layout.FocusLane(kLane);
  for (auto& height : layout.laneHeights) height.from = height.to;
  const UX::Rect lane = layout.LaneRect(kLane);
  user.ClickChart(UX::TimeToX(lane, {}, std::int64_t{hour} * 3600), UX::PercentToY(lane, percent));
  user.Wait(kPatienceSeconds);
}

bool DesignADay(User& user) {
  ClickLane(user, false, 3, 50.0F);  // the first click selects the lane, which grows
  ClickLane(user, true, 14, 95.0F);  // the next one adds a step
  return user.Log().find("Added new step") != std::string::npos;
}

bool UploadIt(User& user) {
  return user.Choose(app::command::kUploadProgram) && user.WaitForLog("Finished configuring device");
}

bool PlayIt(User& user, const std::filesystem::path& picture) {
  if (!user.Choose(app::command::kPlayDemo) || !user.WaitForLog("Demo started")) return false;
  user.Wait(kPatienceSeconds);
  ClickLane(user, true, 12, 50.0F);
  user.Wait(kDemoSeconds);
  const bool taken = user.TakePicture(picture);
  return user.Choose(app::command::kStopDemo) && user.WaitForLog("Demo finished") && taken;
}

bool KeepLog(User& user, std::filesystem::path picture) {
  user.Wait(kPatienceSeconds);
  return WriteFileBytes(picture += ".log", user.Log());
}

}  // namespace

bool ShowTheMainJob(User& user, const std::filesystem::path& picture) {
  if (!DesignADay(user) || !UploadIt(user) || !PlayIt(user, picture) || !KeepLog(user, picture)) return false;
  user.WillAnswer(app::Answer::No);  // the example stays as it is
  user.Close();
  return true;
}
