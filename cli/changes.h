#pragma once

// The changes that the edit command can make to a mode.

#include <cstdint>
#include <functional>
#include <string>

#include "cli/session.h"
#include "cli/text.h"
#include "program/program.h"

namespace cli {

/// A change of the document's current mode. Anything but Success has been explained, and the document is then
/// not to be written. The factories below take what has been checked: channels from 0 to 4, numbers in range.
using Change = std::function<ExitStatus(const Session&, TCBase::Program::ModeListView&)>;

ExitStatus Optimize(const Session& session, TCBase::Program::ModeListView& document);
ExitStatus OptimizeTC421(const Session& session, TCBase::Program::ModeListView& document);
ExitStatus Remove(const Session& session, TCBase::Program::ModeListView& document);

Change Align(int minutes);
/// "start" or "end".
Change AddEndpoint(const std::string& end);
/// The value is a file with a text of steps, UTF-8, with any kind of line end.
Change ReplaceSteps(const ChannelValue& argument);
Change Scale(std::int32_t channel, float percent);
Change Clear(std::int32_t channel);
/// The value is "up" or "down".
Change Move(const ChannelValue& argument);
Change Rename(const std::string& name);

}  // namespace cli
