#pragma once

// What the program does to controllers: set their clocks, clear their memory, upload a program, play a day on
// them as a live demo. Each operation makes its own device, connects it, reports through the status log and
// destroys the device. Operations block; the window and the command line run them as jobs of a Worker.

#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include "common/date_time.h"
#include "devices/controller_models.h"
#include "devices/device_base.h"
#include "devices/device_info.h"
#include "devices/operation_observer.h"
#include "program/demo_state.h"
#include "program/program.h"

namespace TCBase {

/// How an operation ended. The command line makes its exit status of it.
enum class OperationResult {
  Done,
  NotConnected,  // nobody at the other end
  Forbidden,     // the controller is there, and this user may not open it
  PortTaken,     // another program has the network port
  NoAnswer,      // a network controller gave no sign of itself
  Failed,        // the controller was reached, and not all that was sent to it is confirmed
  Cancelled,     // by a stop
};

/// What an operation works with besides its controller. Copied freely; what it refers to outlives the
/// operation.
struct OperationContext {
  DemoState& demo;  // a running demo is shown here; the command slot steers it, and stops all others
  std::stop_token stop = {};  // as CommandStop, but it stays: an operation that begins later hears it too
  OperationObserver& observer = NoObserver();
};

/// What is known behind an operation. The lines in the status log tell less: there a step that was lost on
/// its way, or a frame of a demo, is not an error.
struct OperationReport {
  explicit OperationReport(OperationResult ended = OperationResult::Done) : result(ended) {}

  OperationResult result;
  Exchange exchange;
  // These are filled in by an upload.
  std::vector<std::string> unconfirmedModes;  // refused, or with a packet unconfirmed; in the program's order
  bool endUnconfirmed = false;                // the packet behind the last mode, where there is one
};

/// Why what was to be done on a controller failed: PortTaken, NoAnswer or Failed.
OperationResult FailureOf(const DeviceInfo& info, const Exchange& exchange);

/// A device for `info`, not connected yet; any model that is not known is emulated. `observer` outlives it.
std::unique_ptr<DeviceBase> CreateDevice(const DeviceInfo& info, OperationObserver& observer = NoObserver());

/// Does `operation` on a controller that is connected for it, and fills in what the report tells of the
/// exchange. "Connect error" stands in the status log where that fails, and WarnOfRights has been called if
/// the result is Forbidden.
OperationReport WithDevice(
    const DeviceInfo& info, OperationObserver& observer,
    const std::function<OperationReport(DeviceBase& device, const ExchangeCount& count)>& operation);

/// Warns the user that a controller of `model` is there but may not be opened, and says what to do.
void WarnOfRights(const ControllerModel& model);

/// The steps of a mode as a controller keeps them: a TC421 those of every half hour, without jumps.
DeviceBase::Steps StepsFor(const DeviceInfo& info, const Program::Mode& mode);

/// The frames of an upload to all selected entries of `devices`, where none is lost.
int CountUploadFrames(const Program::ModeListView& program, const std::vector<DeviceInfo>& devices);

/// Sets the clock to `time`; the computer's clock is not read. The program is not read either.
OperationReport SyncTimeOperation(const DeviceInfo& info, const Program::ModeListView& program,
                                  const DateTime& time, const OperationContext& context);

/// Clears the controller's memory and waits the three seconds that it needs for it, which a stop does not cut
/// short. The program is not read.
OperationReport ClearAllOperation(const DeviceInfo& info, const Program::ModeListView& program,
                                  const OperationContext& context);

/// Stores all modes of `program`, to bank 0 and up. A mode that fails does not stop the next one; a stop ends
/// the upload after the mode in hand and stays in the command slot.
OperationReport UploadOperation(const DeviceInfo& info, const Program::ModeListView& program,
                                const OperationContext& context);

/// Tells the user when the last answer of the controller came in an upload that went well, which is in since
/// then. Empty after any other, and for a controller that never answers.
std::string LastReplyOf(const DeviceInfo& info, const OperationReport& upload);

/// Plays the current mode of `program` as a day of `seconds` seconds, steered by the command slot and shown
/// in `context.demo`. A stop stays in the command slot. A `seconds` of zero or less is a demo that ends at
/// once. Without a current mode there is nothing to play: Failed, and the controller is not contacted.
OperationReport DemoOperation(const DeviceInfo& info, const Program::ModeListView& program, int seconds,
                              const OperationContext& context);

/// Done on each selected entry of `devices`, in order, one after the other. Stops where a stop is found after
/// an entry, in the command slot or by `context.stop`. Answers Cancelled after a stop, else the first result
/// that was not Done.
OperationResult RunOnDevices(const std::function<OperationResult(const DeviceInfo&)>& operation,
                             const std::vector<DeviceInfo>& devices, const OperationContext& context);

/// Takes what is in the command slot. True if it asks to stop, or `context.stop` does; any other command is
/// lost.
bool TakeStop(const OperationContext& context);

}  // namespace TCBase
