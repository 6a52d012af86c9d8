// A demo on the real window and over real sockets, on the controller that a scan finds. Someone else has to
// see to it that there is one, and that it has heard what is printed here (tests/network/wizard_test.sh).

#include <gtest/gtest.h>

#include <iostream>

#include "app/window/numbers.h"
#include "program/builtin_modes.h"
#include "program/time_of_day.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/demo_words.h"
#include "tests/support/patience.h"

namespace {

using app::Control;
namespace command = app::command;

class NetworkDemo : public testing::Test {
 protected:
  void SetUp() override { user.Start(); }
  void TearDown() override { user.Close(); }

  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  const desktop::FirstDay firstDay;
  desktop::DesktopUser user;
};

TEST_F(NetworkDemo, StandsWhereTheUserClicks) {
  ASSERT_TRUE(user.Choose(command::kScanWifi));
  ASSERT_TRUE(WaitUntil([this] { return user.List(Control::DeviceList).size() == 1; }));
  ASSERT_TRUE(user.Choose(command::kSpeedSlow));
  user.Press(Control::PlayButton);
  ASSERT_TRUE(in_demo::AwaitStatus(user, "Playing"));
  user.Press(Control::PlayButton);
  ASSERT_TRUE(in_demo::AwaitStatus(user, "Paused"));
  for (const int hour : {9, 18}) {
    const int second = hour * TCBase::Program::kSecondsPerHour;
    in_demo::SeekTo(user, second);
    ASSERT_TRUE(in_demo::AwaitSecond(user, program.modes[0], second));
    std::cout << "shown " << user.Text(Control::PowerLabel) << std::endl;
  }
  user.Press(Control::StopButton);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
}

}  // namespace
