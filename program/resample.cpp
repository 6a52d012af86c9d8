#include "program/resample.h"

#include <utility>

#include "common/truncate.h"
#include "program/curve.h"

namespace TCBase::Program {

namespace {

constexpr std::int32_t kHalfHour = 30 * kSecondsPerMinute;

Channel Resampled(const Channel& source) {
  Channel result;
  result.reserve(kSecondsPerDay / kHalfHour);
  CurveCursor curve(source);
  for (std::int32_t second = 0; second < kSecondsPerDay; second += kHalfHour) {
    const auto value = static_cast<float>(TruncateToInt(curve.At(second)));
    result.push_back(MakeStep(second, value));
  }
  return result;
}

}  // namespace

void ResampleHalfHour(const Mode& source, Mode& result) {
  result.name = source.name;
  result.description = source.description;
  for (std::size_t c = 0; c < source.channels.size(); ++c) result.channels[c] = Resampled(source.channels[c]);
}

}  // namespace TCBase::Program
