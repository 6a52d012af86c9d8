// New, load and save, and the question before work is lost.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/document/program_document.h"
#include "chart/chart_layout.h"
#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"

namespace {

using app::Answer;
using app::Control;
using TCBase::Program::ModeListView;
using TCBase::Program::NewProgram;
using TCBase::Program::SaveProgram;
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
  // Takes hold of the second step of the first channel, drags it by so many pixels, and lets go.
  void ClickAStep(int pixels = 0) {
    app::ChartWindow& chart = user.GetDesktop().application->chartWindow;
    const TCBase::Program::Step& step = Channel(0).at(1);
    const UX::Rect lane = user.State().chartLayout.LaneRect(0);
    const int x = UX::TimeToX(lane, Program(), (std::int64_t{step.hour} * 60 + step.minute) * 60);
    const int y = UX::PercentToY(lane, step.value);
    chart.OnLeftDown(x, y);
    if (pixels != 0) chart.OnMouseMove(x + pixels, y, true);
    chart.OnLeftUp(x + pixels, y);
    user.Settle();
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

TEST_F(Document, TheControlsShowWhatWasLoaded) {
  ModeListView tank = NewProgram();
  tank.modes.front().name = "Tank";
  tank.modes.front().channels[2] = {{8, 0, 30.0F}, {20, 0, 10.0F}};
  for (const int lane : {0, 1, 3, 4}) {
    tank.modes.front().channels[static_cast<std::size_t>(lane)] = {{12, 0, 7.0F}};
  }
  const std::filesystem::path file = folder / "Tank.xml";
  ASSERT_TRUE(SaveProgram(tank, file));
  GivenTheProgramRuns();
  GivenSteps(2, {{480, 90.0F}});
  user.State().powerControl->Update();
  user.SendCommand(command::kZoomIn);
  user.SendCommand(command::kZoomIn);
  user.MoveMouse(452, 60);
  const std::string time = user.Text(Control::TimeLabel);
  const std::string power = user.Text(Control::PowerLabel);
  user.WillAnswer(Answer::No);
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  EXPECT_THAT(user.Text(Control::ModeDescription), testing::StartsWith("Mode Tank (Steps: "));
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 30);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  EXPECT_EQ(user.GetDesktop().controls.scrollBar.page, 1440);
  EXPECT_EQ(user.Text(Control::TimeLabel), time);
  EXPECT_NE(user.Text(Control::PowerLabel), power);
  EXPECT_EQ(user.Text(Control::PowerLabel), "7 7 25 7 7");
}

TEST_F(Document, TheControlsShowANewProgramToo) {
  GivenTheProgramRuns();
  GivenSteps(2, {{480, 55.0F}});
  user.State().powerControl->Update();
  user.SendCommand(command::kZoomIn);
  user.WillAnswer(Answer::No);
  ASSERT_TRUE(user.Choose(command::kNewProgram));
  EXPECT_THAT(user.Text(Control::ModeDescription), testing::StartsWith("Mode Normal (Steps: 12)"));
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 90);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
}

TEST_F(Document, TheReadOutsOfADemoAreNotTheProgramsToChange) {
  GivenTheProgramRuns();
  const std::string power = user.Text(Control::PowerLabel);
  user.Choose(command::kNewProgram);
  EXPECT_EQ(user.Text(Control::PowerLabel), power);
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
  user.WillAnswer(Answer::Yes);
  user.WillAnswer(Answer::Ok);  // that it was not saved
  user.Close();
  ASSERT_TRUE(user.IsRunning());
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

TEST_F(Document, NoUndoCrossesIntoAnotherFile) {
  const std::filesystem::path first = GivenFile("First");
  for (const bool isNew : {false, true}) {
    GivenLoaded("Second");
    user.WillPick({first});
    user.Choose(command::kLoadProgram);
    ClickAStep();
    if (isNew) {
      user.Choose(command::kNewProgram);
    } else {
      user.WillPick({file_});
      user.Choose(command::kLoadProgram);
    }
    const auto opened = Program();
    ClickAStep(60);
    EXPECT_FALSE(Program() == opened);
    user.Choose(command::kUndo);
    EXPECT_TRUE(Program() == opened) << "not the first program, which the click had kept";
    user.Choose(command::kUndo);
    EXPECT_TRUE(Program() == opened) << "and nothing lies behind it";
    if (isNew) user.WillAnswer(Answer::No);
    user.Close();
  }
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
  EXPECT_EQ(NewLog(), "Error loading program " + Utf8FromPath(folder / "noise.xml") +
                          "\nThe file is not well-formed XML\n");
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
  user.WillAnswer(Answer::Ok);  // that it was not saved
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

TEST_F(Document, ASaveAsOverAnotherFileAsksFirst) {
  GivenAnEditedProgram();
  const std::filesystem::path other = GivenFile("Other", "precious");
  user.WillPick({other});
  user.WillAnswer(Answer::No);
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"File exists");
  EXPECT_EQ(Utf8FromWide(asked[0].text), Utf8FromPath(other) + " exists. Replace it?");
  EXPECT_EQ(asked[0].buttons, app::Buttons::YesNo);
  EXPECT_TRUE(asked[0].enterSaysNo);
  EXPECT_EQ(BytesOf(other), "precious");
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_FALSE(ClosesWith(Answer::Cancel)) << "nothing was saved";

  user.WillPick({other});
  user.WillAnswer(Answer::Yes);
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_THAT(BytesOf(other), HasSubstr("<modelist>"));
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(other));
}

TEST_F(Document, YesAndThenNoToReplacingLeavesTheWindow) {
  GivenAnEditedProgram();
  const std::filesystem::path other = GivenFile("Other", "precious");
  user.WillAnswer(Answer::Yes);
  user.WillPick({other});
  user.WillAnswer(Answer::No);
  user.Close();
  EXPECT_TRUE(user.IsRunning());
  EXPECT_EQ(BytesOf(other), "precious");
}

TEST_F(Document, ASaveAsOverTheOpenFileIsAPlainSave) {
  GivenLoaded("Tank");
  const std::string before = BytesOf(file_);
  Edit();
  user.WillPick({folder.path() / "." / "Tank.xml"});
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_THAT(user.Questions(), SizeIs(0));
  EXPECT_NE(BytesOf(file_), before);
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
