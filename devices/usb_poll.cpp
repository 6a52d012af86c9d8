#include "devices/usb_poll.h"

#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "common/truncate.h"
#include "devices/operations.h"

namespace TCBase {

namespace {

constexpr double kSlowConnectSeconds = 2.0;
constexpr double kMillisecondsPerSecond = 1000.0;
constexpr int kRightsMilliseconds = 500;

void WarnOfSlowConnect(double seconds) {
  LogStatus(Message(
      "Connecting to a device took {1} ms. This usually points to a USB communication error. Please try to "
      "disconnect and reconnect the USB device again.",
      TruncateToInt(static_cast<float>(seconds * kMillisecondsPerSecond))));
}

// The system sets the rights a moment after the controller has come. One that has just been found forbidden
// is looked at again.
bool IsForbidden(const DeviceBase& probe, bool before) {
  if (!probe.IsForbidden()) return false;
  if (before) return true;
  platform::SleepMilliseconds(kRightsMilliseconds);
  return probe.IsForbidden();
}

void Note(bool& known, bool now, const std::function<void(bool)>& onChange) {
  if (now == known) return;
  known = now;
  if (onChange) onChange(now);
}

}  // namespace

void PollUsb(UsbPoll& poll, const ControllerModel& model) {
  if (poll.timer.Now() < kUsbPollSeconds) return;
  const timer_base::TimerFeatures<TimerCore_Counter> opening;
  DeviceInfo info;
  info.model = model.model;
  const std::unique_ptr<DeviceBase> probe = CreateDevice(info);
  // Present means that it can be opened, and no more.
  const bool connected = probe->Connect();
  if (connected && opening.Now() > kSlowConnectSeconds) WarnOfSlowConnect(opening.Now());
  Note(poll.connected, connected, poll.onChange);
  Note(poll.forbidden, !connected && IsForbidden(*probe, poll.forbidden), poll.onForbidden);
  // A slow controller gets its five seconds of peace after the poll.
  poll.timer.Reset();
}

}  // namespace TCBase
