// Opens the desktop program for a newcomer: an example is loaded and the emulated controller listed.
//   desktop_tour EXAMPLE            and leaves it to the user until the window is closed
//   desktop_tour EXAMPLE PICTURE    adds a step with the mouse, uploads to the emulator, has a demo go on
//                                   from noon, leaves a picture of the window then and the log beside it
//                                   (PICTURE.log), and closes

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <system_error>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/files.h"
#include "program/settings.h"
#include "tests/desktop/desktop_driver.h"

namespace {

constexpr double kPatienceSeconds = 0.5;
constexpr double kDemoSeconds = 2.0;
constexpr int kLane = 0;

// What the program opens at its start, unless it has been used before and the last file is still there.
void PutInPlace(const std::filesystem::path& example) {
  Settings settings(DocumentPath(Settings::fileName));
  const std::filesystem::path last = PathFromUtf8(settings.GetValue("last_open_file"));
  std::error_code ignored;
  if (std::filesystem::exists(last, ignored)) return;
  settings.SetValue("last_open_file", Utf8FromPath(std::filesystem::absolute(example)));
  settings.Save();
}

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

bool ShowTheMainJob(User& user, std::filesystem::path picture) {
  if (!DesignADay(user) || !UploadIt(user) || !PlayIt(user, picture)) return false;
  user.Wait(kPatienceSeconds);
  const bool logged = WriteFileBytes(picture += ".log", user.Log());
  user.WillAnswer(app::Answer::No);  // the example stays as it is
  user.Close();
  return logged;
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 2) return 2;
  PutInPlace(PathFromUtf8(arguments[1]));
  desktop::DesktopUser user;
  user.Start();
  if (!user.Choose(app::command::kAddEmulator)) return 1;
  if (count > 2) return ShowTheMainJob(user, PathFromUtf8(arguments[2])) ? 0 : 1;
  while (user.IsRunning()) user.Wait(kPatienceSeconds);
  return 0;
}
