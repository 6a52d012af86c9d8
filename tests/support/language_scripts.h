#pragma once

// The scripts of scripts.h that are about languages.

#include "tests/support/scripts.h"

namespace scripts {

/// German from the menu, over a restart, and back to English.
void SpeakGerman(User& user, const Folders& folders);
/// A translator's round: exported, changed, tried out, a slip in the file, and gone at the next start.
void TryATranslation(User& user, const Folders& folders);

}  // namespace scripts
