#include "devices/worker.h"

#include <utility>

#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "devices/device_list.h"
#include "devices/operations.h"

namespace TCBase {

namespace {
constexpr int kPassMilliseconds = 100;
}  // namespace

Worker::Worker(Discovery discovery) : listing(discovery == Discovery::AtOnce) {
  Watch(tc420Poll, ControllerModelOf(ModelTC420));
  Watch(tc421Poll, ControllerModelOf(ModelTC421USB));
  if (discovery == Discovery::AtOnce) {
    tc420Poll.MakeDue();
    tc421Poll.MakeDue();
  }
  thread = std::thread([this] { Run(); });
}

Worker::~Worker() {
  if (running) Shutdown();
}

void Worker::AddJob(Job job) {
  const std::lock_guard lock(jobMutex);
  jobs.push_back(std::move(job));
}

std::vector<DeviceInfo> Worker::GetDevices() const {
  const std::lock_guard lock(deviceMutex);
  return devices;
}

std::vector<DeviceInfo> Worker::GetForbiddenDevices() const {
  const std::lock_guard lock(deviceMutex);
  return forbidden;
}

void Worker::ReplaceNetworkDevices(const std::vector<DeviceInfo>& found) {
  const std::lock_guard lock(deviceMutex);
  TCBase::ReplaceNetworkDevices(devices, found);
}

void Worker::Attach(EventTarget* target, std::uint32_t targetMessage) {
  {
    const std::lock_guard lock(deviceMutex);
    window = target;
    message = targetMessage;
  }
  listing = true;
}

void Worker::Shutdown() {
  if (!running.exchange(false)) return;
  // The order matters: a job that hears of the stop is the last one.
  stopping.request_stop();
  thread.join();
  const std::lock_guard lock(jobMutex);
  jobs.clear();
}

void Worker::Run() {
  while (running) {
    if (const Job job = TakeJob()) job();
    PollUsb(tc420Poll, ControllerModelOf(ModelTC420));
    PollUsb(tc421Poll, ControllerModelOf(ModelTC421USB));
    platform::SleepMilliseconds(kPassMilliseconds);
  }
}

Worker::Job Worker::TakeJob() {
  const std::lock_guard lock(jobMutex);
  if (jobs.empty()) return {};
  Job job = std::move(jobs.front());
  jobs.pop_front();
  return job;
}

void Worker::Watch(UsbPoll& poll, const ControllerModel& model) {
  poll.onChange = [this, &model](bool connected) { SetConnected(model, connected); };
  poll.onForbidden = [this, &model](bool isForbidden) { SetForbidden(model, isForbidden); };
}

void Worker::SetConnected(const ControllerModel& model, bool connected) {
  if (!listing) return;
  LogStatus(
      Message(connected ? TextKey("{1} Device connected") : TextKey("{1} Device disconnected"), model.name));
  const std::lock_guard lock(deviceMutex);
  ReplaceDevices(devices, model.model, model.name, connected);
  if (window != nullptr) window->Post(message, 0, connected ? 1 : 0);
}

void Worker::SetForbidden(const ControllerModel& model, bool isForbidden) {
  if (!listing) return;
  if (isForbidden) WarnOfRights(model);
  const std::lock_guard lock(deviceMutex);
  ReplaceDevices(forbidden, model.model, model.name, isForbidden);
}

}  // namespace TCBase
