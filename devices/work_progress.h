#pragma once

// How far the work on controllers has come, for those who show it at a glance: a task bar, a launcher.

#include <atomic>
#include <cstdint>

#include "devices/operation_observer.h"

namespace TCBase {

/// The work at one moment.
struct WorkStatus {
  enum Kind {
    Rest,        // nobody works
    Unmeasured,  // somebody does, and cannot tell how far it is
    Measured,    // `percent` of it is done
  };

  Kind kind = Rest;
  int percent = 0;

  friend bool operator==(const WorkStatus&, const WorkStatus&) = default;
};

/// Follows one piece of work at a time: an upload or a scan from WorkBegins to WorkEnds, a demo as it plays.
class WorkProgress final : public OperationObserver {
 public:
  void WorkBegins(int frames) override;
  void WorkEnds() override { working_ = false; }
  void FrameSent() override { ++sent_; }
  void DemoAt(std::int32_t second) override { demoSecond_ = second; }
  void DemoEnded() override { demoSecond_ = kNoDemo; }

  /// Any thread.
  WorkStatus Status() const;

 private:
  static constexpr std::int32_t kNoDemo = -1;

  std::atomic<bool> working_ = false;
  std::atomic<int> frames_ = 0;  // of the work in hand; 0 if nobody can tell
  std::atomic<int> sent_ = 0;
  std::atomic<std::int32_t> demoSecond_ = kNoDemo;
};

}  // namespace TCBase
