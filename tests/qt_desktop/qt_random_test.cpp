// A random user in front of the Qt window.

#include <gtest/gtest.h>

#include "tests/qt_desktop/qt_user.h"
#include "tests/support/random_run.h"
#include "tests/support/random_user.h"
#include "tests/support/run_length.h"
#include "tests/support/seen_truths.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr std::size_t kDeedsOfALife = 100;

std::string Live(const Deeds& deeds, std::vector<std::string>& remarks) {
  const std::filesystem::path source(LUMARINE_SOURCE_DIR);
  const TemporaryFolder documents;
  const TemporaryFolder files;
  qt_desktop::QtUser user({documents.path(), source / "resources"});
  RandomUser random(user, {files.path(), source / "examples" / "reef-day.xml", true}, WindowDeeds(user));
  return LiveOnAWindow(user, random, files.path(), deeds, remarks);
}

TEST(RandomUserTest, WhateverHeDoesTheQtWindowShowsWhatIsSo) {
  RandomRun run;
  {
    qt_desktop::QtUser nobody({{}, {}});
    run.habits = RandomUser(nobody, {}, WindowDeeds(nobody)).GetHabits();
  }
  run.command = "GTEST_FILTER='RandomUserTest.*' ctest --preset native-debug -R qt_desktop_tests -V";
  run.mostTries = 30;
  run.live = Live;
  RunRandomly(run, Rounds(40, 20'000), kDeedsOfALife);
}

}  // namespace
