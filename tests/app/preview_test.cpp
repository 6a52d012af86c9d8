#include "app/document/preview.h"

#include <gtest/gtest.h>

#include "program/builtin_modes.h"
#include "program/channel_edit.h"

namespace app {
namespace {

using namespace TCBase::Program;

class PreviewTest : public testing::Test {
 protected:
  PreviewTest() {
    selection.channel = 1;
    selection.step = 1;
  }

  Preview Begin() {
    return {selection, undoStack, [this](Parts parts) { refreshed.push_back(parts); }, part::kChart};
  }
  Channel& First() { return CurrentMode(program).channels[1]; }

  // Moves the selected channel's first step behind all others.
  static void MoveFirstToEnd(ModeListView& document) {
    Channel& channel = CurrentMode(document).channels[1];
    SetTime(channel[0], TimeOfDay{23, 59});
    SortSteps(channel);
  }

  ModeListView program = NewProgram();
  const ModeListView before = program;
  UndoStack undoStack{program};
  StepSelection selection{program};
  std::vector<Parts> refreshed;
};

TEST_F(PreviewTest, EachAnswerTakesThePlaceOfTheOneBefore) {
  Preview preview = Begin();
  preview.Show([](ModeListView& document) { CurrentMode(document).name += "x"; });
  preview.Show([](ModeListView& document) { CurrentMode(document).name += "y"; });
  EXPECT_EQ(CurrentMode(program).name, CurrentMode(before).name + "y");
  EXPECT_EQ(refreshed, (std::vector{part::kChart, part::kChart}));
  EXPECT_EQ(undoStack.size(), 0);
}

TEST_F(PreviewTest, WhatIsNotKeptIsTakenBack) {
  {
    Preview preview = Begin();
    preview.Show(MoveFirstToEnd);
    EXPECT_FALSE(program == before);
  }
  EXPECT_TRUE(program == before);
  EXPECT_EQ(selection.step, 1);
  EXPECT_EQ(refreshed.size(), 2U);
  EXPECT_EQ(undoStack.size(), 0);
}

TEST_F(PreviewTest, TheSelectionGoesWithItsStep) {
  const std::uint32_t id = First()[1].id;
  Preview preview = Begin();
  preview.Show(MoveFirstToEnd);
  EXPECT_EQ(selection.step, 0);
  EXPECT_EQ(SelectedStep(selection)->id, id);
  preview.Show([](ModeListView& document) {
    CurrentMode(document).channels[1].erase(CurrentMode(document).channels[1].begin() + 1);
  });
  EXPECT_EQ(selection.channel, 1);
  EXPECT_EQ(selection.step, -1);
  preview.TakeBack();
  EXPECT_EQ(SelectedStep(selection)->id, id);
}

TEST_F(PreviewTest, WhatIsKeptIsOneEntryOfTheHistory) {
  Preview preview = Begin();
  preview.Show([](ModeListView& document) { CurrentMode(document).name += "x"; });
  preview.Show(MoveFirstToEnd);
  EXPECT_TRUE(preview.Keep());
  const ModeListView after = program;
  EXPECT_FALSE(after == before);
  EXPECT_EQ(undoStack.size(), 1);
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_TRUE(program == before);
  EXPECT_TRUE(undoStack.Redo());
  EXPECT_TRUE(program == after);
}

TEST_F(PreviewTest, WhatChangesNothingIsNoEntry) {
  Preview preview = Begin();
  EXPECT_FALSE(preview.Keep());
  preview.Show([](ModeListView&) {});
  EXPECT_FALSE(preview.Keep());
  EXPECT_EQ(undoStack.size(), 0);
}

}  // namespace
}  // namespace app
