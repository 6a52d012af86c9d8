#pragma once

// Demos on the emulator, and leaving while the worker is in the middle of something, for scripts.h.

#include "tests/support/scripts.h"

namespace scripts {

void PauseSeekResumeAndStopADemo(User& user, const Folders& folders);
void LetADemoEndWithTheDay(User& user, const Folders& folders);
/// What is greyed meanwhile.
void LookAtTheMenusDuringADemo(User& user, const Folders& folders);

// Closing the window ends the program, whatever goes on.

void LeaveADemo(User& user, const Folders& folders);
void LeaveAPausedDemo(User& user, const Folders& folders);
void LeaveASecondDemo(User& user, const Folders& folders);
/// With a stop that comes after its end.
void LeaveADemoThatHasEnded(User& user, const Folders& folders);
void LeaveAnUpload(User& user, const Folders& folders);
void LeaveALongUpload(User& user, const Folders& folders);

}  // namespace scripts
