// A long session does not grow. A program of its own, since it counts the allocations of its whole process.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "app/document/undo_stack.h"
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

// Two languages and English, with a key that one leaves out and keys that are recorded.
constexpr char kTranslations[] = R"(<localisation>
  <languages><language id='de' name='Deutsch'/><language id='sk' name='Slovak' author='Lumarine team'/></languages>
  <strings>
    <string id='Devices'><de>Geräte</de><sk>Zariadenia</sk></string>
    <string id='Mode {1} (Steps: {2})'><de>{2} Schritte in Modus {1}</de></string>
  </strings>
</localisation>)";

TEST_F(Session, AThousandChangesOfLanguageDoNotGrow) {
  user.translations = kTranslations;
  GivenTheProgramRuns();
  const auto change = [this](int i) {
    user.SendCommand(command::kEnglish + i % 3);
    ForgetWhatTheShellRecorded();
  };
  // All that the menus and messages say has been recorded, and its place for each language made.
  for (int i = 0; i < 30; ++i) change(i);
  const std::int64_t before = heap_count::blocks;
  for (int i = 0; i < 1000; ++i) change(i);
  change(0);
  EXPECT_LT(heap_count::blocks - before, 20);
}

}  // namespace
