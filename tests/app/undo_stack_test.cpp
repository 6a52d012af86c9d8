#include "app/document/undo_stack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "program/channel_edit.h"
#include "program/program.h"
#include "tests/app/exact_document.h"
#include "tests/program/program_fixture.h"

namespace {

using namespace program_test;
using app::UndoStack;
using testing::ElementsAre;
using testing::IsEmpty;

class Undo : public testing::Test {
 protected:
  Undo() {
    for (Channel& channel : program.modes[0].channels) {
      channel = GivenChannel("08:00 0, 12:00 50, 22:00 0");
      RenumberSteps(channel);
    }
  }

  Channel& Blue() { return program.modes[0].channels[0]; }
  std::string Curve() { return Told(Blue()); }
  // A command as the dispatcher gives it: the snapshot, then the change.
  void SetNoon(float value) {
    undoStack.Snapshot();
    ChangeNoon(value);
  }
  // A change that takes no snapshot.
  void ChangeNoon(float value) { Blue()[1].value = value; }
  float Noon() { return Blue()[1].value; }

  ModeListView program = GivenDocument(Mode());
  UndoStack undoStack{program};
};

// The history.

TEST_F(Undo, GoesBackCommandByCommandAndForwardAgain) {
  SetNoon(60);
  SetNoon(70);
  SetNoon(80);
  std::vector<float> noons;
  while (undoStack.Undo()) noons.push_back(Noon());
  while (undoStack.Redo()) noons.push_back(Noon());
  EXPECT_THAT(noons, ElementsAre(70, 60, 50, 60, 70, 80));
}

TEST_F(Undo, OfACommandThatChangedNothingChangesNothingAndDropsTheIndexByOne) {
  SetNoon(60);
  undoStack.Snapshot();  // "Copy steps"
  EXPECT_EQ(undoStack.index(), 2);
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(Noon(), 60);
  EXPECT_EQ(undoStack.index(), 1);
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(Noon(), 50);
  EXPECT_EQ(undoStack.index(), 0);
}

TEST_F(Undo, AtTheVeryStartOfARunIsFalseAndLogsNothing) {
  StatusLines lines;
  EXPECT_FALSE(undoStack.Undo());
  EXPECT_FALSE(undoStack.Redo());
  EXPECT_EQ(undoStack.size(), 0);
  EXPECT_THAT(lines.Take(), IsEmpty());
}

TEST_F(Undo, FollowedByRedoIsBackAtTheEditThroughTheEntryItAppended) {
  SetNoon(60);
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(Noon(), 50);
  EXPECT_EQ(undoStack.size(), 2);
  EXPECT_TRUE(undoStack.Redo());
  EXPECT_EQ(Noon(), 60);
  EXPECT_EQ(undoStack.index(), 1);
}

TEST_F(Undo, FollowedByANewCommandDropsTheEntriesBehindIncludingTheAppendedOne) {
  SetNoon(60);
  SetNoon(70);
  undoStack.Undo();
  undoStack.Undo();
  EXPECT_EQ(undoStack.size(), 3);
  SetNoon(80);
  EXPECT_EQ(undoStack.size(), 1);
  EXPECT_EQ(undoStack.index(), 1);
  EXPECT_FALSE(undoStack.Redo());
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(Noon(), 50);
}

// Looks odd, and is meant: the last entry comes back, though there is nothing to tell the user.
TEST_F(Undo, RedoAtTheLastEntryRestoresItAndIsFalse) {
  SetNoon(60);
  undoStack.Undo();
  undoStack.Redo();
  program.modes[0].name = "renamed without a snapshot";
  EXPECT_FALSE(undoStack.Redo());
  EXPECT_EQ(program.modes[0].name, "");
  EXPECT_EQ(Noon(), 60);
  EXPECT_EQ(undoStack.index(), 1);
}

TEST_F(Undo, MayLeaveTheSelectionAtAStepThatNoLongerExistsWhichItsUsersCheck) {
  StepSelection selection{program, 0, 3};
  undoStack.Snapshot();
  InsertStepSorted(Blue(), {23, 0});
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(selection.channel, 0);
  EXPECT_EQ(selection.step, 3);

  NudgeSelectedStep(selection, 1, 0, 10);
  EXPECT_EQ(Curve(), "08:00 0, 12:00 50, 22:00 0");
  DeleteSelectedStep(selection);
  EXPECT_EQ(Curve(), "08:00 0, 12:00 50, 22:00 0");
}

TEST_F(Undo, AppendsNothingForADifferenceInAChannelsDescriptionOrInTheViewWindow) {
  SetNoon(60);
  undoStack.Snapshot();
  program.channelInfos[2].description = "of the left tube";
  program.viewStart = 3600;
  program.viewEnd = 7200;
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(undoStack.size(), 2);
  // All the same it all comes back as it was.
  EXPECT_EQ(program.channelInfos[2].description, "");
  EXPECT_EQ(program.viewStart, 0);
  EXPECT_EQ(program.viewEnd, kSecondsPerDay);
}

TEST_F(Undo, RestoresModesInfosViewAndCurrentModeStepIdsIncluded) {
  program.modes.resize(3);
  program.modes[1].description = "for the winter";
  program.currentMode = 2;
  program.channelInfos[4] = {"Moon", "dim", 0xFF102030};
  const ModeListView before = program;
  undoStack.Snapshot();
  program = GivenDocument(Mode());
  program.viewStart = 60;
  EXPECT_TRUE(undoStack.Undo());
  ExpectExactly(before, program);
}

TEST_F(Undo, ASnapshotIsNotTouchedByLaterChangesNorByChangesOfWhatItRestored) {
  const ModeListView before = program;
  SetNoon(60);
  undoStack.Undo();
  ChangeNoon(99);
  Blue().pop_back();
  undoStack.Redo();
  undoStack.Undo();
  ExpectExactly(before, program);
}

TEST_F(Undo, ClearForgetsAllButThePendingCopy) {
  SetNoon(60);
  undoStack.BeginPending();
  undoStack.Clear();
  EXPECT_EQ(undoStack.index(), 0);
  EXPECT_EQ(undoStack.size(), 0);
  EXPECT_FALSE(undoStack.Undo());
  ChangeNoon(70);
  undoStack.CommitPending();
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(Noon(), 60);
}

// Gestures.

TEST_F(Undo, ADragIsOneEntryHoweverOftenItChangesTheProgram) {
  undoStack.BeginPending();
  for (int i = 0; i < 100; ++i) ChangeNoon(static_cast<float>(i));
  undoStack.CommitPending();
  EXPECT_EQ(undoStack.size(), 1);
  undoStack.Undo();
  EXPECT_EQ(Noon(), 50);
}

TEST_F(Undo, ARepeatingKeyKeepsItsFirstCopy) {
  for (int i = 1; i <= 10; ++i) {
    undoStack.BeginPending();
    ChangeNoon(50.0F + static_cast<float>(i));
  }
  undoStack.CommitPending();
  undoStack.Undo();
  EXPECT_EQ(Noon(), 50);
}

TEST_F(Undo, AGestureWithoutEffectEntersNothingAndKeepsWhatCanBeRedone) {
  SetNoon(60);
  undoStack.Undo();
  undoStack.BeginPending();
  undoStack.CommitPending();
  EXPECT_EQ(undoStack.size(), 2);
  EXPECT_TRUE(undoStack.Redo());
  EXPECT_EQ(Noon(), 60);
}

TEST_F(Undo, AGestureWithEffectDropsWhatCouldBeRedone) {
  SetNoon(60);
  undoStack.Undo();
  undoStack.BeginPending();
  ChangeNoon(70);
  undoStack.CommitPending();
  EXPECT_EQ(undoStack.size(), 1);
  EXPECT_FALSE(undoStack.Redo());
}

// Looks odd, and is meant: the copy of a gesture without effect stays, and is not refreshed.
TEST_F(Undo, ThePendingCopyOfAGestureWithoutEffectServesTheNextOne) {
  undoStack.BeginPending();
  undoStack.CommitPending();
  SetNoon(60);
  undoStack.BeginPending();
  ChangeNoon(70);
  undoStack.CommitPending();
  EXPECT_EQ(undoStack.size(), 2);
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_EQ(Noon(), 50);  // behind the command, too
}

TEST_F(Undo, ADroppedGestureIsNoEntry) {
  undoStack.BeginPending();
  ChangeNoon(70);
  undoStack.DropPending();
  undoStack.CommitPending();
  EXPECT_EQ(undoStack.size(), 0);
}

TEST_F(Undo, ACommitWithoutAGestureDoesNothing) {
  undoStack.CommitPending();
  EXPECT_EQ(undoStack.size(), 0);
}

// The one equality.

TEST_F(Undo, SameProgramIsTheEqualityOfDocuments) {
  ModeListView other = program;
  other.channelInfos[0].description = "x";
  other.viewStart = 1;
  other.viewEnd = 2;
  other.currentMode = 7;
  other.modes[0].channels[0][0].id = 0;
  EXPECT_TRUE(app::SameProgram(program, other));
  other.channelInfos[0].name = "x";
  EXPECT_FALSE(app::SameProgram(program, other));
}

// Not equal to itself, so that it counts as changed: entries come, none is lost.
TEST_F(Undo, AValueThatIsNoNumberComesBackAsItIs) {
  ChangeNoon(std::numeric_limits<float>::quiet_NaN());
  const ModeListView before = program;
  SetNoon(60);
  undoStack.Undo();
  ExpectExactly(before, program);
  EXPECT_FALSE(app::SameProgram(program, program));
}

TEST_F(Undo, AMinusInFrontOfZeroComesBack) {
  ChangeNoon(0.0F);
  undoStack.Snapshot();
  ChangeNoon(-0.0F);
  const ModeListView before = program;
  undoStack.Snapshot();
  ChangeNoon(5);
  undoStack.Undo();
  ExpectExactly(before, program);
}

TEST_F(Undo, ADocumentWithoutModesIsADocument) {
  program.modes.clear();
  undoStack.Snapshot();
  program.modes.resize(9);
  EXPECT_TRUE(undoStack.Undo());
  EXPECT_THAT(program.modes, IsEmpty());
  EXPECT_TRUE(undoStack.Redo());
  EXPECT_EQ(program.modes.size(), 9U);
}

// The fast way against the plain one.

// The history with whole documents.
class PlainUndoStack {
 public:
  explicit PlainUndoStack(ModeListView& program) : program_(program) {}

