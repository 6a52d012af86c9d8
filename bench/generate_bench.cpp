// Days that nature makes: the 52 of a season, and what a dialog's preview does at each change.

#include <benchmark/benchmark.h>

#include <vector>

#include "program/generate/acclimation.h"
#include "program/generate/ramp_day.h"
#include "program/generate/season.h"

namespace {

using namespace TCBase::Program::Generate;

SunLight Reef() {
  SunLight light;
  light.position = {-18.3, 147.7};
  light.date = ParseDate("2026-11-23").value();
  light.utcOffset = 600;
  light.levels = {80, 100, 100, 60, 0};
  light.hours = Hours{10 * 60, 22 * 60};
  light.moonlight = Moonlight{4, 15};
  return light;
}

void Season(benchmark::State& state) {
  const std::vector<int> utcOffsets(kWeeks, 600);
  for (auto _ : state) benchmark::DoNotOptimize(MakeSeason(Reef(), utcOffsets));
}
BENCHMARK(Season)->Unit(benchmark::kMillisecond);

void Sun(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(MakeSunMode(Reef()));
}
BENCHMARK(Sun)->Unit(benchmark::kMillisecond);

void Ramp(benchmark::State& state) {
  RampDay day;
  day.middayBreak = MiddayBreak{};
  for (auto _ : state) benchmark::DoNotOptimize(MakeRampDay(day));
}
BENCHMARK(Ramp)->Unit(benchmark::kMillisecond);

void AcclimationDay(benchmark::State& state) {
  const auto mode = MakeSunMode(Reef()).mode;
  for (auto _ : state) benchmark::DoNotOptimize(MakeAcclimationDay(mode, {}, 3));
}
BENCHMARK(AcclimationDay)->Unit(benchmark::kMillisecond);

}  // namespace
