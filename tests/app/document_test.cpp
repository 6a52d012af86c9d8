// New, load and save, and the question before work is lost.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/program_document.h"
#include "common/files.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"

namespace {

using app::Answer;
using app::Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
namespace command = app::command;

class Document : public AppTest {
 protected:
  void GivenLoaded(const std::string& name) {
    GivenTheProgramRuns();
    file_ = GivenFile(name);
    user.WillPick({file_});
    user.Choose(command::kLoadProgram);
    ASSERT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file_));
    NewLog();
  }
  void Edit() {
    user.SendCommand(command::kEndpointStart);
    NewLog();
  }
  // Whether closing ends the program, with this answer if there is a question.
  bool ClosesWith(Answer answer) {
    user.WillAnswer(answer);
    user.Close();
    return !user.IsRunning();
  }

  std::filesystem::path file_;
};

TEST_F(Document, AFreshStartIsLeftWithoutAQuestion) {
  GivenTheProgramRuns();
  user.Choose(command::kExit);
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Document, ANewProgramAfterALoadedOneIsAChange) {
  // The baseline stays the loaded program: required though odd.
  GivenLoaded("Tank");
  user.Choose(command::kNewProgram);
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_FALSE(ClosesWith(Answer::Cancel));
  EXPECT_TRUE(ClosesWith(Answer::No));
}

TEST_F(Document, WhatWasUndoneToTheLastSaveNeedsNoQuestion) {
  GivenLoaded("Tank");
  Edit();
  user.Choose(command::kSaveProgram);
  user.SendCommand(command::kEndpointEnd);
  user.SendCommand(command::kAlign60);
  user.Choose(command::kUndo);
  user.Choose(command::kUndo);
  user.Choose(command::kExit);
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Document, AChannelsDescriptionIsNoChange) {
  GivenLoaded("Tank");
  Program().channelInfos[1].description = "lost unless saved";
  Program().viewStart = 3600;
  Program().currentMode = 1;
  user.Choose(command::kExit);
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Document, CancelLeavesTheWindow) {
  GivenAnEditedProgram();
  EXPECT_FALSE(ClosesWith(Answer::Cancel));
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Program modified");
  EXPECT_EQ(asked[0].text, u"Save changes?");
  EXPECT_EQ(asked[0].buttons, app::Buttons::YesNoCancel);
  EXPECT_TRUE(ClosesWith(Answer::No));
}

TEST_F(Document, NoLeavesTheFileAsItWas) {
  GivenLoaded("Tank");
  const std::string before = BytesOf(file_);
  Edit();
  EXPECT_TRUE(ClosesWith(Answer::No));
  EXPECT_EQ(BytesOf(file_), before);
}

TEST_F(Document, YesSavesToTheFile) {
  GivenLoaded("Tank");
  const std::string before = BytesOf(file_);
  Edit();
  EXPECT_TRUE(ClosesWith(Answer::Yes));
  EXPECT_NE(BytesOf(file_), before);
}

TEST_F(Document, YesWithoutAFileAsksForOne) {
  GivenAnEditedProgram();
  user.WillPick({folder / "New tank.xml"});
  EXPECT_TRUE(ClosesWith(Answer::Yes));
  EXPECT_TRUE(std::filesystem::exists(folder / "New tank.xml"));
}

TEST_F(Document, YesWithoutAFileAndNoNameLeavesTheWindow) {
  GivenAnEditedProgram();
  user.WillPick({});
  EXPECT_FALSE(ClosesWith(Answer::Yes));
  EXPECT_EQ(user.Title(), "Lumarine - New program");
}

TEST_F(Document, YesWhereTheFileTakesNothingLeavesTheWindowOnce) {
  GivenTheProgramRuns();
  std::filesystem::create_directory(folder / "gone");
  std::filesystem::copy_file(GivenFile("Tank"), folder / "gone" / "Tank.xml");
  user.WillPick({folder / "gone" / "Tank.xml"});
  user.Choose(command::kLoadProgram);
  std::filesystem::remove_all(folder / "gone");
  Edit();
  EXPECT_FALSE(ClosesWith(Answer::Yes));
  const std::string log = NewLog();
  const std::string path = Utf8FromPath(folder / "gone" / "Tank.xml");
  EXPECT_THAT(log, HasSubstr("Error creating file " + path + ", error: "));
  EXPECT_THAT(log, HasSubstr("Error saving program " + path + "\n"));
  // It counts as saved all the same, since the baseline was brought up before the write.
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Document, NewAsksFirst) {
  GivenAnEditedProgram();
  const auto edited = Program();
  user.WillAnswer(Answer::Cancel);
  user.Choose(command::kNewProgram);
  EXPECT_TRUE(Program() == edited);
  user.WillAnswer(Answer::No);
  NewJournal();
  user.Choose(command::kNewProgram);
  EXPECT_FALSE(Program() == edited);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_THAT(NewJournal(), ElementsAre("title Lumarine - New program", "renderer: rebuild"));
}

