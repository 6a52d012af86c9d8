#include "tests/support/plain_program.h"

#include <algorithm>
#include <cmath>

#include "common/log.h"
#include "common/message.h"
#include "common/truncate.h"

// Calls are qualified: argument-dependent lookup would also offer the fast functions of the same names.

namespace TCBase::Program::Plain {

namespace {

// The first step at a minute of the day, or the end. Hour and minute are compared, not their sum: a step out
// of range is on no minute.
Channel::const_iterator FindStepAt(const Channel& channel, std::int32_t minute) {
  return std::find_if(channel.begin(), channel.end(), [minute](const Step& step) {
    return step.hour == minute / 60 && step.minute == minute % 60;
  });
}

void EraseStep(Mode& mode, const StepRemoval& removal) {
  Channel& channel = mode.channels[static_cast<std::size_t>(removal.channel)];
  channel.erase(channel.begin() + removal.step);
}

}  // namespace

float ChannelValueAt(const Channel& channel, std::int64_t second) {
  if (channel.empty()) return 0.0F;
  if (channel.size() == 1) return channel[0].value;
  const std::int64_t t = std::max<std::int64_t>(second, 0) % kSecondsPerDay;

  Step from = channel.back();
  Step to = channel.front();
  if (t > SecondOfDay(channel.front())) {
    for (std::size_t i = 1; i < channel.size(); ++i) {
      if (SecondOfDay(channel[i]) < t) continue;
      from = channel[i - 1];
      to = channel[i];
      break;
    }
  }

  const std::int64_t fromTime = SecondOfDay(from);
  const std::int64_t toTime = SecondOfDay(to);
  const float target = from.jump && t != toTime ? from.value : to.value;
  std::int64_t span = toTime - fromTime;
  if (fromTime > toTime) span += kSecondsPerDay;
  std::int64_t elapsed = t - fromTime;
  if (fromTime > t) elapsed += kSecondsPerDay;
  return (target - from.value) / static_cast<float>(span) * static_cast<float>(elapsed) + from.value;
}

void CollectModeSteps(const Mode& mode, std::vector<ModeStep>& rows) {
  rows.clear();
  for (std::int32_t minute = 0; minute < kMinutesPerDay; ++minute) {
    ModeStep row{minute / 60, minute % 60, {}, {}};
    bool used = false;
    for (std::size_t c = 0; c < mode.channels.size(); ++c) {
      const Channel& channel = mode.channels[c];
      const auto step = FindStepAt(channel, minute);
      row.values[c] = TruncateToInt(Plain::ChannelValueAt(channel, std::int64_t{minute} * 60));
      row.jumps[c] = step != channel.end() && step->jump;
      used = used || step != channel.end();
    }
    if (used) rows.push_back(row);
  }
}

int CountModeSteps(const Mode& mode) {
  std::vector<ModeStep> rows;
  Plain::CollectModeSteps(mode, rows);
  return static_cast<int>(rows.size());
}

std::int32_t RemovalError(const Channel& channel, std::size_t index) {
  const std::int64_t t = SecondOfDay(channel[index]);
  Channel copy = channel;
  copy.erase(copy.begin() + static_cast<std::ptrdiff_t>(index));
  return TruncateToInt(std::fabs(Plain::ChannelValueAt(channel, t) - Plain::ChannelValueAt(copy, t)));
}

StepRemoval FindCheapestStep(const Mode& mode) {
  StepRemoval cheapest;
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    const Channel& channel = mode.channels[c];
    if (channel.size() <= kMinChannelSteps) continue;
    StepRemoval best;
    for (std::size_t i = 0; i < channel.size(); ++i) {
      const std::int32_t error = Plain::RemovalError(channel, i);
      if (best.step >= 0 && error >= best.error) continue;
      best = {static_cast<std::int32_t>(c), static_cast<std::int32_t>(i), error};
    }
    if (cheapest.step < 0 || best.error < cheapest.error) cheapest = best;
  }
  return cheapest;
}

void RemoveExactSteps(Mode& mode) {
  for (StepRemoval cheapest = Plain::FindCheapestStep(mode); cheapest.error == 0;
       cheapest = Plain::FindCheapestStep(mode)) {
    EraseStep(mode, cheapest);
  }
}

bool OptimizeModeTo(Mode& mode, int maxSteps) {
  if (Plain::CountModeSteps(mode) <= maxSteps) return true;
  LogStatus(Message("Mode {1} has more than {2} steps, optimizing...", mode.name, maxSteps));
  while (Plain::CountModeSteps(mode) > maxSteps) {
    const StepRemoval cheapest = Plain::FindCheapestStep(mode);
    if (cheapest.step < 0) {
      LogStatus(Message("Unable to optimize mode {1}, please remove some steps.", mode.name));
      return false;
    }
    EraseStep(mode, cheapest);
  }
  return true;
}

void InsertStepsSorted(Channel& channel, const std::vector<Step>& steps) {
  for (const Step& step : steps) InsertStepSorted(channel, step);
}

bool WriteRaw(const Mode& mode, std::string& data) {
  data.resize(std::size_t{kSecondsPerDay} * kChannelCount);
  char* byte = data.data();
  for (std::int64_t second = 0; second < kSecondsPerDay; ++second) {
    for (const Channel& channel : mode.channels)
      *byte++ = static_cast<char>(TruncateToInt(Plain::ChannelValueAt(channel, second)));
  }
  return true;
}

}  // namespace TCBase::Program::Plain
