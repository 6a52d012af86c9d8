#pragma once

// What the window's controls show and do, for scripts.h.

#include "tests/support/scripts.h"

namespace scripts {

/// By a click in their list.
void ChangeTheMode(User& user, const Folders& folders);
/// Whichever control has the focus.
void ZoomByKeysFromAnywhere(User& user, const Folders& folders);
/// Until it is emptied.
void FillTheLog(User& user, const Folders& folders);
/// The box over the window that tells of them.
void ReadTheKnownIssues(User& user, const Folders& folders);
/// By its dialog.
void CancelALoad(User& user, const Folders& folders);

}  // namespace scripts
