#pragma once

// Controllers on the command line, and the running of an operation on them.

#include <functional>
#include <string>
#include <vector>

#include "cli/session.h"
#include "devices/device_info.h"
#include "devices/operations.h"

namespace cli {

struct DeviceArguments {
  std::vector<std::string> devices;  // as --device calls them, in the order given
  bool trace = false;
};

void DeclareDevices(CLI::App& app, DeviceArguments& arguments);
void DeclareTrace(CLI::App& app, DeviceArguments& arguments);

/// The controllers, in the order given.
std::vector<TCBase::DeviceInfo> DevicesOf(const DeviceArguments& arguments);

using Operation = std::function<TCBase::OperationResult(const TCBase::DeviceInfo&)>;
/// The line of progress at the moment; empty if there is none. Any thread.
using Progress = std::function<std::string()>;
/// Takes the texts of the device log, on the thread that logs them.
using LogListener = std::function<void(const std::string&)>;

/// Runs the operation on each device, on the worker's thread, while this one watches over Ctrl+C and the
/// progress. The worst result counts: a controller that is not there is worse than one that failed or was
/// stopped. A network controller of which nothing was heard is not there, whatever the operation made of it.
ExitStatus ServeDevices(const Session& session, const DeviceArguments& arguments, const Operation& operation,
                        const Progress& progress = {}, const LogListener& listener = {});

}  // namespace cli
