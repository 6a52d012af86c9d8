#pragma once

// How a controller on USB is noticed: every five seconds one of its model is opened and closed again. Also
// how one is noticed that this user may not open.

#include <functional>

#include "common/timer.h"
#include "devices/controller_models.h"

namespace TCBase {

inline constexpr double kUsbPollSeconds = 5.0;

/// What is known of one model, of which at most one is listed. Belongs to the thread that polls.
struct UsbPoll {
  timer_base::TimerFeatures<TimerCore_Counter> timer;  // since the end of the last poll
  bool connected = false;
  bool forbidden = false;  // it is there, and this user may not open it
  // Told of each change of these two, in this order; may be empty.
  std::function<void(bool)> onChange;
  std::function<void(bool)> onForbidden;

  /// Makes the next poll due at once.
  void MakeDue() { timer.Restart(kUsbPollSeconds); }
};

/// Looks for a controller of `model`, if five seconds have passed since it was last done. Blocks for as long
/// as opening takes, and warns the user if that was more than two seconds; and for half a second when it
/// finds one that this user may not open.
void PollUsb(UsbPoll& poll, const ControllerModel& model);

}  // namespace TCBase