  void Snapshot() { Enter(program_); }
  void BeginPending() {
    if (!pending_) pending_ = program_;
  }
  void CommitPending() {
    if (!pending_ || *pending_ == program_) return;
    Enter(*pending_);
    pending_.reset();
  }
  void DropPending() { pending_.reset(); }
  bool Undo() {
    if (index_ == snapshots_.size() && !snapshots_.empty() && !(snapshots_.back() == program_))
      snapshots_.push_back(program_);
    if (index_ < 1) return false;
    program_ = snapshots_[--index_];
    return true;
  }
  bool Redo() {
    if (snapshots_.empty() || index_ == snapshots_.size()) return false;
    const std::size_t next = std::min(snapshots_.size() - 1, index_ + 1);
    const bool moved = next != std::exchange(index_, next);
    program_ = snapshots_[index_];
    return moved;
  }
  void Clear() {
    snapshots_.clear();
    index_ = 0;
  }

 private:
  void Enter(const ModeListView& entry) {
    snapshots_.resize(index_);
    snapshots_.push_back(entry);
    ++index_;
  }

  std::size_t index_ = 0;
  ModeListView& program_;
  std::vector<ModeListView> snapshots_;
  std::optional<ModeListView> pending_;
};

// A session at random, given to both histories.
class RandomSession {
 public:
  explicit RandomSession(std::uint32_t seed) : engine_(seed) {
    program_.modes.resize(1 + Below(20));
    plainProgram_ = program_;
  }

