#include "devices/jobs.h"

#include <utility>

#include "devices/operations.h"
#include "devices/scan.h"

namespace TCBase {

Worker::Job TimeSyncJob(std::vector<DeviceInfo> devices, Program::ModeListView program,
                        const DateTime& time) {
  return [devices = std::move(devices), program = std::move(program), time] {
    RunOnDevices([&](const DeviceInfo& info) { return SyncTimeOperation(info, program, time).result; },
                 devices);
  };
}

Worker::Job UploadJob(std::vector<DeviceInfo> devices, Program::ModeListView program) {
  return [devices = std::move(devices), program = std::move(program)] {
    RunOnDevices([&](const DeviceInfo& info) { return UploadOperation(info, program).result; }, devices);
  };
}

Worker::Job ClearJob(std::vector<DeviceInfo> devices, Program::ModeListView program) {
  return [devices = std::move(devices), program = std::move(program)] {
    RunOnDevices([&](const DeviceInfo& info) { return ClearAllOperation(info, program).result; }, devices);
  };
}

Worker::Job DemoJob(std::vector<DeviceInfo> devices, Program::ModeListView program, int seconds) {
  return [devices = std::move(devices), program = std::move(program), seconds] {
    RunOnDevices([&](const DeviceInfo& info) { return DemoOperation(info, program, seconds).result; },
                 devices);
  };
}

Worker::Job ScanJob(Worker& worker, std::shared_ptr<EventTarget> window, std::uint32_t message) {
  return [&worker, window = std::move(window), message] { Scan(worker, *window, message); };
}

}  // namespace TCBase
