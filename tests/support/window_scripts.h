#pragma once

// What a person does that only a real window can show: its controls, keys and mouse as the platform carries
// them out, and its picture. Each works on any WindowUser, as those of scripts.h do on any User.

#include <span>
#include <vector>

#include "tests/support/scripts.h"
#include "tests/support/window_user.h"

namespace scripts {

struct WindowScript {
  const char* name;
  /// Begins without settings and with the program not running.
  void (*run)(WindowUser& user, const Folders& folders);
};

/// All of them; each stands for itself.
std::vector<WindowScript> OfWindows();

}  // namespace scripts
