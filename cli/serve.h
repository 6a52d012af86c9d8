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

using Operation =
    std::function<TCBase::OperationReport(const TCBase::DeviceInfo&, const TCBase::OperationContext&)>;
/// The line of progress at the moment; empty if there is none. Any thread.
using Progress = std::function<ProgressLine()>;
/// Does the work on a thread of its own, of which this one shows the progress, ten times a second. What the
/// work throws is thrown here. `progress` may be empty.
void WorkWithProgress(const Session& session, const Progress& progress, const std::function<void()>& work);

/// What is done to each controller.
struct Service {
  Operation operation;
  Progress progress = {};
  TCBase::OperationObserver& observer = TCBase::NoObserver();
  bool stopsBehindMode = false;  // a stop lets the mode in hand come to its end
};

/// Runs the operation on each device, on a thread of its own, while this one watches over Ctrl+C and the
/// progress. The worst result counts: a controller that is not there is worse than one that failed or was
/// stopped.
ExitStatus ServeDevices(const Session& session, const DeviceArguments& arguments, const Service& service);

}  // namespace cli
