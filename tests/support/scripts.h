#pragma once

// What a person does in front of the program, written once for every shell: each script works on any User and
// fails the test that it runs in where the program does something else.

#include <filesystem>
#include <span>

#include "tests/support/user.h"

namespace scripts {

struct Folders {
  std::filesystem::path examples;   // the programs that come with this one
  std::filesystem::path documents;  // where the program keeps its settings and its log
  std::filesystem::path work;       // empty, for the script
  std::filesystem::path resources;  // with the translations that the program has
  std::filesystem::path picture =
      {};  // how the names of pictures begin that a script leaves, where there is a screen
};

struct Script {
  const char* name;
  /// Begins without settings and with the program not running.
  void (*run)(User& user, const Folders& folders);
};

/// All of them; each stands for itself.
std::span<const Script> All();

}  // namespace scripts
