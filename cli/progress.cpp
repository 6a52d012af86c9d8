#include "cli/progress.h"

#include <algorithm>
#include <cstdio>

#include "devices/controller_models.h"
#include "program/time_of_day.h"

namespace cli {

namespace {

// A mode is its rows between an opening and a closing frame. One more ends the upload to a TC420; a TC421
// gets a row for each half hour.
int CountFrames(const TCBase::Program::ModeListView& document, const TCBase::DeviceInfo& controller) {
  constexpr int kHalfHours = 48;
  const TCBase::ControllerModel& model = TCBase::ControllerModelOf(controller);
  const bool halfHours = model.keeps == TCBase::Keeps::HalfHours;
  int frames = model.family == TCBase::Family::TC420 ? 1 : 0;
  for (const TCBase::Program::Mode& mode : document.modes)
    frames += (halfHours ? kHalfHours : CountModeSteps(mode)) + 2;
  return frames;
}

int CountFrames(const TCBase::Program::ModeListView& document,
                const std::vector<TCBase::DeviceInfo>& controllers) {
  int frames = 0;
  for (const TCBase::DeviceInfo& controller : controllers) frames += CountFrames(document, controller);
  return frames;
}

}  // namespace

std::string ProgressText(double part, const std::string& label) {
  constexpr int kCells = 30;
  const int percent = static_cast<int>(std::clamp(part, 0.0, 1.0) * 100.0);
  std::string bar(kCells, ' ');
  std::fill_n(bar.begin(), percent * kCells / 100, '#');
  char text[64];
  std::snprintf(text, sizeof text, "[%s] %3d %% ", bar.c_str(), percent);
  return text + label;
}

std::string DemoProgress::Text() const {
  const std::int32_t second = second_;
  if (second == kNoDemo) return {};
  return ProgressText(static_cast<double>(second) / TCBase::Program::kSecondsPerDay,
                      TimeText(TCBase::Program::TimeOfDayAt(second)));
}

UploadProgress::UploadProgress(const TCBase::Program::ModeListView& document,
                               const std::vector<TCBase::DeviceInfo>& controllers)
    : total_(CountFrames(document, controllers)) {}

std::string UploadProgress::Text() const {
  // A bad network has frames sent again, so that more may leave than the upload has.
  const int sent = std::min<int>(sent_, total_);
  if (sent == 0) return {};
  return ProgressText(static_cast<double>(sent) / total_,
                      "frame " + std::to_string(sent) + " of " + std::to_string(total_));
}

}  // namespace cli
