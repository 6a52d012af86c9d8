#pragma once

// How a controller on USB is noticed: every five seconds one of its model is opened and closed again.

#include <functional>

#include "common/timer.h"
#include "devices/controller_models.h"

namespace TCBase {

inline constexpr double kUsbPollSeconds = 5.0;

/// What is known of one model, of which at most one is listed. Belongs to the thread that polls.
struct UsbPoll {
  timer_base::TimerFeatures<TimerCore_Counter> timer;  // since the end of the last poll
  bool connected = false;
  std::function<void(bool)> onChange;  // told of each change; may be empty

  /// Makes the next poll due at once.
  void MakeDue() { timer.Restart(kUsbPollSeconds); }
};

/// Looks for a controller of `model`, if five seconds have passed since it was last done. Blocks for as long
/// as opening takes, and warns the user if that was more than two seconds.
void PollUsb(UsbPoll& poll, const ControllerModel& model);

}  // namespace TCBase
