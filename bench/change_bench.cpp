// Changes of many steps at once, on five channels of 48 steps: a preview makes one at each answer in a
// dialog.

#include <benchmark/benchmark.h>

#include <cstddef>

#include "program/change/mode_change.h"

namespace {

using namespace TCBase::Program;

constexpr int kSteps = 48;

// All channels on the same minutes, so that the mode fits.
Mode GivenFullMode() {
  Mode mode;
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    for (int i = 0; i < kSteps; ++i) {
      const int minute = i * kMinutesPerDay / kSteps;
      const auto value = static_cast<float>((i * (static_cast<int>(c) + 7) * 13 + i * i / 11) % 101);
      mode.channels[c].push_back({minute / 60, minute % 60, value, i % 7 == 0, NextStepId()});
    }
  }
  return mode;
}

void BM_Change(benchmark::State& state, const ModeChange& change, const ChangeScope& scope) {
  const Mode before = GivenFullMode();
  for (auto _ : state) {
    Mode mode = before;
    benchmark::DoNotOptimize(ChangeMode(mode, change, scope));
  }
  state.SetItemsProcessed(state.iterations());
}

const ChangeScope kAll;
const ChangeScope kFirst{.channels = ChannelSet(1)};

BENCHMARK_CAPTURE(BM_Change, ShiftTime, ShiftTime{95}, kAll);
BENCHMARK_CAPTURE(BM_Change, ShiftPercent, ShiftPercent{7}, kAll);
BENCHMARK_CAPTURE(BM_Change, Scale, ScalePercent{80, 30}, kAll);
BENCHMARK_CAPTURE(BM_Change, Stretch, StretchTime{80, 780}, kAll);
BENCHMARK_CAPTURE(BM_Change, Mirror, MirrorTime{720}, kAll);
BENCHMARK_CAPTURE(BM_Change, SetJump, SetJump{true}, kAll);
BENCHMARK_CAPTURE(BM_Change, Copy, CopyToChannels{ChannelSet(0b11110), 60}, kFirst);
BENCHMARK_CAPTURE(BM_Change, ThinOut, ThinOut{20}, kAll);
BENCHMARK_CAPTURE(BM_Change, ThinOutToNothing, ThinOut{100}, kAll);
BENCHMARK_CAPTURE(BM_Change, RoundTimes, RoundTimes{45}, kAll);
BENCHMARK_CAPTURE(BM_Change, RoundPercents, RoundPercents{5}, kAll);

}  // namespace
