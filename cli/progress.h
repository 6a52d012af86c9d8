#pragma once

// How far an upload or a demo has come, as one line for a terminal.

#include <atomic>
#include <string>
#include <vector>

#include "devices/device_info.h"
#include "program/program.h"

namespace cli {

/// "[##########          ]  50 % 12:00", `part` being from 0 to 1.
std::string ProgressText(double part, const std::string& label);

/// The demo that runs now; empty if none does. Any thread.
std::string DemoProgress();

/// An upload of one program to one or more controllers, told by the frames that leave.
class UploadProgress {
 public:
  UploadProgress(const TCBase::Program::ModeListView& document,
                 const std::vector<TCBase::DeviceInfo>& controllers);

  /// Takes the texts of the device log, on the thread that logs them.
  void Listen(const std::string& text);

  /// Empty before the first frame. Any thread.
  std::string Text() const;

 private:
  const int total_;
  std::atomic<int> sent_ = 0;
};

}  // namespace cli
