// The merged step list of a mode: the one table of times that a controller keeps for all its channels.

#include <array>
#include <bit>
#include <cstddef>

#include "common/truncate.h"
#include "program/curve.h"
#include "program/merged_steps.h"
#include "program/program.h"

namespace TCBase::Program {

namespace {

// The minutes of the day that a mode's steps stand on.
class UsedMinutes {
 public:
  explicit UsedMinutes(const Mode& mode) {
    for (const Channel& channel : mode.channels) {
      for (const Step& step : channel) {
        if (IsOnTheDay(step)) Insert(MinuteOnTheDay(step));
      }
    }
  }

  std::size_t Count() const {
    int count = 0;
    for (const std::uint64_t word : words_) count += std::popcount(word);
    return static_cast<std::size_t>(count);
  }

  // Calls `action(minute)` in ascending order.
  template <class Action>
  void ForEach(Action action) const {
    for (std::size_t i = 0; i < words_.size(); ++i) {
      for (std::uint64_t rest = words_[i]; rest != 0; rest &= rest - 1) {
        action(static_cast<std::int32_t>(i * 64) + std::countr_zero(rest));
      }
    }
  }

 private:
  void Insert(std::size_t minute) { words_[minute / 64] |= std::uint64_t{1} << minute % 64; }

  std::array<std::uint64_t, (kMinutesPerDay + 63) / 64> words_{};
};

}  // namespace

void CollectModeSteps(const Mode& mode, std::vector<ModeStep>& rows) {
  const UsedMinutes minutes(mode);
  rows.clear();
  rows.resize(minutes.Count());
  // Only the entries of used minutes are ever written, and read.
  std::array<std::uint16_t, kMinutesPerDay> rowOfMinute;
  std::uint16_t row = 0;
  minutes.ForEach([&](std::int32_t minute) {
    SetTime(rows[row], TimeOfDayAtMinute(minute));
    rowOfMinute[static_cast<std::size_t>(minute)] = row++;
  });

  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    const Channel& channel = mode.channels[c];
    CurveCursor curve(channel);
    for (ModeStep& at : rows) at.values[c] = TruncateToInt(curve.At(SecondOnTheDay({at.hour, at.minute})));
    // The steps are taken from the back, so that the first of several on one minute has the last word.
    for (auto step = channel.rbegin(); step != channel.rend(); ++step) {
      if (!IsOnTheDay(*step)) continue;
      rows[rowOfMinute[MinuteOnTheDay(*step)]].jumps[c] = step->jump;
    }
  }
}

ModeStep StepAt(const Mode& mode, std::int32_t second) {
  ModeStep step;
  SetTime(step, second);
  std::transform(mode.channels.begin(), mode.channels.end(), step.values.begin(),
                 [second](const Channel& channel) { return TruncateToInt(ChannelValueAt(channel, second)); });
  return step;
}

int CountModeSteps(const Mode& mode) {
  return static_cast<int>(UsedMinutes(mode).Count());
}

}  // namespace TCBase::Program
