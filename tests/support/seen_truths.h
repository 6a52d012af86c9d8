#pragma once

// What is true of the program in every shell whatever its user does, as far as one can see from outside of
// it.

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/deeds.h"
#include "tests/support/random_user.h"

/// Does all that on a window, whose program does not run yet, and looks at what it shows: lists, title and
/// step table for each deed, menus and what a saved file holds for some. `folder` is the test's own. What was
/// wrong, or nothing.
std::string LiveOnAWindow(User& user, RandomUser& random, const std::filesystem::path& folder,
                          const Deeds& deeds, std::vector<std::string>& remarks);
