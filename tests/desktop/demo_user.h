#pragma once

// What a user does to a demo on the real window, and sees of it.

#include <string>

#include "program/program.h"
#include "tests/support/user.h"

namespace desktop {

/// The demo's label says `text`, now or before patience ends.
bool AwaitDemoStatus(User& user, const std::string& text);

/// Clicks on the chart at a second of the day, or up to a pixel beside it.
void SeekTo(User& user, int second);

/// The second of the day that the read-outs show; -1 while they show none.
int ShownSecond(User& user);

/// The read-outs come to show `second`, or a pixel or two beside it, and agree with each other by the mode's
/// curves. False if they do not before patience ends.
bool AwaitSecond(User& user, const TCBase::Program::Mode& mode, int second);

}  // namespace desktop
