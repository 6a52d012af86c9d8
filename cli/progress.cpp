#include "cli/progress.h"

#include <algorithm>
#include <cstdio>

#include "cli/text.h"
#include "devices/demo_state.h"

namespace cli {

namespace {

/// A mode is its rows between an opening and a closing frame; one more ends the upload.
int CountFrames(const TCBase::Program::ModeListView& document) {
  int frames = 1;
  for (const TCBase::Program::Mode& mode : document.modes) frames += CountModeSteps(mode) + 2;
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

std::string DemoProgress() {
  const int second = TCBase::demoState.position;
  if (second < 0) return {};
  return ProgressText(static_cast<double>(second) / TCBase::Program::kSecondsPerDay, ClockText(second));
}

UploadProgress::UploadProgress(const TCBase::Program::ModeListView& document, int controllers)
    : total_(CountFrames(document) * controllers) {}

void UploadProgress::Listen(const std::string& text) {
  if (text.find("WritePacket: ") != std::string::npos) ++sent_;
}

std::string UploadProgress::Text() const {
  const int sent = sent_;
  if (sent == 0) return {};
  return ProgressText(static_cast<double>(sent) / total_,
                      "frame " + std::to_string(sent) + " of " + std::to_string(total_));
}

}  // namespace cli
