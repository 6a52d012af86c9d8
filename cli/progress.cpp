#include "cli/progress.h"

#include <algorithm>
#include <cstdio>

#include "devices/operations.h"
#include "program/time_of_day.h"

namespace cli {

namespace {
constexpr int kCells = 30;
}

ProgressLine MeasuredProgress(double part, const std::string& label) {
  const int percent = static_cast<int>(std::clamp(part, 0.0, 1.0) * 100.0);
  std::string bar(kCells, ' ');
  std::fill_n(bar.begin(), percent * kCells / 100, '#');
  char text[64];
  std::snprintf(text, sizeof text, "[%s] %3d %% ", bar.c_str(), percent);
  return {text + label, percent};
}

ProgressLine UnmeasuredProgress(int turn) {
  constexpr int kSign = 3;
  constexpr int kWay = kCells - kSign;
  const int along = turn % (2 * kWay);
  std::string bar(kCells, ' ');
  std::fill_n(bar.begin() + (along <= kWay ? along : 2 * kWay - along), kSign, '#');
  return {'[' + bar + ']', std::nullopt};
}

ProgressLine DemoProgress::Line() const {
  const std::int32_t second = second_;
  if (second == kNoDemo) return {};
  return MeasuredProgress(static_cast<double>(second) / TCBase::Program::kSecondsPerDay,
                          TimeText(TCBase::Program::TimeOfDayAt(second)));
}

UploadProgress::UploadProgress(const TCBase::Program::ModeListView& document,
                               const std::vector<TCBase::DeviceInfo>& controllers)
    : total_(CountUploadFrames(document, controllers)) {}

ProgressLine UploadProgress::Line() const {
  // A bad network has frames sent again, so that more may leave than the upload has.
  const int sent = std::min<int>(sent_, total_);
  if (sent == 0) return {};
  return MeasuredProgress(static_cast<double>(sent) / total_,
                          "frame " + std::to_string(sent) + " of " + std::to_string(total_));
}

}  // namespace cli
