// The tests of the Qt window: the windows in the main thread, the user in another.

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>

#include "tests/qt_desktop/gui_thread.h"

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  // A screen on which the window can be larger than it comes up.
  setenv("QT_QPA_PLATFORM", "offscreen:configfile=" LUMARINE_SOURCE_DIR "/tests/qt_desktop/screen.json", 0);
  setenv("LC_ALL", "C.UTF-8", 1);
  QApplication application(count, arguments);
  return qt_desktop::ServeGui([] { return RUN_ALL_TESTS(); });
}
