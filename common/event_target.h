#pragma once

// Whoever events are posted to: the main window, a page of a wizard, a recorder in a test.

#include <cstdint>

/// Receives application events. Implemented by the shells.
class EventTarget {
 public:
  virtual ~EventTarget() = default;

  /// Queues the event for the thread that owns the target and returns at once; events arrive in the order in
  /// which they were queued. Any thread. Where the window behind the target has gone, the event is lost.
  virtual void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) = 0;
};