TEST_F(Document, NewCarriesNothingOver) {
  GivenLoaded("Tank");
  Program().channelInfos[0].name = "Blue";
  Program().viewStart = 3600;
  Program().currentMode = 1;
  user.WillAnswer(Answer::No);
  user.Choose(command::kNewProgram);
  EXPECT_EQ(Program().channelInfos[0].name, "");
  EXPECT_EQ(Program().viewStart, 0);
  EXPECT_EQ(Program().currentMode, 0);
  EXPECT_EQ(user.GetSettings().GetValue("last_open_file"), "");
  user.WillAnswer(Answer::No);
  user.Close();
}

TEST_F(Document, LoadAsksForAProgram) {
  GivenLoaded("Tank");
  const auto& asked = user.GetDesktop().questions.filesAsked;
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].filter.name, u"XML Program");
  EXPECT_EQ(asked[0].filter.pattern, u"*.XML");
  EXPECT_FALSE(asked[0].save);
  EXPECT_FALSE(asked[0].multiple);
}

TEST_F(Document, LoadResetsWhatBelongsToTheOldProgram) {
  GivenAnEditedProgram();
  user.ClickRow(Control::ModeList, 1);
  file_ = GivenFile("Tank");
  user.WillAnswer(Answer::No);
  user.WillPick({file_});
  user.Choose(command::kLoadProgram);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(Program().currentMode, 0);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Tank", "AlwaysOn"));
  EXPECT_THAT(NewLog(), HasSubstr("Loaded program file " + Utf8FromPath(file_) + "\n"));
  EXPECT_EQ(user.GetSettings().GetValue("last_open_file"), Utf8FromPath(file_));
}

TEST_F(Document, ALoadThatFailsLeavesEverythingButTheChart) {
  GivenLoaded("Tank");
  Edit();
  const auto edited = Program();
  GivenFile("noise.xml", "noise");
  user.WillAnswer(Answer::No);
  user.WillPick({folder / "noise.xml"});
  NewJournal();
  user.Choose(command::kLoadProgram);
  EXPECT_TRUE(Program() == edited);
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file_));
  EXPECT_EQ(NewLog(), "Error loading program " + Utf8FromPath(folder / "noise.xml") + "\n");
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
}

TEST_F(Document, ALoadThatIsCancelledRebuildsTheChartAllTheSame) {
  GivenAnEditedProgram();
  NewJournal();
  user.WillAnswer(Answer::Cancel);
  user.Choose(command::kLoadProgram);
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
  user.WillAnswer(Answer::No);
  user.WillPick({});
  user.Choose(command::kLoadProgram);
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
}

TEST_F(Document, SaveWritesToTheFileWithoutAsking) {
  GivenLoaded("Tank");
  Edit();
  user.Choose(command::kSaveProgram);
  EXPECT_EQ(NewLog(), "Saved program " + Utf8FromPath(file_) + "\n");
  EXPECT_THAT(user.GetDesktop().questions.filesAsked, SizeIs(1)) << "that of the load";
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Document, SaveWithoutAFileAsksForOne) {
  GivenAnEditedProgram();
  user.WillPick({folder / "Grüße.xml"});
  user.Choose(command::kSaveProgram);
  const auto& asked = user.GetDesktop().questions.filesAsked;
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_TRUE(asked[0].save);
  EXPECT_EQ(asked[0].startName, "");
  EXPECT_EQ(asked[0].filter.name, u"XML Program");
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(folder / "Grüße.xml"));
  EXPECT_EQ(user.GetSettings().GetValue("last_open_file"), Utf8FromPath(folder / "Grüße.xml"));
}

TEST_F(Document, ASaveAsThatFailsHasChangedTheFileAllTheSame) {
  GivenAnEditedProgram();
  const std::filesystem::path path = folder / "no such folder" / "Tank.xml";
  user.WillPick({path});
  user.Choose(command::kSaveProgramAs);
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(path));
  EXPECT_THAT(NewLog(), HasSubstr("Error saving program "));
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "and the program counts as saved";
}

TEST_F(Document, ASaveAsThatIsCancelledChangesNothing) {
  GivenAnEditedProgram();
  user.WillPick({});
  user.Choose(command::kSaveProgramAs);
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_EQ(NewLog(), "");
  EXPECT_FALSE(ClosesWith(Answer::Cancel));
  EXPECT_TRUE(ClosesWith(Answer::No));
}

TEST_F(Document, SavingLeavesTheHistory) {
  GivenLoaded("Tank");
  Edit();
  user.Choose(command::kSaveProgram);
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(Document, OnlySettingAPathWritesTheTitle) {
  GivenTheProgramRuns();
  user.GetDesktop().SetTitle(u"Lumarine - Neues Programm");
  user.State().ctrls->TranslateLabels();
  user.State().menuBar->ApplyTexts();
  EXPECT_EQ(user.Title(), "Lumarine - Neues Programm") << "it stays in the language that it was written in";
  user.State().document->SetPath({});
  EXPECT_EQ(user.Title(), "Lumarine - New program");
}

}  // namespace
