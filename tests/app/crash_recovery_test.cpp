// What is not saved when the process ends by force, and its way back at the next start.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/document/crash_recovery.h"
#include "common/files.h"
#include "common/process_claim.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"
#include "tests/support/virtual_clock.h"

namespace {

namespace fs = std::filesystem;
namespace command = app::command;
using app::Answer;
using TCBase::Program::ModeListView;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class CrashRecovery : public AppTest {
 protected:
  // A program of its own file, with a change that has come to rest.
  void GivenUnsavedWork(const std::string& name = "Tank") {
    GivenTheProgramRuns();
    file_ = GivenFile(name);
    user.WillPick({file_});
    user.Choose(command::kLoadProgram);
    Change();
    Rest();
  }
  void Change() { user.SendCommand(command::kEndpointStart); }
  // Longer than it takes until what has come to rest is on disk.
  void Rest() {
    unsaved_ = Program();
    user.Wait(2);
    user.State().document->SettleRecovery();
  }
  void Crash() { user.Crash(); }
  void StartAgain(std::initializer_list<Answer> answers = {}) {
    for (const Answer answer : answers) user.WillAnswer(answer);
    user.Start();
  }
  fs::path State() const { return folder / "state"; }
  fs::path Kept(int number = 1) const { return State() / ("recovery-" + std::to_string(number) + ".xml"); }
  std::vector<fs::path> FilesOfState() const {
    std::vector<fs::path> files;
    if (!fs::exists(State())) return files;
    for (const auto& entry : fs::directory_iterator(State())) files.push_back(entry.path().filename());
    return files;
  }

  fs::path file_;
  ModeListView unsaved_;
};

TEST_F(CrashRecovery, WhatWasNotSavedComesBackAsItWas) {
  GivenUnsavedWork();
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file_));
  EXPECT_THAT(user.Log(), HasSubstr("Restored what was not saved. Save it to keep it."));
  EXPECT_TRUE(fs::exists(Kept())) << "until it is saved";
}

TEST_F(CrashRecovery, TheQuestionTellsWhatItIsFromWhenAndOfWhichFile) {
  virtual_clock::SetLocalTime({2026, 11, 23, 20, 15, 0, 0});
  GivenUnsavedWork();
  Crash();
  StartAgain({Answer::Cancel});
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Recovered program");
  EXPECT_EQ(Utf8FromWide(asked[0].text),
            "The program did not end properly. What was not saved of " + Utf8FromPath(file_) +
                " was kept: 2 modes, as they were at 2026-11-23 20:15. Restore them?\r\n"
                "\"No\" discards them, \"Cancel\" keeps them for the next start.");
  EXPECT_EQ(asked[0].buttons, app::Buttons::YesNoCancel);
}

