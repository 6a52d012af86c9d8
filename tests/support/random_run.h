#pragma once

// Lives of a random user (random_user.h), one seed each, and what becomes of one that fails: it is shortened
// and kept as a file, and the failure tells how to see it again.
//
//   LUMARINE_DEEDS=FILE    does what the file says, and nothing else
//   LUMARINE_SEED=N        begins with this seed; otherwise it is 1
//   LUMARINE_DEED_COUNT=N  does that many deeds in all
//   LUMARINE_TRIES=N       tries so often to do with fewer deeds, instead of a hundred times or so

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/deeds.h"

struct RandomRun {
  /// Does all that in a program that has just been started for the first time. What was wrong, or nothing;
  /// the remark of each deed that was begun goes to `remarks`.
  std::function<std::string(const Deeds& deeds, std::vector<std::string>& remarks)> live;
  Habits habits;
  /// How often it is tried to do with fewer deeds.
  std::size_t mostTries = 150;
  /// The command that runs this test, to be told with a failure.
  std::string command;
};

/// The deeds come from a file.
bool IsReplay();

/// Fails the test at the first life that fails.
void RunRandomly(const RandomRun& run, std::size_t deeds, std::size_t deedsOfALife);

/// The deed at hand, for those who want to tell of it when the process ends.
void NoteDeed(std::size_t place);
