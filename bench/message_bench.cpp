// Messages beside the formatting library that everybody knows, on sentences that the program shows. Both look
// up the template at run time, as translated text demands.

#include <benchmark/benchmark.h>
#include <fmt/core.h>

#include <string>

#include "common/message.h"

namespace {

const std::string kDevice = "TC421 192.168.1.17";
const std::string kReason = "No such file or directory";
const std::string kMode = "Reef";

void MessageOfTwoTexts(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(Message("Error creating file {1}, error: {2}", kDevice, kReason).utf8().data());
  }
}
BENCHMARK(MessageOfTwoTexts);

void FmtOfTwoTexts(benchmark::State& state) {
  const char* text = "Error creating file {0}, error: {1}";
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(fmt::format(fmt::runtime(text), kDevice, kReason).data());
  }
}
BENCHMARK(FmtOfTwoTexts);

void MessageOfTextAndNumber(benchmark::State& state) {
  int number = 48;
  for (auto _ : state) {
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(Message("Mode {1} has {2} steps", kMode, number).utf8().data());
  }
}
BENCHMARK(MessageOfTextAndNumber);

void FmtOfTextAndNumber(benchmark::State& state) {
  const char* text = "Mode {0} has {1} steps";
  int number = 48;
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(fmt::format(fmt::runtime(text), kMode, number).data());
  }
}
BENCHMARK(FmtOfTextAndNumber);

void MessageOfTwoNumbers(benchmark::State& state) {
  int first = 12;
  int second = 1440;
  for (auto _ : state) {
    benchmark::DoNotOptimize(first);
    benchmark::DoNotOptimize(second);
    benchmark::DoNotOptimize(Message("{1} of {2}", first, second).utf8().data());
  }
}
BENCHMARK(MessageOfTwoNumbers);

void FmtOfTwoNumbers(benchmark::State& state) {
  const char* text = "{0} of {1}";
  int first = 12;
  int second = 1440;
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(first);
    benchmark::DoNotOptimize(second);
    benchmark::DoNotOptimize(fmt::format(fmt::runtime(text), first, second).data());
  }
}
BENCHMARK(FmtOfTwoNumbers);

}  // namespace