  void Step() {
    switch (Below(9)) {
      case 0:
      case 1:
        undoStack_.Snapshot();
        plain_.Snapshot();
        return Edit();
      case 2:
        return Edit();
      case 3:
        undoStack_.BeginPending();
        plain_.BeginPending();
        return;
      case 4:
        undoStack_.CommitPending();
        plain_.CommitPending();
        return;
      case 5:
        if (Below(4) == 0) undoStack_.DropPending(), plain_.DropPending();
        return;
      case 6:
      case 7:
        EXPECT_EQ(undoStack_.Undo(), plain_.Undo());
        break;
      default:
        EXPECT_EQ(undoStack_.Redo(), plain_.Redo());
        if (Below(40) == 0) undoStack_.Clear(), plain_.Clear();
    }
    ExpectExactly(plainProgram_, program_);
  }

 private:
  std::size_t Below(std::size_t limit) { return engine_() % limit; }

  // Anything that an edit of any kind may do to a document, and more.
  void Edit() {
    auto& modes = program_.modes;
    Mode& mode = modes[Below(modes.size())];
    Channel& channel = mode.channels[Below(kChannelCount)];
    switch (Below(13)) {
      case 0:
        if (modes.size() > 1) modes.erase(modes.begin() + static_cast<std::ptrdiff_t>(Below(modes.size())));
        break;
      case 1:
        modes.insert(modes.begin() + static_cast<std::ptrdiff_t>(Below(modes.size() + 1)), Mode(mode));
        break;
      case 2:
        std::swap(channel, mode.channels[Below(kChannelCount)]);
        break;
      case 3:
        RenumberSteps(mode);
        break;
      case 4:
        mode.name = std::to_string(Below(3));
        break;
      case 5:
        mode.description = std::to_string(Below(3));
        break;
      case 6:
        program_.channelInfos[Below(kChannelCount)].description = std::to_string(Below(3));
        break;
      case 7:
        program_.viewStart = static_cast<std::int32_t>(Below(3));
        program_.currentMode = static_cast<std::int32_t>(Below(modes.size()));
        break;
      case 8:
        channel.clear();
        break;
      case 9:
        std::swap(mode, modes[Below(modes.size())]);
        break;
      default:
        InsertStepSorted(channel, {static_cast<std::int32_t>(Below(24)), 0, Value(), Below(2) == 0});
    }
    plainProgram_ = program_;
  }

  float Value() {
    constexpr float kOdd[] = {0.0F, -0.0F, std::numeric_limits<float>::quiet_NaN()};
    return Below(8) == 0 ? kOdd[Below(std::size(kOdd))] : static_cast<float>(Below(100));
  }

  std::mt19937 engine_;
  ModeListView program_;
  ModeListView plainProgram_;
  UndoStack undoStack_{program_};
  PlainUndoStack plain_{plainProgram_};
};

class UndoAtRandom : public testing::TestWithParam<std::uint32_t> {};

TEST_P(UndoAtRandom, BehavesAsOneOfDeepCopies) {
  RandomSession session(GetParam());
  for (int i = 0; i < 600 && !HasFailure(); ++i) session.Step();
}

INSTANTIATE_TEST_SUITE_P(Sessions, UndoAtRandom, testing::Range(1U, 21U));

}  // namespace
