#pragma once

// What the program does to controllers: set their clocks, clear their memory, upload a program, play a day on
// them as a live demo. Each operation makes its own device, connects it, reports through the status log and
// destroys the device. They block, and run on the worker thread or, in the command line, on the only one.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/date_time.h"
#include "devices/device_base.h"
#include "devices/device_info.h"
#include "program/program.h"

namespace TCBase {

/// How an operation ended. The command line makes its exit status of it.
enum class OperationResult {
  Done,
  NotConnected,  // nobody at the other end
  Failed,        // the controller was reached, and not all that was sent to it is confirmed
  Cancelled,     // by CommandStop
};

/// What is known behind an operation. The lines in the status log tell less: there a step that was lost on
/// its way, or a frame of a demo, is not an error.
struct OperationReport {
  explicit OperationReport(OperationResult ended = OperationResult::Done) : result(ended) {}

  OperationResult result;
  Exchange exchange;
  // Of an upload.
  std::vector<std::string> unconfirmedModes;  // refused, or with a packet unconfirmed; in the program's order
  bool endUnconfirmed = false;                // the packet behind the last mode, where there is one
};

/// A device for `info`, not connected yet; any model that is not known is emulated.
std::unique_ptr<DeviceBase> CreateDevice(const DeviceInfo& info);

/// The same, connected; null, with "Connect error" in the status log, if that fails. `exchange` takes what is
/// known of the failure.
std::unique_ptr<DeviceBase> ConnectDevice(const DeviceInfo& info, Exchange* exchange = nullptr);

/// Whether a controller may play the first kManyModeSteps steps of a mode only, as some of its model do.
bool MayIgnoreManySteps(const DeviceInfo& info);

/// The steps of a mode as a controller keeps them: a TC421 those of every half hour, without jumps.
DeviceBase::Steps StepsFor(const DeviceInfo& info, const Program::Mode& mode);

/// Sets the clock to `time`; the computer's clock is not read. The program is not read either.
OperationReport SyncTimeOperation(const DeviceInfo& info, const Program::ModeListView& program,
                                  const DateTime& time);

/// Clears the controller's memory and waits the three seconds that it needs for it, which a stop does not cut
/// short. The program is not read.
OperationReport ClearAllOperation(const DeviceInfo& info, const Program::ModeListView& program);

/// Stores all modes of `program`, to bank 0 and up. A mode that fails does not stop the next one; a stop ends
/// the upload after the mode in hand and stays in the command slot.
OperationReport UploadOperation(const DeviceInfo& info, const Program::ModeListView& program);

/// Plays the current mode of `program` as a day of `seconds` seconds, steered by the command slot and shown
/// in demoState. A stop stays in the command slot. A `seconds` of zero or less is a demo that ends at once.
/// Without a current mode there is nothing to play: Failed, and the controller is not contacted.
OperationReport DemoOperation(const DeviceInfo& info, const Program::ModeListView& program, int seconds);

/// Done on each selected entry of `devices`, in order, one after the other. Stops where a stop is found in
/// the command slot after an entry. Answers Cancelled after a stop, else the first result that was not Done.
OperationResult RunOnDevices(const std::function<OperationResult(const DeviceInfo&)>& operation,
                             const std::vector<DeviceInfo>& devices);

}  // namespace TCBase
