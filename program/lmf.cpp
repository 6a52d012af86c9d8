#include "program/lmf.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "common/log.h"
#include "common/message.h"
#include "program/optimize.h"
#include "program/resample.h"

namespace TCBase::Program {

namespace {

constexpr int kRowMinutes = 30;
constexpr std::size_t kRows = kMinutesPerDay / kRowMinutes;
constexpr std::size_t kCellSize = 4;
constexpr std::size_t kLmfRowSize = kChannelCount * kCellSize;

// The halves of a byte change places: 0x64 becomes 0x46, and the other way round.
constexpr std::uint8_t SwapHalves(std::uint8_t byte) {
  return static_cast<std::uint8_t>(byte << 4 | byte >> 4);
}

}  // namespace

bool ReadLmfSteps(std::string_view data, Mode& mode) {
  if (data.size() != kRows * kLmfRowSize) {
    LogStatus(Message("Invalid file format"));
    return false;
  }
  for (std::size_t row = 0; row < kRows; ++row) {
    const int second = static_cast<int>(row) * kRowMinutes * kSecondsPerMinute;
    for (std::size_t channel = 0; channel < mode.channels.size(); ++channel) {
      const int percent =
          SwapHalves(static_cast<std::uint8_t>(data[row * kLmfRowSize + channel * kCellSize]));
      mode.channels[channel].push_back(MakeStep(second, static_cast<float>(std::min(percent, kMostPercent))));
    }
  }
  return true;
}

bool ReadLmf(std::string_view data, Mode& mode) {
  if (!ReadLmfSteps(data, mode)) return false;
  Mode reduced;
  ResampleHalfHour(mode, reduced);
  RemoveExactSteps(reduced);
  mode.channels = std::move(reduced.channels);
  return true;
}

bool WriteLmf(const Mode& mode, std::string& data) {
  Mode halfHours;
  ResampleHalfHour(mode, halfHours);
  std::vector<ModeStep> rows;
  CollectModeSteps(halfHours, rows);
  data.assign(rows.size() * kLmfRowSize, '\0');
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t channel = 0; channel < mode.channels.size(); ++channel)
      data[row * kLmfRowSize + channel * kCellSize] =
          static_cast<char>(SwapHalves(static_cast<std::uint8_t>(rows[row].values[channel])));
  return true;
}

}  // namespace TCBase::Program
