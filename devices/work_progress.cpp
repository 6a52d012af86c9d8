#include "devices/work_progress.h"

#include <algorithm>

#include "program/time_of_day.h"

namespace TCBase {

namespace {

constexpr int kWhole = 100;

// Frames are sent again where some are lost, so that more may leave than were counted.
int PercentOf(std::int64_t part, std::int64_t whole) {
  return static_cast<int>(std::min(part, whole) * kWhole / whole);
}

}  // namespace

void WorkProgress::WorkBegins(int frames) {
  frames_ = frames;
  sent_ = 0;
  working_ = true;
}

WorkStatus WorkProgress::Status() const {
  if (const std::int32_t second = demoSecond_; second != kNoDemo)
    return {WorkStatus::Measured, PercentOf(second, Program::kSecondsPerDay)};
  if (!working_) return {};
  const int frames = frames_;
  if (frames == 0) return {WorkStatus::Unmeasured};
  return {WorkStatus::Measured, PercentOf(sent_, frames)};
}

}  // namespace TCBase
