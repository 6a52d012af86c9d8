// What a long history takes. A program of its own, since it counts every allocation of the process.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "app/document/undo_stack.h"
#include "program/program.h"
#include "tests/support/heap_count.h"

namespace {

using namespace TCBase::Program;

constexpr std::size_t kSnapshots = 10'000;
constexpr std::int64_t kMegabyte = 1'000'000;

// 64 modes of five channels of 48 steps.
ModeListView GivenFullDocument() {
  ModeListView document;
  document.modes.resize(64);
  for (Mode& mode : document.modes) {
    mode.description = "More text than a string holds without taking memory for it";
    for (Channel& channel : mode.channels)
      for (int i = 0; i < kMaxModeSteps; ++i)
        channel.push_back({i / 2, i % 2 * 30, static_cast<float>(i), false, NextStepId()});
  }
  return document;
}

TEST(UndoMemory, TenThousandEditsOfAStepTakeLessThanTwentyMegabytes) {
  ModeListView document = GivenFullDocument();
  const std::int64_t before = heap_count::bytes;
  app::UndoStack undoStack(document);
  for (std::size_t i = 0; i < kSnapshots; ++i) {
    undoStack.Snapshot();
    document.modes[i % 64].channels[i / 64 % kChannelCount][i % 48].value += 1.0F;
  }
  EXPECT_EQ(undoStack.size(), static_cast<std::int32_t>(kSnapshots));
  EXPECT_LT(heap_count::bytes - before, 20 * kMegabyte);
  RecordProperty("bytes", std::to_string(heap_count::bytes - before));
}

TEST(UndoMemory, AnUndoAndACommandInTurnTakeNoMoreThanTheEdits) {
  ModeListView document = GivenFullDocument();
  app::UndoStack undoStack(document);
  undoStack.Snapshot();
  const std::int64_t before = heap_count::bytes;
  for (std::size_t i = 0; i < 1000; ++i) {
    undoStack.Snapshot();
    document.modes[i % 64].channels[2][3].value += 1.0F;
    undoStack.Undo();
    undoStack.Redo();
  }
  EXPECT_LT(heap_count::bytes - before, 2 * kMegabyte);
}

TEST(UndoMemory, AModeThatWentTakesNoMemoryForTheModesBehindIt) {
  ModeListView document = GivenFullDocument();
  app::UndoStack undoStack(document);
  undoStack.Snapshot();
  document.modes.erase(document.modes.begin() + 5);
  const std::int64_t before = heap_count::bytes;
  undoStack.Snapshot();
  EXPECT_LT(heap_count::bytes - before, 3000);
}

TEST(UndoMemory, AClearedHistoryTakesNone) {
  ModeListView document = GivenFullDocument();
  const std::int64_t before = heap_count::bytes;
  app::UndoStack undoStack(document);
  for (std::size_t i = 0; i < 10; ++i) undoStack.Snapshot();
  undoStack.Clear();
  EXPECT_LT(heap_count::bytes - before, 2000);  // the room for the entries
}

}  // namespace
