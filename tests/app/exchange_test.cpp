// Import and export of modes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "common/files.h"
#include "program/tmf.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"

namespace {

using app::Control;
using testing::HasSubstr;
using testing::SizeIs;
namespace command = app::command;

class Exchange : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }
  std::string TmfOfTheMode() {
    std::string data;
    TCBase::Program::WriteTmf(Mode(), data);
    return data;
  }
};

TEST_F(Exchange, ExportOffersTheModesNameAndWrites) {
  const std::string expected = TmfOfTheMode();
  const std::filesystem::path file = folder.path() / "out.tmf";
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kExportTmf));
  EXPECT_EQ(BytesOf(file), expected);
  const auto& asked = user.GetDesktop().questions.filesAsked.back();
  EXPECT_TRUE(asked.save);
  EXPECT_EQ(asked.filter.name, u"TMF PLed File");
  EXPECT_EQ(asked.filter.pattern, u"*.TMF");
  EXPECT_EQ(asked.startName, PathFromUtf8(Mode().name));
  EXPECT_EQ(NewLog(), "Exported " + Utf8FromPath(file) + "\n");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(Exchange, AnExportOverAFileAsksFirst) {
  for (const int number : {command::kExportTmf, command::kExportLmf, command::kExportRaw}) {
    const std::filesystem::path file = GivenFile("taken", "precious");
    user.WillPick({file});
    user.WillAnswer(app::Answer::No);
    ASSERT_TRUE(user.Choose(number));
    ASSERT_THAT(user.Questions(), SizeIs(1));
    EXPECT_EQ(BytesOf(file), "precious");
    EXPECT_EQ(NewLog(), "");
    user.WillPick({file});
    user.WillAnswer(app::Answer::Yes);
    ASSERT_TRUE(user.Choose(number));
    EXPECT_NE(BytesOf(file), "precious");
    user.Questions();
    NewLog();
  }
}

TEST_F(Exchange, EachFormatHasItsSizeAndName) {
  const struct {
    int command;
    const char16_t* name;
    std::size_t size;
  } rows[] = {{command::kExportLmf, u"LMF LEDControl File", 960},
              {command::kExportRaw, u"RAW Channel File", 432000}};
  for (const auto& row : rows) {
    const std::filesystem::path file = folder.path() / std::to_string(row.command);
    user.WillPick({file});
    ASSERT_TRUE(user.Choose(row.command));
    EXPECT_EQ(user.GetDesktop().questions.filesAsked.back().filter.name, row.name);
    EXPECT_THAT(BytesOf(file), SizeIs(row.size));
  }
}

TEST_F(Exchange, AnExportThatCannotBeWrittenSaysSo) {
  user.WillPick({folder.path() / "missing" / "out.tmf"});
  ASSERT_TRUE(user.Choose(command::kExportTmf));
  const std::string log = NewLog();
  EXPECT_THAT(log, HasSubstr("Error creating file "));
  EXPECT_THAT(log, testing::Not(HasSubstr("Exported")));
}

TEST_F(Exchange, ImportOfThreeFilesOneBadAppendsTwoAndShowsTheLast) {
  GivenSelection(2, 0);
  const std::string mode = TmfOfTheMode();
  const std::size_t before = Program().modes.size();
  user.WillPick({GivenFile("Dawn.tmf", mode), GivenFile("Bad.tmf", "x"), GivenFile("Příliš.dusk.tmf", mode)});
  user.GetDesktop().chart.invalidated.clear();
  ASSERT_TRUE(user.Choose(command::kImportTmf));
  const UX::Rect chart = user.Place(Control::ChartWindow);
  EXPECT_THAT(user.GetDesktop().chart.invalidated,
              testing::Contains(UX::Rect{0, 0, chart.width, chart.height}));
  EXPECT_TRUE(user.GetDesktop().questions.filesAsked.back().multiple);
  ASSERT_EQ(Program().modes.size(), before + 2);
  EXPECT_EQ(Program().modes[before].name, "Dawn");
  EXPECT_EQ(Mode().name, "Příliš.dusk");
  EXPECT_EQ(Mode().description, "");
  EXPECT_EQ(Program().currentMode, static_cast<int>(before) + 1);
  EXPECT_EQ(user.State().selection.channel, -1);
  EXPECT_THAT(user.List(Control::ModeList), SizeIs(before + 2));
  const std::string log = NewLog();
  EXPECT_THAT(log, HasSubstr("Loading "));
  EXPECT_THAT(log, HasSubstr("Invalid file format\n"));
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Program().modes.size(), before);
}

TEST_F(Exchange, AFileThatCannotBeReadIsPassedOver) {
  const std::size_t before = Program().modes.size();
  user.WillPick({folder.path() / "none.lmf", GivenFile("Day.lmf", std::string(960, '\0'))});
  ASSERT_TRUE(user.Choose(command::kImportLmf));
  EXPECT_EQ(Program().modes.size(), before + 1);
  EXPECT_EQ(Mode().name, "Day");
  EXPECT_THAT(NewLog(), HasSubstr("Error opening file\n"));
}

TEST_F(Exchange, BadFilesAloneShowTheLastModeAllTheSame) {
  user.WillPick({GivenFile("Bad.tmf", std::string(12, '\0'))});
  ASSERT_TRUE(user.Choose(command::kImportTmf));
  EXPECT_EQ(Program().currentMode, static_cast<int>(Program().modes.size()) - 1);
}

TEST_F(Exchange, AnImportThatIsCancelledLeavesASnapshotThatChangesNothing) {
  ASSERT_GT(Program().modes.size(), 1U);
  GivenSelection(2, 0);
  const auto before = Program();
  user.GetDesktop().chart.invalidated.clear();
  user.WillPick({});
  ASSERT_TRUE(user.Choose(command::kImportTmf));
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_EQ(Program().currentMode, 0) << "the last mode is shown only after an import";
  EXPECT_EQ(user.State().selection.channel, 2);
  EXPECT_THAT(user.SelectedRows(Control::ModeList), testing::ElementsAre(0));
  EXPECT_THAT(user.GetDesktop().chart.invalidated, SizeIs(0));
  user.Choose(command::kUndo);
  EXPECT_EQ(NewLog(), "Undo\n");
  EXPECT_TRUE(Program() == before);
}

TEST_F(Exchange, ARandomModeIsShownAndWrittenIntoTheWorkingFolder) {
  const std::filesystem::path home = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  const std::string name = "Rand_" + std::to_string(Program().modes.size());
  user.SendCommand(command::kRandomMode);
  std::filesystem::current_path(home);
  EXPECT_EQ(Mode().name, name);
  EXPECT_EQ(BytesOf(folder.path() / (name + ".tmf")), TmfOfTheMode());
}

}  // namespace