TEST_F(CrashRecovery, WhatIsRestoredIsAChangeOfItsFileUntilItIsSaved) {
  GivenUnsavedWork();
  const std::string before = BytesOf(file_);
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_EQ(BytesOf(file_), before) << "nothing is written unasked";
  user.WillAnswer(Answer::Cancel);
  user.Close();
  ASSERT_TRUE(user.IsRunning());
  EXPECT_EQ(user.Questions().back().title, u"Program modified");
  user.Choose(command::kSaveProgram);
  user.Wait(1);
  user.State().document->SettleRecovery();
  EXPECT_FALSE(fs::exists(Kept()));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(CrashRecovery, OfAProgramWithoutAFileIsOneWithoutAFile) {
  GivenTheProgramRuns();
  Change();
  Rest();
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_THAT(Utf8FromWide(user.Questions().at(0).text), HasSubstr("not saved of New program was kept"));
}

TEST_F(CrashRecovery, WorksAgainAfterASecondCrash) {
  GivenUnsavedWork();
  Crash();
  StartAgain({Answer::Yes});
  user.Wait(2);
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  user.SendCommand(app::control_id::kDeleteMode);
  Rest();
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  EXPECT_THAT(Program().modes, SizeIs(1));
}

TEST_F(CrashRecovery, CancelKeepsItForALaterStartAndNoDiscardsIt) {
  GivenUnsavedWork();
  Crash();
  StartAgain({Answer::Cancel});
  EXPECT_FALSE(Program() == unsaved_);
  user.Close();
  EXPECT_TRUE(fs::exists(Kept()));
  StartAgain({Answer::No});
  EXPECT_FALSE(Program() == unsaved_);
  EXPECT_FALSE(fs::exists(Kept()));
  user.Close();
  StartAgain();
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(CrashRecovery, WhatWasKeptForLaterIsNotOverwrittenByNewWork) {
  GivenUnsavedWork();
  const ModeListView first = unsaved_;
  Crash();
  StartAgain({Answer::Cancel});
  user.SendCommand(app::control_id::kDeleteMode);
  Rest();
  Crash();
  StartAgain({Answer::Cancel, Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == first);
}

TEST_F(CrashRecovery, AProperEndLeavesNothing) {
  GivenUnsavedWork();
  EXPECT_TRUE(fs::exists(Kept()));
  user.WillAnswer(Answer::No);
  user.Close();
  ASSERT_FALSE(user.IsRunning());
  EXPECT_THAT(FilesOfState(), IsEmpty());
  StartAgain();
  EXPECT_FALSE(Program() == unsaved_);
}

TEST_F(CrashRecovery, NothingIsWrittenForWhoChangesNothing) {
  GivenTheProgramRuns();
  user.WillPick({GivenFile("Tank")});
  user.Choose(command::kLoadProgram);
  user.Choose(command::kNewProgram);
  user.Wait(5);
  EXPECT_FALSE(fs::exists(State()));
  Crash();
  StartAgain();
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(CrashRecovery, WhatIsSavedOrTakenBackNeedsNoFile) {
  GivenUnsavedWork();
  user.Choose(command::kUndo);
  user.Wait(1);
  user.State().document->SettleRecovery();
  EXPECT_FALSE(fs::exists(Kept()));
  user.Choose(command::kRedo);
  Rest();
  EXPECT_TRUE(fs::exists(Kept()));
  user.Choose(command::kSaveProgram);
  user.Wait(1);
  user.State().document->SettleRecovery();
  EXPECT_FALSE(fs::exists(Kept()));
}

TEST_F(CrashRecovery, OfWhatIsInTheFileAlreadyIsNotOffered) {
  GivenUnsavedWork();
  Crash();
  ASSERT_TRUE(SaveProgram(unsaved_, file_));  // the crash came between the save and the clearing up
  StartAgain();
  EXPECT_TRUE(user.IsRunning());
  EXPECT_FALSE(fs::exists(Kept()));
}

TEST_F(CrashRecovery, AChangeIsKeptWhenItHasRestedForASecond) {
  GivenTheProgramRuns();
  user.Wait(1);
  Change();
  const ModeListView changed = Program();
  user.Wait(1.1);
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == changed);
}

TEST_F(CrashRecovery, WorkThatNeverRestsIsKeptNowAndThen) {
  GivenTheProgramRuns();
  for (int change = 0; change < 20; ++change) {
    user.SendCommand(change % 2 == 0 ? command::kEndpointStart : command::kUndo);
    user.Wait(0.3);
    user.SendCommand(command::kAlign60);
    user.Wait(0.3);
  }
  user.State().document->SettleRecovery();
  EXPECT_TRUE(fs::exists(Kept()));
}

TEST_F(CrashRecovery, TwoRunningCopiesHaveAFileEach) {
  fs::create_directories(State());
  const auto other = platform::ClaimFile(State() / "recovery-1.lock");
  ASSERT_TRUE(WriteFileBytes(Kept(), "whatever the other one keeps"));
  GivenUnsavedWork();
  EXPECT_THAT(user.Questions(), IsEmpty()) << "what a running copy keeps is nobody else's";
  EXPECT_EQ(BytesOf(Kept()), "whatever the other one keeps");
  EXPECT_TRUE(fs::exists(Kept(2)));
}

TEST_F(CrashRecovery, OfANewerVersionIsLeftWhereItIs) {
  fs::create_directories(State());
  const std::string newer = "<modelist recovery='2'/>";
  ASSERT_TRUE(WriteFileBytes(Kept(), newer));
  user.Start();
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_THAT(user.Log(), HasSubstr("recovery-1.xml was left by a newer version of the program"));
  Change();
  Rest();
  EXPECT_EQ(BytesOf(Kept()), newer);
  EXPECT_TRUE(fs::exists(Kept(2)));
}

TEST_F(CrashRecovery, ThatIsBrokenIsPutAside) {
  for (const char* const bytes : {"", "noise", "<modelist recovery='1'/>", "<modelist"}) {
    fs::create_directories(State());
    ASSERT_TRUE(WriteFileBytes(Kept(), bytes));
    user.Start();
    EXPECT_THAT(user.Questions(), IsEmpty());
    EXPECT_THAT(user.Log(), HasSubstr("recovery-1.broken"));
    EXPECT_FALSE(fs::exists(Kept()));
    EXPECT_EQ(BytesOf(State() / "recovery-1.broken"), bytes);
    user.Close();
    user.Start();
    EXPECT_THAT(user.Log(), Not(HasSubstr("recovery-1")));
    user.Close();
  }
}

TEST_F(CrashRecovery, WithoutAFolderForItTheUserIsToldOnce) {
  ASSERT_TRUE(WriteFileBytes(State(), "in the way"));
  GivenTheProgramRuns();
  Change();
  Rest();
  user.Wait(30);
  const std::string log = user.Log();
  const std::string told = "What is not saved cannot be kept for the case of a crash: ";
  EXPECT_THAT(log, HasSubstr(told));
  EXPECT_EQ(log.find(told), log.rfind(told));
  fs::remove(State());
  user.Wait(11);
  user.State().document->SettleRecovery();
  EXPECT_TRUE(fs::exists(Kept())) << "it is tried again";
}

TEST_F(CrashRecovery, ComesBeforeTheCopyOfAFailedSave) {
  GivenUnsavedWork();
  Crash();
  GivenFile("LumarineRecovery-1.xml",
            "<modelist file='x'><mode name='a'><channel/><channel/><channel/>"
            "<channel/><channel/></mode></modelist>");
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_) << "and the copy waits for the next start";
}

TEST_F(CrashRecovery, TheSelectedModeIsTheOneThatWas) {
  GivenUnsavedWork();
  user.ClickRow(app::Control::ModeList, 1);
  Rest();
  Crash();
  StartAgain({Answer::Yes});
  EXPECT_EQ(Program().currentMode, 1);
  EXPECT_THAT(user.SelectedRows(app::Control::ModeList), ElementsAre(1));
}

TEST_F(CrashRecovery, AfterAFileThatSomebodyElseHasChangedTheSaveAsks) {
  GivenUnsavedWork();
  Crash();
  ASSERT_TRUE(SaveProgram(TCBase::Program::NewProgram(), file_));
  const std::string theirs = BytesOf(file_);
  StartAgain({Answer::Yes});
  user.WillAnswer(Answer::Cancel);
  user.Choose(command::kSaveProgram);
  EXPECT_EQ(user.Questions().back().title, u"File has changed");
  EXPECT_EQ(BytesOf(file_), theirs);
}

// Two copies of the program with the same file, or any other program.

class ChangedFile : public CrashRecovery {
 protected:
  void SetUp() override {
    CrashRecovery::SetUp();
    GivenUnsavedWork();
    ModeListView other = TCBase::Program::NewProgram();
    other.modes[0].name = "Theirs";
    ASSERT_TRUE(SaveProgram(other, file_));
    theirs_ = BytesOf(file_);
  }
  std::string theirs_;
};

TEST_F(ChangedFile, IsNotReplacedUnasked) {
  user.WillAnswer(Answer::Cancel);
  user.Choose(command::kSaveProgram);
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"File has changed");
  EXPECT_EQ(Utf8FromWide(asked[0].text), Utf8FromPath(file_) +
                                             " was changed by another program since it was opened here. "
                                             "Replace it?\r\n\"No\" asks for another name.");
  EXPECT_TRUE(asked[0].enterSaysNo);
  EXPECT_EQ(BytesOf(file_), theirs_);
  user.WillAnswer(Answer::Cancel);
  user.Close();
  EXPECT_TRUE(user.IsRunning()) << "it still counts as modified";
}

TEST_F(ChangedFile, IsReplacedIfTheUserSaysSo) {
  user.WillAnswer(Answer::Yes);
  user.Choose(command::kSaveProgram);
  EXPECT_NE(BytesOf(file_), theirs_);
  user.Choose(command::kSaveProgram);
  EXPECT_THAT(user.Questions(), SizeIs(1)) << "and the question does not come again";
}

TEST_F(ChangedFile, NoAsksForAnotherName) {
  user.WillAnswer(Answer::No);
  user.WillPick({folder / "Mine.xml"});
  user.Choose(command::kSaveProgram);
  EXPECT_EQ(BytesOf(file_), theirs_);
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(folder / "Mine.xml"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(ChangedFile, IsAskedAboutOnTheWayOutToo) {
  user.WillAnswer(Answer::Yes);     // Save changes?
  user.WillAnswer(Answer::Cancel);  // Replace it?
  user.Close();
  EXPECT_TRUE(user.IsRunning());
  EXPECT_EQ(BytesOf(file_), theirs_);
}

TEST_F(ChangedFile, IsAskedAboutWhereItIsChosenByNameToo) {
  user.WillPick({file_});
  user.WillAnswer(Answer::No);
  user.Choose(command::kSaveProgramAs);
  EXPECT_EQ(user.Questions().back().title, u"File exists");
  EXPECT_EQ(BytesOf(file_), theirs_);
}

TEST_F(CrashRecovery, AFileThatWasTouchedOrIsGoneIsNoChangedOne) {
  GivenUnsavedWork();
  fs::last_write_time(file_, fs::file_time_type::clock::now());
  user.Choose(command::kSaveProgram);
  Change();
  user.Choose(command::kUndo);
  user.SendCommand(app::control_id::kDeleteMode);
  fs::remove(file_);
  user.Choose(command::kSaveProgram);
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_TRUE(fs::exists(file_));
}

}  // namespace
