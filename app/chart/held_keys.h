#pragma once

namespace app {

/// What is held on the keyboard while the mouse does something.
struct HeldKeys {
  bool ctrl = false;
  bool shift = false;
};

}  // namespace app
