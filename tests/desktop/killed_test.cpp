// The real program, ended by force at a random moment of its user's work, and what its next start brings
// back.

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

#include "app/window/command.h"
#include "common/platform.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/files.h"
#include "tests/support/run_length.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr milliseconds kPromised{2000};  // until a change that has come to rest is kept

std::size_t CountSteps(const fs::path& file) {
  TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  EXPECT_TRUE(LoadProgram(file, program));
  return program.modes.at(0).channels[0].size();
}

struct Work {
  std::size_t added = 0;
  std::size_t rested = 0;  // of these, before the last change that had rested for as long as is promised
};

// In the first lane, each 40 pixels behind the last. The last pause ends by force.
Work AddSteps(desktop::DesktopUser& user, std::mt19937& random) {
  constexpr int kFirst = 60;
  constexpr int kApart = 40;
  constexpr int kHeight = 87;
  Work work;
  const auto click = [&user](int x) {
    user.MoveMouse(x, kHeight);
    user.HoldButton();
    user.ReleaseButton();
  };
  click(kFirst);  // selects the lane
  for (std::size_t left = random() % 5 + 1; left > 0; --left) {
    click(kFirst + kApart * static_cast<int>(++work.added));
    const milliseconds pause(random() % 3000);
    std::this_thread::sleep_for(pause);
    if (pause >= kPromised) work.rested = work.added;
  }
  return work;
}

TEST(KilledProgram, HasItsWorkAtTheNextStart) {
  const desktop::FirstDay firstDay;
  const TemporaryFolder folder;
  const fs::path original = fs::absolute(LUMARINE_SOURCE_DIR) / "examples" / "reef-day.xml";
  const fs::path file = folder / "tank.xml";
  const fs::path kept = *platform::StateFolder() / "recovery-1.xml";
  std::mt19937 random(2026);
  int broughtBack = 0;
  for (std::size_t round = 0; round < Rounds(3, 50); ++round) {
    SCOPED_TRACE(round);
    fs::copy_file(original, file, fs::copy_options::overwrite_existing);
    const std::size_t before = CountSteps(file);
    Work work;
    {
      desktop::DesktopUser user;
      user.StartWith({file});
      work = AddSteps(user, random);
    }
    EXPECT_EQ(BytesOf(file), BytesOf(original));
    desktop::DesktopUser user;
    const bool isKept = fs::exists(kept);
    EXPECT_TRUE(isKept || work.rested == 0) << "nothing was kept";
    if (isKept) user.WillAnswer(app::Answer::Yes);
    user.StartWith({file});
    ASSERT_TRUE(user.Choose(app::command::kSaveProgram));
    const std::size_t back = CountSteps(file) - before;
    EXPECT_GE(back, work.rested);
    EXPECT_LE(back, work.added);
    broughtBack += isKept ? 1 : 0;
    user.Close();
    EXPECT_FALSE(user.IsRunning());
    EXPECT_FALSE(fs::exists(kept));
  }
  EXPECT_GT(broughtBack, 0);
}

}  // namespace
