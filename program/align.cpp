#include "program/align.h"

#include <algorithm>

namespace TCBase::Program {

namespace {

Channel Aligned(const Channel& source, std::int64_t interval) {
  Channel result = source;
  std::int64_t position = 0;
  for (std::size_t i = 0; i < result.size(); ++i) {
    Step& step = result[i];
    const std::int64_t delta = std::max<std::int64_t>(MinuteOfDay(step) - position, 0);
    position += delta < interval && i != 0 ? interval : delta - delta % interval;
    // The hour wraps at midnight: no step is dropped, and nothing here looks at the end of the day.
    SetTime(step, TimeOfDayAtMinute(position));
  }
  RenumberSteps(result);
  SortSteps(result);
  RemoveDuplicateTimes(result);
  return result;
}

}  // namespace

void AlignMode(const Mode& source, Mode& result, std::int32_t interval) {
  result.name = source.name;
  result.description = source.description;
  for (std::size_t c = 0; c < source.channels.size(); ++c) {
    result.channels[c] = Aligned(source.channels[c], std::max(interval, 1));
  }
}

}  // namespace TCBase::Program
