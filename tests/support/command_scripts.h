#pragma once

// The commands of the menus and keys, one after the other, for scripts.h.

#include "tests/support/scripts.h"

namespace scripts {

/// What changes the program, undone again each time.
void EditByMenu(User& user, const Folders& folders);
/// The keys that move the view.
void MoveTheViewByKeys(User& user, const Folders& folders);
/// Programs and the files of other tools.
void FilesByMenu(User& user, const Folders& folders);
/// What a controller is told, and the demo.
void DevicesByMenu(User& user, const Folders& folders);

}  // namespace scripts
