#pragma once

// What the user interface queues at the worker. Each job carries its own copies of the list and the program
// as they were at the moment of the command, and of the context.

#include <cstdint>
#include <memory>
#include <vector>

#include "common/date_time.h"
#include "common/event_target.h"
#include "devices/device_info.h"
#include "devices/operations.h"
#include "devices/worker.h"
#include "program/program.h"

namespace TCBase {

Worker::Job TimeSyncJob(std::vector<DeviceInfo> devices, Program::ModeListView program, const DateTime& time,
                        const OperationContext& context);
/// Ends with a warning for each controller that has not confirmed all modes.
Worker::Job UploadJob(std::vector<DeviceInfo> devices, Program::ModeListView program,
                      const OperationContext& context);
Worker::Job ClearJob(std::vector<DeviceInfo> devices, Program::ModeListView program,
                     const OperationContext& context);
Worker::Job DemoJob(std::vector<DeviceInfo> devices, Program::ModeListView program, int seconds,
                    const OperationContext& context);

/// Looks for controllers on the network (scan.h) and hands them to `worker`, which is to run the job. Then
/// `message` is posted to `window`, which lives for as long as the job does. `observer` outlives it.
Worker::Job ScanJob(Worker& worker, std::shared_ptr<EventTarget> window, std::uint32_t message,
                    OperationObserver& observer = NoObserver());

}  // namespace TCBase
