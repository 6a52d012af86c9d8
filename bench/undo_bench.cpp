// The undo history: what a snapshot, an undo and a gesture that changed nothing cost.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

#include "app/document/crash_recovery.h"
#include "app/document/undo_stack.h"
#include "program/program.h"

namespace {

using namespace TCBase::Program;

constexpr int kModes = 64;  // all that a controller holds

// As large as a document for a controller gets: every channel of every mode full.
ModeListView GivenFullDocument(int modes) {
  ModeListView document;
  for (int m = 0; m < modes; ++m) {
    Mode mode;
    mode.name = "Mode " + std::to_string(m);
    for (Channel& channel : mode.channels)
      for (int i = 0; i < kMaxModeSteps; ++i)
        channel.push_back({i / 2, i % 2 * 30, static_cast<float>((i * 37 + m) % 101), false, NextStepId()});
    document.modes.push_back(std::move(mode));
  }
  return document;
}

// The `count`-th edit of a session that wanders through all modes.
Step& StepToEdit(ModeListView& document, std::size_t count) {
  Mode& mode = document.modes[count % document.modes.size()];
  return mode.channels[count / 7 % kChannelCount][count / 3 % kMaxModeSteps];
}

void PlainCopy(benchmark::State& state) {
  const ModeListView document = GivenFullDocument(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    ModeListView copy = document;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(PlainCopy)->Arg(1)->Arg(kModes)->Unit(benchmark::kMicrosecond);

void FirstSnapshot(benchmark::State& state) {
  const ModeListView document = GivenFullDocument(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(app::ProgramSnapshot(document, {}));
}
BENCHMARK(FirstSnapshot)->Arg(1)->Arg(kModes)->Unit(benchmark::kMicrosecond);

// A command: the snapshot, then an edit of one step. The history grows to 10,000 entries and starts over.
void SnapshotOfAnEdit(benchmark::State& state) {
  ModeListView document = GivenFullDocument(static_cast<int>(state.range(0)));
  app::UndoStack undoStack(document);
  std::size_t count = 0;
  for (auto _ : state) {
    undoStack.Snapshot();
    Step& step = StepToEdit(document, ++count);
    step.value = step.value < 50.0F ? step.value + 1.0F : 0.0F;
    if (undoStack.size() < 10'000) continue;
    state.PauseTiming();
    undoStack.Clear();
    undoStack.Snapshot();
    state.ResumeTiming();
  }
}
BENCHMARK(SnapshotOfAnEdit)->Arg(1)->Arg(kModes)->Unit(benchmark::kMicrosecond);

// What keeping the document for the case of a crash takes of a drag: a look twice a second, at a document
// that never rests, so that every tenth is written, by another thread.
void LookDuringADrag(benchmark::State& state) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "lumarine-undo-bench";
  ModeListView document = GivenFullDocument(static_cast<int>(state.range(0)));
  app::CrashRecovery recovery(folder);
  std::size_t count = 0;
  double now = 0.0;
  for (auto _ : state) {
    Step& step = StepToEdit(document, ++count);
    step.value = step.value < 50.0F ? step.value + 1.0F : 0.0F;
    now += app::CrashRecovery::kSecondsBetweenLooks;
    recovery.Follow({document, true, {}, 0}, now);
  }
  recovery.End();
  std::filesystem::remove_all(folder);
}
BENCHMARK(LookDuringADrag)->Arg(1)->Arg(kModes)->Unit(benchmark::kMicrosecond);

// The worst case: every step has the same fields and other padding.
void SnapshotWithOtherPadding(benchmark::State& state) {
  ModeListView document = GivenFullDocument(kModes);
  const app::ProgramSnapshot earlier(document, {});
  for (Mode& mode : document.modes)
    for (Channel& channel : mode.channels)
      for (Step& step : channel) {
        reinterpret_cast<unsigned char*>(&step)[offsetof(Step, jump) + sizeof(step.jump)] ^= 1;
      }
  for (auto _ : state) benchmark::DoNotOptimize(app::ProgramSnapshot(document, earlier));
}
BENCHMARK(SnapshotWithOtherPadding)->Unit(benchmark::kMicrosecond);

void UndoAndRedo(benchmark::State& state) {
  ModeListView document = GivenFullDocument(kModes);
  app::UndoStack undoStack(document);
  undoStack.Snapshot();
  StepToEdit(document, 1).value += 1.0F;
  for (auto _ : state) {
    benchmark::DoNotOptimize(undoStack.Undo());
    benchmark::DoNotOptimize(undoStack.Redo());
  }
}
BENCHMARK(UndoAndRedo)->Unit(benchmark::kMicrosecond);

// A key released without an effect: the most frequent comparison.
void CommitWithoutChange(benchmark::State& state) {
  ModeListView document = GivenFullDocument(kModes);
  app::UndoStack undoStack(document);
  undoStack.BeginPending();
  for (auto _ : state) undoStack.CommitPending();
}
BENCHMARK(CommitWithoutChange)->Unit(benchmark::kMicrosecond);

}  // namespace
