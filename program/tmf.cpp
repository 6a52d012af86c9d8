#include "program/tmf.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/log.h"
#include "common/message.h"

namespace TCBase::Program {

namespace {

constexpr std::size_t kHeaderSize = 4 + 4 + 4;
constexpr std::array<std::uint8_t, kHeaderSize> kHeader{0, 0, 0, 0, 5, 0, 0, 0, 3, 0, 0, 0};

// Offsets within a row.
constexpr std::size_t kHour = 4;
constexpr std::size_t kMinute = 5;
constexpr std::size_t kValues = 44;
constexpr std::size_t kJumps = 49;
constexpr std::size_t kTail = 54;
constexpr std::size_t kTmfRowSize = kTail + 2;
constexpr char kTailByte = static_cast<char>(0xCC);

int ByteAt(std::string_view data, std::size_t offset) {
  return static_cast<std::uint8_t>(data[offset]);
}

// The step that a row has for a channel.
Step StepOf(std::string_view row, std::size_t channel) {
  const TimeOfDay time{ByteAt(row, kHour), ByteAt(row, kMinute)};
  Step step = MakeStep(std::min<std::int64_t>(MinuteOfDay(time) * kSecondsPerMinute, kDayEnd),
                       static_cast<float>(std::min(ByteAt(row, kValues + channel), kMostPercent)));
  step.jump = ByteAt(row, kJumps + channel) == 1;
  return step;
}

}  // namespace

bool ReadTmf(std::string_view data, Mode& mode) {
  if (data.size() <= kHeaderSize || (data.size() - kHeaderSize) % kTmfRowSize != 0) {
    LogStatus(Message("Invalid file format"));
    return false;
  }
  std::size_t rows = (data.size() - kHeaderSize) / kTmfRowSize;
  if (rows > static_cast<std::size_t>(kMaxModeSteps)) {
    LogStatus(Message("TMF max number of steps exceeded. Limiting to {1}", kMaxModeSteps));
    rows = static_cast<std::size_t>(kMaxModeSteps);
  }
  for (std::size_t i = 0; i < rows; ++i) {
    const std::string_view row = data.substr(kHeaderSize + i * kTmfRowSize, kTmfRowSize);
    for (std::size_t channel = 0; channel < mode.channels.size(); ++channel)
      mode.channels[channel].push_back(StepOf(row, channel));
  }
  for (Channel& channel : mode.channels) SortSteps(channel);
  return true;
}

bool WriteTmf(const Mode& mode, std::string& data) {
  std::vector<ModeStep> rows;
  CollectModeSteps(mode, rows);
  data.assign(kHeaderSize + rows.size() * kTmfRowSize, '\0');
  std::copy(kHeader.begin(), kHeader.end(), data.begin());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    char* const row = data.data() + kHeaderSize + i * kTmfRowSize;
    row[kHour] = static_cast<char>(rows[i].hour);
    row[kMinute] = static_cast<char>(rows[i].minute);
    for (std::size_t channel = 0; channel < mode.channels.size(); ++channel) {
      row[kValues + channel] = static_cast<char>(rows[i].values[channel]);
      row[kJumps + channel] = static_cast<char>(rows[i].jumps[channel]);
    }
    row[kTail] = row[kTail + 1] = kTailByte;
  }
  return true;
}

}  // namespace TCBase::Program
