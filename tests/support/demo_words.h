#pragma once

// Words of scripts for a demo: what a user does to it, and sees of it.

#include <functional>
#include <string>

#include "program/program.h"
#include "tests/support/user.h"

namespace in_demo {

/// Lets time pass until something is so. False if it is not before patience ends.
bool Await(User& user, const std::function<bool()>& isSo);

/// The demo's label comes to say `text`. False if it does not before patience ends.
bool AwaitStatus(User& user, const std::string& text);

/// Clicks on the chart at a second of the day, or up to a pixel beside it.
void SeekTo(User& user, int second);

/// The second of the day that the read-outs show; -1 while they show none.
int ShownSecond(User& user);

/// The read-outs come to show `second`, or a pixel or two beside it, and agree with each other by the mode's
/// curves. False if they do not before patience ends.
bool AwaitSecond(User& user, const TCBase::Program::Mode& mode, int second);

}  // namespace in_demo
