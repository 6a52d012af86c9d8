#include "program/raw.h"

#include <cstddef>
#include <cstdint>

#include "common/truncate.h"
#include "program/curve.h"

namespace TCBase::Program {

bool WriteRaw(const Mode& mode, std::string& data) {
  data.resize(std::size_t{kSecondsPerDay} * kChannelCount);
  for (std::size_t channel = 0; channel < mode.channels.size(); ++channel) {
    CurveCursor curve(mode.channels[channel]);
    char* byte = data.data() + channel;
    for (std::int64_t second = 0; second < kSecondsPerDay; ++second, byte += kChannelCount)
      *byte = static_cast<char>(TruncateToInt(curve.At(second)));
  }
  return true;
}

}  // namespace TCBase::Program
