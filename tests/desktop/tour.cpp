// Opens the desktop program for a newcomer: an example is loaded and the emulated controller listed.
//   desktop_tour EXAMPLE            and leaves it to the user until the window is closed
//   desktop_tour EXAMPLE PICTURE    uploads the example to the emulator, leaves a picture of the window and
//                                   the log beside it (PICTURE.log), and closes

#include <gtest/gtest.h>

#include <filesystem>

#include "app/numbers.h"
#include "common/files.h"
#include "program/settings.h"
#include "tests/desktop/desktop_driver.h"

namespace {

constexpr double kPatienceSeconds = 0.5;

/// What the program opens at its start, unless it has been used before and knows better.
void PutInPlace(const std::filesystem::path& example) {
  Settings settings(DocumentPath(Settings::fileName));
  if (!settings.GetValue("last_open_file").empty()) return;
  settings.SetValue("last_open_file", Utf8FromPath(std::filesystem::absolute(example)));
  settings.Save();
}

bool UploadAndLeavePicture(User& user, std::filesystem::path picture) {
  if (!user.Choose(app::command::kUploadProgram)) return false;
  if (!user.WaitForLog("Finished configuring device")) return false;
  user.Wait(kPatienceSeconds);
  const bool taken = user.TakePicture(picture);
  const bool logged = WriteFileBytes(picture += ".log", user.Log());
  user.Close();
  return taken && logged;
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 2) return 2;
  PutInPlace(PathFromUtf8(arguments[1]));
  desktop::DesktopUser user;
  user.Start();
  if (!user.Choose(app::command::kAddEmulator)) return 1;
  if (count > 2) return UploadAndLeavePicture(user, PathFromUtf8(arguments[2])) ? 0 : 1;
  while (user.IsRunning()) user.Wait(kPatienceSeconds);
  return 0;
}
