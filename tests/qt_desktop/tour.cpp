// Shows a newcomer without a screen the desktop program: it does the main job by itself.
//   lumarine_tour EXAMPLE PICTURE     the work is described at ShowTheMainJob (tests/support/tour.h)

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>

#include "app/window/numbers.h"
#include "common/files.h"
#include "common/platform.h"
#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/qt_user.h"
#include "tests/support/tour.h"

namespace {

int ShowTour(const std::filesystem::path& example, const std::filesystem::path& picture) {
  const std::filesystem::path source(LUMARINE_SOURCE_DIR);
  qt_desktop::QtUser user({platform::DocumentsFolder().value_or("."), source / "resources"});
  user.StartWith({std::filesystem::absolute(example)});
  return user.Choose(app::command::kAddEmulator) && ShowTheMainJob(user, picture) ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count != 3) return 2;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(count, arguments);
  return qt_desktop::ServeGui(
      [arguments] { return ShowTour(PathFromUtf8(arguments[1]), PathFromUtf8(arguments[2])); });
}
