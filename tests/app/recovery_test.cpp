// Programs whose save failed: what the user is told, the copy that is kept, and its way back at the next
// start.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/document/recovery_copies.h"
#include "common/files.h"
#include "program/program_file.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"

namespace {

namespace fs = std::filesystem;
namespace command = app::command;
using app::Answer;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class Recovery : public AppTest {
 protected:
  // A program of that name in a folder that is gone when it is saved; answers the box that says so.
  void GivenAFailedSave(const std::string& name = "Tank") {
    if (!user.IsRunning()) GivenTheProgramRuns();
    fs::create_directory(folder / "stick");
    fs::rename(GivenFile(name), File(name));
    user.WillPick({File(name)});
    user.Choose(command::kLoadProgram);
    user.SendCommand(command::kEndpointStart);
    unsaved_ = Program();
    fs::remove_all(folder / "stick");
    NewLog();
    user.WillAnswer(Answer::Ok);
    user.Choose(command::kSaveProgram);
  }
  void GivenTheFolderIsBack() { fs::create_directory(folder / "stick"); }
  // The program is closed, without a question since it counts as saved, and started again.
  void StartAgain(std::initializer_list<Answer> answers) {
    if (user.IsRunning()) user.Close();
    ASSERT_FALSE(user.IsRunning());
    for (const Answer answer : answers) user.WillAnswer(answer);
    user.Start();
  }
  fs::path File(const std::string& name = "Tank") const { return folder / "stick" / (name + ".xml"); }
  fs::path Copy(int number = 1) const {
    return folder / ("LumarineRecovery-" + std::to_string(number) + ".xml");
  }
  static TCBase::Program::ModeListView ProgramIn(const fs::path& path) {
    TCBase::Program::ModeListView program;
    EXPECT_TRUE(LoadProgram(path, program));
    return program;
  }

  TCBase::Program::ModeListView unsaved_;
};

TEST_F(Recovery, AFailedSaveIsToldWithItsReasonAndACopyIsKept) {
  GivenAFailedSave();
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Program not saved");
  EXPECT_EQ(Utf8FromWide(asked[0].text),
            Utf8FromPath(File()) +
                " could not be saved: No such file or directory\r\n\r\nA copy is kept in " +
                Utf8FromPath(Copy()) + ". The next start offers to open it.");
  EXPECT_EQ(asked[0].buttons, app::Buttons::Ok);
  EXPECT_EQ(asked[0].icon, app::Icon::Error);
  EXPECT_TRUE(ProgramIn(Copy()) == unsaved_);
}

TEST_F(Recovery, ASaveThatWorksTellsAndKeepsNothing) {
  GivenAnEditedProgram();
  user.WillPick({folder / "Tank.xml"});
  user.Choose(command::kSaveProgramAs);
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_FALSE(fs::exists(Copy()));
  StartAgain({});
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(Recovery, WhatWasClosedAfterAFailedSaveComesBack) {
  GivenAFailedSave();
  StartAgain({Answer::Yes});
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Recovered program");
  EXPECT_EQ(asked[0].buttons, app::Buttons::YesNoCancel);
  EXPECT_THAT(Utf8FromWide(asked[0].text),
              StartsWith(Utf8FromPath(File()) + " could not be saved, but a copy of it was kept."));
  EXPECT_TRUE(Program() == unsaved_);
  EXPECT_EQ(user.Title(), "Lumarine - New program") << "no file of that name is replaced unasked";
  EXPECT_THAT(user.List(app::Control::ModeList), testing::Contains("Tank"));
  EXPECT_TRUE(fs::exists(Copy())) << "until it is saved";
  user.WillAnswer(Answer::Cancel);
  user.Close();
  EXPECT_TRUE(user.IsRunning()) << "it is not saved";
}

// A question that came before it would stand over lanes that have not spread out yet.
TEST_F(Recovery, TheQuestionComesWhenTheTimerMovesTheLanes) {
  GivenAFailedSave();
  StartAgain({Answer::Yes});
  const std::vector<std::string>& journal = user.GetDesktop().journal;
  const auto timer = std::find(journal.begin(), journal.end(), "start timer 300 100");
  ASSERT_NE(timer, journal.end());
  EXPECT_THAT(std::vector<std::string>(timer, journal.end()),
              testing::Contains("title Lumarine - New program"))
      << "the copy is opened behind it";
}

TEST_F(Recovery, ASaveOnTheWayOutThatFailsLosesNothing) {
  GivenTheProgramRuns();
  user.SendCommand(command::kAlign60);
  unsaved_ = Program();
  user.WillAnswer(Answer::Yes);
  user.WillPick({folder / "stick" / "Tank.xml"});
  user.WillAnswer(Answer::Ok);
  user.Close();
  ASSERT_TRUE(user.IsRunning());
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  user.WillAnswer(Answer::No);
  user.Close();
}

TEST_F(Recovery, TheCopyGoesWhenItsProgramIsSaved) {
  GivenAFailedSave();
  StartAgain({Answer::Yes});
  user.WillPick({folder / "Saved.xml"});
  user.Choose(command::kSaveProgram);
  EXPECT_TRUE(ProgramIn(folder / "Saved.xml") == unsaved_);
  EXPECT_FALSE(fs::exists(Copy()));
  StartAgain({});
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(Recovery, TheCopyGoesWhenASecondTryToSaveWorks) {
  GivenAFailedSave();
  GivenTheFolderIsBack();
  user.Choose(command::kSaveProgram);
  EXPECT_TRUE(ProgramIn(File()) == unsaved_);
  EXPECT_FALSE(fs::exists(Copy()));
}

TEST_F(Recovery, ARecoveredProgramThatIsNotSavedIsOfferedAgain) {
  GivenAFailedSave();
  StartAgain({Answer::Yes});
  user.WillAnswer(Answer::No);
  user.Close();
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  user.WillAnswer(Answer::No);
  user.Close();
}

TEST_F(Recovery, NoDeletesTheCopyAndCancelKeepsIt) {
  GivenAFailedSave();
  StartAgain({Answer::Cancel});
  EXPECT_FALSE(Program() == unsaved_);
  EXPECT_TRUE(fs::exists(Copy()));
  StartAgain({Answer::No});
  EXPECT_FALSE(Program() == unsaved_);
  EXPECT_FALSE(fs::exists(Copy()));
  StartAgain({});
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(Recovery, ASecondFailedSaveOfAProgramWritesTheSameCopyAnew) {
  GivenAFailedSave();
  user.SendCommand(command::kAlign60);
  user.WillAnswer(Answer::Ok);
  user.Choose(command::kSaveProgram);
  EXPECT_TRUE(ProgramIn(Copy()) == Program());
  EXPECT_FALSE(fs::exists(Copy(2)));
}

TEST_F(Recovery, TwoProgramsHaveTwoCopiesAndBothComeBack) {
  GivenAFailedSave("First");
  const auto first = unsaved_;
  GivenAFailedSave("Second");
  EXPECT_TRUE(ProgramIn(Copy(1)) == first);
  EXPECT_TRUE(ProgramIn(Copy(2)) == unsaved_);
  StartAgain({Answer::Cancel, Answer::Yes});
  EXPECT_TRUE(Program() == unsaved_);
  user.WillPick({folder / "second.xml"});
  user.Choose(command::kSaveProgram);
  EXPECT_TRUE(fs::exists(Copy(1)));
  EXPECT_FALSE(fs::exists(Copy(2)));
  StartAgain({Answer::Yes});
  EXPECT_TRUE(Program() == first);
  user.WillAnswer(Answer::No);
  user.Close();
}

TEST_F(Recovery, ASaveOfAnotherProgramLeavesTheCopy) {
  GivenAFailedSave();
  user.Choose(command::kNewProgram);
  user.WillPick({folder / "Other.xml"});
  user.Choose(command::kSaveProgramAs);
  EXPECT_TRUE(fs::exists(Copy()));
}

TEST_F(Recovery, WithoutAPlaceForTheCopyTheProgramIsNotGivenUpUnasked) {
  GivenTheProgramRuns();
  user.SendCommand(command::kAlign60);
  for (int number = 1; number <= 99; ++number) fs::create_directory(Copy(number));
  const fs::path file = folder / "stick" / "Tank.xml";
  user.WillPick({file});
  user.WillAnswer(Answer::Ok);
  user.Choose(command::kSaveProgramAs);
  EXPECT_THAT(Utf8FromWide(user.Questions().at(0).text), HasSubstr("No copy could be kept either."));
  user.WillAnswer(Answer::Cancel);
  user.Close();
  ASSERT_TRUE(user.IsRunning());
  EXPECT_EQ(user.Questions().at(0).title, u"Program modified");
  GivenTheFolderIsBack();
  user.Choose(command::kSaveProgram);
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "it is saved now";
}

TEST_F(Recovery, WhereTheCopyIsGoneTheProgramIsNotGivenUpUnasked) {
  GivenAFailedSave();
  fs::remove(Copy());
  user.WillAnswer(Answer::Cancel);
  user.Close();
  ASSERT_TRUE(user.IsRunning());
  EXPECT_EQ(user.Questions().back().title, u"Program modified");
}

TEST_F(Recovery, ASaveOverTheCopyItselfStays) {
  GivenAFailedSave();
  StartAgain({Answer::Yes});
  user.WillPick({Copy()});
  user.WillAnswer(Answer::Yes);
  user.Choose(command::kSaveProgramAs);
  EXPECT_TRUE(ProgramIn(Copy()) == unsaved_);
  StartAgain({});
  EXPECT_TRUE(Program() == unsaved_) << "as the last file, and not offered as a copy";
}

TEST_F(Recovery, ACopyThatIsOpenIsNotOffered) {
  GivenAFailedSave();
  user.WillPick({Copy()});
  user.Choose(command::kLoadProgram);
  StartAgain({});
  EXPECT_TRUE(Program() == unsaved_);
  EXPECT_TRUE(fs::exists(Copy()));
}

TEST_F(Recovery, ACopyThatCannotBeReadIsNotOffered) {
  GivenFile("LumarineRecovery-1.xml", "noise");
  GivenTheProgramRuns();
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_TRUE(fs::exists(Copy()));
}

TEST_F(Recovery, ACopyIsAProgramFileThatCanBeLoadedByHand) {
  GivenAFailedSave();
  user.WillPick({Copy()});
  user.Choose(command::kLoadProgram);
  EXPECT_TRUE(Program() == unsaved_);
}

}  // namespace
