#pragma once

// The thread on which all device work is done, so that the user interface never waits for a controller.

#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

#include "common/event_target.h"
#include "devices/device_info.h"
#include "devices/usb_poll.h"

namespace TCBase {

/// Tells when USB controllers begin to be looked for and listed.
enum class Discovery {
  OnceAttached,  // looked for from five seconds after the start, listed from Attach() on
  AtOnce,        // looked for in the first pass and listed; for a program that has neither window nor time
};

/// One thread that runs queued jobs one at a time, in the order queued, and between jobs polls for USB
/// controllers. It runs from construction to Shutdown().
class Worker {
 public:
  /// A job carries its own copies of what it works on. What it refers to instead must outlive it, and is
  /// either safe to use on two threads or left alone by the others until the job has ended.
  using Job = std::function<void()>;

  explicit Worker(Discovery discovery = Discovery::OnceAttached);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  /// Shuts down if that is still to be done.
  ~Worker();

  /// Queues a job. Any thread; nothing is ever rejected.
  void AddJob(Job job);

  /// A copy of the list of known controllers, sorted; `selected` has no meaning in it. Any thread.
  std::vector<DeviceInfo> GetDevices() const;

  /// The controllers that are plugged in but may not be opened by this user, in the same form. Any thread.
  std::vector<DeviceInfo> GetForbiddenDevices() const;

  /// A scan of the network found these: they take the place of all network controllers in the list. Any
  /// thread.
  void ReplaceNetworkDevices(const std::vector<DeviceInfo>& found);

  /// From now on the list is kept and the user told when a USB controller comes or goes, and `target`, unless
  /// it is null, is posted `message` with 0 and whether it came. What came before is noted, but not listed.
  /// The user is warned of one that may not be opened once for each time that it is plugged in.
  /// The target must outlive the worker or the next Attach. Any thread.
  void Attach(EventTarget* target, std::uint32_t message);

  /// Asks jobs to stop once the worker shuts down. Any thread.
  std::stop_token StopToken() const { return stopping.get_token(); }

  /// Asks the job in hand to stop, by StopToken(), waits for it to end and for the thread with it, and
  /// destroys queued jobs unrun. A second call does nothing. Not on the worker thread.
  void Shutdown();

 private:
  void Run();
  Job TakeJob();
  // Worker thread.
  void Watch(UsbPoll& poll, const ControllerModel& model);
  void SetConnected(const ControllerModel& model, bool connected);
  void SetForbidden(const ControllerModel& model, bool isForbidden);

  std::atomic<bool> running{true};
  std::atomic<bool> listing;  // changes reach the list and the user

  std::stop_source stopping;

  std::mutex jobMutex;
  std::deque<Job> jobs;  // guarded by jobMutex

  // Worker thread only.
  UsbPoll tc420Poll;
  UsbPoll tc421Poll;

  mutable std::mutex deviceMutex;
  EventTarget* window = nullptr;  // guarded by deviceMutex, as are the next three
  std::uint32_t message = 0;
  std::vector<DeviceInfo> devices;
  std::vector<DeviceInfo> forbidden;

  std::thread thread;  // last: runs as soon as it is there
};

}  // namespace TCBase
