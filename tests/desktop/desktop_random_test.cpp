// A random user in front of the window under Wine.

#include <gtest/gtest.h>

#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/random_run.h"
#include "tests/support/random_user.h"
#include "tests/support/run_length.h"
#include "tests/support/seen_truths.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr std::size_t kDeedsOfALife = 100;

std::string Live(const Deeds& deeds, std::vector<std::string>& remarks) {
  const desktop::FirstDay firstDay;
  const TemporaryFolder files;
  desktop::DesktopUser user;
  // With its drive, as the file dialogs tell paths.
  const std::filesystem::path folder = std::filesystem::absolute(files.path());
  const std::filesystem::path source = std::filesystem::absolute(LUMARINE_SOURCE_DIR);
  RandomUser random(user, {folder, source / "examples" / "reef-day.xml", true}, WindowDeeds(user));
  return LiveOnAWindow(user, random, folder, deeds, remarks);
}

TEST(RandomUserTest, WhateverHeDoesTheWindowShowsWhatIsSo) {
  RandomRun run;
  {
    desktop::DesktopUser nobody;
    run.habits = RandomUser(nobody, {}, WindowDeeds(nobody)).GetHabits();
  }
  run.command = "GTEST_FILTER='RandomUserTest.*' ctest --preset windows -R desktop_tests -V";
  run.mostTries = 30;
  run.live = Live;
  RunRandomly(run, Rounds(20, 5'000), kDeedsOfALife);
}

}  // namespace
