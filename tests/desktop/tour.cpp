// Opens the desktop program for a newcomer: an example is loaded and the emulated controller listed.
//   desktop_tour EXAMPLE            and leaves it to the user until the window is closed
//   desktop_tour EXAMPLE PICTURE    and does the main job by itself (tests/support/tour.h)

#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

#include "app/window/numbers.h"
#include "common/files.h"
#include "program/settings.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/support/tour.h"

namespace {

constexpr double kPatienceSeconds = 0.5;

// What the program opens at its start, unless it has been used before and the last file is still there.
void PutInPlace(const std::filesystem::path& example) {
  Settings settings(DocumentPath(Settings::fileName));
  const std::filesystem::path last = PathFromUtf8(settings.GetValue("last_open_file"));
  std::error_code ignored;
  if (std::filesystem::exists(last, ignored)) return;
  settings.SetValue("last_open_file", Utf8FromPath(std::filesystem::absolute(example)));
  settings.Save();
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
