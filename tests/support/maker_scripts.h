#pragma once

// What is made or changed in one go, for scripts.h: many steps, whole modes, whole programs; and what is
// shown beside the curves.

#include "tests/support/scripts.h"

namespace scripts {

/// Many steps changed in the dialog, given up once and kept once.
void ChangeManySteps(User& user, const Folders& folders);
/// A slow start of one's own mode, as docs/guide/nature.md tells it, and a day of sun.
void MakeDaysOfLight(User& user, const Folders& folders);
void StartFromATemplate(User& user, const Folders& folders);
/// The saved curves behind the curves, and the light of all channels above them.
void ShowWhatWasSavedAndTheLight(User& user, const Folders& folders);

}  // namespace scripts
