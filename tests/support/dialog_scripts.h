#pragma once

// The dialogs, filled by hand, for scripts.h. What they bring about is read back from the files that the
// program writes and from what it shows.

#include "tests/support/scripts.h"

namespace scripts {

/// Names and descriptions of modes, in any script and of any length.
void AddAndEditModes(User& user, const Folders& folders);
void NameAChannelAndTypeItsSteps(User& user, const Folders& folders);
void TypeADemoSpeed(User& user, const Folders& folders);
void PasteLettersIntoASpeed(User& user, const Folders& folders);
void SetTheEmulatorsTime(User& user, const Folders& folders);
void LookAtAbout(User& user, const Folders& folders);
void PackACheckUp(User& user, const Folders& folders);
/// What is told of the lamps is shown at once, and again the next time.
void TellOfTheLamps(User& user, const Folders& folders);
void RenameDevicesInTheNetworkOnly(User& user, const Folders& folders);
/// Into each field that takes text.
void PasteTenMegabytes(User& user, const Folders& folders);

}  // namespace scripts
