// A long session does not grow. A program of its own, since it counts the allocations of its whole process.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "app/undo_stack.h"
#include "tests/app/app_test.h"
#include "tests/support/heap_count.h"

namespace {

namespace command = app::command;

class Session : public AppTest {
 protected:
  // Loads, edits, takes it back and saves.
  void Work(const std::filesystem::path& file) {
    user.WillPick({file});
    user.SendCommand(command::kLoadProgram);
    user.SendCommand(command::kEndpointStart);
    user.SendCommand(command::kUndo);
    user.SendCommand(command::kSaveProgram);
    ForgetWhatTheShellRecorded();
  }

  void ForgetWhatTheShellRecorded() {
    headless::Desktop& desktop = user.GetDesktop();
    desktop.journal.clear();
    desktop.chart.invalidated.clear();
    desktop.questions.filesAsked.clear();
  }
};

TEST_F(Session, TenThousandLoadsEditsUndosAndSavesDoNotGrow) {
  GivenTheProgramRuns();
  const std::filesystem::path file = GivenFile("Tank");
  // Buffers and queues have found their sizes after a while.
  for (int i = 0; i < 100; ++i) Work(file);
  const std::int64_t before = heap_count::blocks;
  for (int i = 0; i < 10000; ++i) Work(file);
  EXPECT_EQ(user.Title(), "Lumarine - " + file.string());
  EXPECT_FALSE(HasFailure());
  // A block leaked in each round, or in one of a hundred, would be a hundred or more.
  EXPECT_LT(heap_count::blocks - before, 50);
}

}  // namespace
