#pragma once

// How far an upload or a demo has come, as one line for a terminal.

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "cli/status_lines.h"
#include "devices/device_info.h"
#include "devices/operation_observer.h"
#include "program/program.h"

namespace cli {

/// "[##########          ]  50 % 12:00", `part` being from 0 to 1.
ProgressLine MeasuredProgress(double part, const std::string& label);

/// "[          ###       ]" for work that nobody can measure, in which the sign goes to and fro: one place
/// further with each `turn` from 0 on.
ProgressLine UnmeasuredProgress(int turn);

/// A demo on one or more controllers.
class DemoProgress final : public TCBase::OperationObserver {
 public:
  void DemoAt(std::int32_t second) override { second_ = second; }
  void DemoEnded() override { second_ = kNoDemo; }

  /// Empty while no demo runs. Any thread.
  ProgressLine Line() const;

 private:
  static constexpr std::int32_t kNoDemo = -1;

  std::atomic<std::int32_t> second_ = kNoDemo;
};

/// An upload of one program to one or more controllers, told by the frames that leave.
class UploadProgress final : public TCBase::OperationObserver {
 public:
  UploadProgress(const TCBase::Program::ModeListView& document,
                 const std::vector<TCBase::DeviceInfo>& controllers);

  void FrameSent() override { ++sent_; }

  /// Empty before the first frame. Any thread.
  ProgressLine Line() const;

 private:
  const int total_;
  std::atomic<int> sent_ = 0;
};

}  // namespace cli
