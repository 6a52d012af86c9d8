// The light program: the merged step list, the curve, and the thinning out of modes; each beside the plain
// definition that it must agree with (tests/support/plain_program.h).

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "common/log.h"
#include "program/align.h"
#include "program/optimize.h"
#include "program/program.h"
#include "program/raw.h"
#include "program/resample.h"
#include "program/steps_text.h"
#include "tests/support/plain_program.h"

namespace {

using namespace TCBase::Program;

// Some wave that has no straight stretch and few ties.
float Wave(int minute, int channel) {
  return static_cast<float>((minute * (channel + 7) * 13 + minute * minute / 11) % 1009) / 10.08F;
}

Step StepAt(int minute, int channel) {
  return {minute / 60, minute % 60, Wave(minute, channel), minute % 7 == 0, NextStepId()};
}

// Five channels of `steps` steps all over the day, on minutes of their own as far as there are enough.
Mode GivenMode(int steps) {
  Mode mode;
  for (int c = 0; c < kChannelCount; ++c) {
    for (int i = 0; i < steps; ++i) {
      const int minute = (i * kMinutesPerDay + c * kMinutesPerDay / kChannelCount) / steps;
      mode.channels[static_cast<std::size_t>(c)].push_back(StepAt(minute, c));
    }
    SortSteps(mode.channels[static_cast<std::size_t>(c)]);
  }
  return mode;
}

// The same steps, in no order.
Mode GivenUnorderedMode(int steps) {
  Mode mode = GivenMode(steps);
  std::uint32_t random = 1;
  for (Channel& channel : mode.channels) {
    for (std::size_t i = channel.size() - 1; i > 0; --i) {
      random = random * 1664525U + 1013904223U;
      std::swap(channel[i], channel[random % (i + 1)]);
    }
  }
  return mode;
}

// Every step twice on its minute.
Mode GivenDoubledMode(int steps) {
  Mode mode = GivenMode(steps / 2);
  for (Channel& channel : mode.channels) {
    Channel doubled = channel;
    InsertStepsSorted(channel, doubled);
  }
  return mode;
}

template <void (*kCollect)(const Mode&, std::vector<ModeStep>&)>
void CollectSteps(benchmark::State& state, const Mode& mode) {
  std::vector<ModeStep> rows;
  for (auto _ : state) {
    kCollect(mode, rows);
    benchmark::DoNotOptimize(rows.data());
    benchmark::ClobberMemory();
  }
  state.counters["rows"] = static_cast<double>(rows.size());
}

void Collect(benchmark::State& state) {
  CollectSteps<CollectModeSteps>(state, GivenMode(static_cast<int>(state.range(0))));
}
BENCHMARK(Collect)->Arg(10)->Arg(48)->Arg(1440);

void CollectPlain(benchmark::State& state) {
  CollectSteps<Plain::CollectModeSteps>(state, GivenMode(static_cast<int>(state.range(0))));
}
BENCHMARK(CollectPlain)->Arg(10)->Arg(48);

void CollectUnordered(benchmark::State& state) {
  CollectSteps<CollectModeSteps>(state, GivenUnorderedMode(static_cast<int>(state.range(0))));
}
BENCHMARK(CollectUnordered)->Arg(48)->Arg(1440);

template <int (*kCount)(const Mode&)>
void CountSteps(benchmark::State& state) {
  const Mode mode = GivenMode(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(kCount(mode));
}
BENCHMARK(CountSteps<CountModeSteps>)->Name("Count")->Arg(48)->Arg(1440);
BENCHMARK(CountSteps<Plain::CountModeSteps>)->Name("CountPlain")->Arg(48);

template <float (*kValueAt)(const Channel&, std::int64_t)>
void ValueAt(benchmark::State& state) {
  const Channel channel = GivenMode(static_cast<int>(state.range(0))).channels[1];
  std::int64_t second = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(kValueAt(channel, second));
    second = (second + 7919) % kSecondsPerDay;
  }
}
BENCHMARK(ValueAt<ChannelValueAt>)->Name("ChannelValueAt")->Arg(8)->Arg(48)->Arg(1440);
BENCHMARK(ValueAt<Plain::ChannelValueAt>)->Name("ChannelValueAtPlain")->Arg(8)->Arg(48)->Arg(1440);

template <bool (*kOptimize)(Mode&, int)>
void Optimize(benchmark::State& state, const Mode& given) {
  statusLog.textHandler = nullptr;
  for (auto _ : state) {
    state.PauseTiming();
    Mode mode = given;
    statusLog.Drain();
    state.ResumeTiming();
    if (!kOptimize(mode, kMaxModeSteps)) state.SkipWithError("not within the limit");
  }
}

void OptimizeOrdered(benchmark::State& state) {
  Optimize<OptimizeModeTo>(state, GivenMode(static_cast<int>(state.range(0))));
}
BENCHMARK(OptimizeOrdered)->Arg(12)->Arg(48)->Arg(1440)->Unit(benchmark::kMicrosecond);

void OptimizePlain(benchmark::State& state) {
  Optimize<Plain::OptimizeModeTo>(state, GivenMode(static_cast<int>(state.range(0))));
}
BENCHMARK(OptimizePlain)->Arg(12)->Arg(48)->Unit(benchmark::kMicrosecond);

void OptimizeDoubled(benchmark::State& state) {
  Optimize<OptimizeModeTo>(state, GivenDoubledMode(static_cast<int>(state.range(0))));
}
BENCHMARK(OptimizeDoubled)->Arg(48)->Arg(1440)->Unit(benchmark::kMicrosecond);

void OptimizeUnordered(benchmark::State& state) {
  Optimize<OptimizeModeTo>(state, GivenUnorderedMode(static_cast<int>(state.range(0))));
}
BENCHMARK(OptimizeUnordered)->Arg(48)->Arg(1440)->Unit(benchmark::kMicrosecond);

// What "Optimize mode for TC421" does: 48 half hours in each channel, less those that add nothing.
template <void (*kRemove)(Mode&)>
void ForTC421(benchmark::State& state) {
  const Mode given = GivenMode(12);
  for (auto _ : state) {
    Mode mode;
    ResampleHalfHour(given, mode);
    kRemove(mode);
    benchmark::DoNotOptimize(mode);
  }
}
BENCHMARK(ForTC421<RemoveExactSteps>)->Name("ForTC421")->Unit(benchmark::kMicrosecond);
BENCHMARK(ForTC421<Plain::RemoveExactSteps>)->Name("ForTC421Plain")->Unit(benchmark::kMicrosecond);

void Resample(benchmark::State& state) {
  const Mode given = GivenMode(48);
  Mode mode;
  for (auto _ : state) {
    ResampleHalfHour(given, mode);
    benchmark::DoNotOptimize(mode);
  }
}
BENCHMARK(Resample)->Unit(benchmark::kMicrosecond);

// What a RAW export may be given.
enum RawMode : std::int64_t {
  RawEmpty,
  RawTwoSteps,   // in each channel
  RawWave,       // 48 in each channel, all over the day
  RawZigzag,     // 48 in each channel, from 0 to 100 and back
  RawUnordered,  // the wave in no order
  RawFull,       // a step a minute
  RawSteep,    // out of order, so that a curve of one minute goes on all day: each second has its own percent
  RawFarAway,  // times that no day has
};

Mode GivenRawMode(std::int64_t kind) {
  constexpr int kSteps = 48;
  Mode mode;
  switch (kind) {
    case RawEmpty:
      return {};
    case RawTwoSteps:
      return GivenMode(2);
    case RawUnordered:
      return GivenUnorderedMode(kSteps);
    case RawFull:
      return GivenMode(kMinutesPerDay);
    case RawZigzag:
      mode = GivenMode(kSteps);
      for (Channel& channel : mode.channels)
        for (std::size_t i = 0; i < channel.size(); ++i) channel[i].value = i % 2 == 0 ? 0.0F : 100.0F;
      break;
    case RawSteep:
      for (Channel& channel : mode.channels) channel = {{23, 59, 0}, {23, 58, 100}};
      break;
    case RawFarAway:
      mode = GivenMode(kSteps);
      for (Channel& channel : mode.channels) channel.back().hour = -1'500'000'000;
      for (Channel& channel : mode.channels) channel.front().hour = 24;
      break;
    default:
      return GivenMode(kSteps);
  }
  for (Channel& channel : mode.channels)
    for (Step& step : channel) step.jump = false;
  return mode;
}

template <bool (*kWrite)(const Mode&, std::string&)>
void Raw(benchmark::State& state) {
  const Mode mode = GivenRawMode(state.range(0));
  std::string data;
  for (auto _ : state) {
    kWrite(mode, data);
    benchmark::DoNotOptimize(data.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Raw<WriteRaw>)->Name("Raw")->DenseRange(RawEmpty, RawFarAway)->Unit(benchmark::kMicrosecond);
BENCHMARK(Raw<Plain::WriteRaw>)
    ->Name("RawPlain")
    ->DenseRange(RawEmpty, RawUnordered)
    ->DenseRange(RawSteep, RawFarAway)
    ->Unit(benchmark::kMicrosecond);

// The same memory, filled with one byte.
void RawFill(benchmark::State& state) {
  std::string data(std::size_t{kSecondsPerDay} * kChannelCount, '\0');
  for (auto _ : state) {
    std::memset(data.data(), 50, data.size());
    benchmark::DoNotOptimize(data.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(RawFill)->Unit(benchmark::kMicrosecond);

void Align(benchmark::State& state) {
  const Mode given = GivenMode(48);
  Mode mode;
  for (auto _ : state) {
    AlignMode(given, mode, 15);
    benchmark::DoNotOptimize(mode);
  }
}
BENCHMARK(Align)->Unit(benchmark::kMicrosecond);

void AddTextOfSteps(benchmark::State& state) {
  std::string text;
  for (int line = 0; line < state.range(0); ++line) text += "08:00 50 J\r\n";
  statusLog.textHandler = nullptr;
  for (auto _ : state) {
    Channel channel;
    AddStepsFromText(channel, text);
    benchmark::DoNotOptimize(channel);
    statusLog.Drain();
  }
}
BENCHMARK(AddTextOfSteps)->Arg(48)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
