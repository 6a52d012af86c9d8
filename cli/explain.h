#pragma once

// What the user is told of an operation that did not go well, beyond its own lines in the log.

#include "cli/session.h"
#include "devices/device_info.h"
#include "devices/operations.h"

namespace cli {

/// Tells why an operation on `info` failed and what is not confirmed, and answers the status for it.
ExitStatus Explain(const Session& session, const TCBase::DeviceInfo& info,
                   const TCBase::OperationReport& report);

/// Tells what to do about a network controller that did not answer, or a port that is taken. False if there
/// was neither.
bool ExplainNetwork(const Session& session, const TCBase::DeviceInfo& info, TCBase::OperationResult result);

/// The line for a port that is taken.
void ExplainPort(const Session& session);

}  // namespace cli
