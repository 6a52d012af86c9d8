// Programs to start from, in the File menu.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "common/message.h"
#include "program/program_file.h"
#include "program/templates.h"
#include "tests/app/app_test.h"

namespace {

using app::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
namespace command = app::command;
using TCBase::Program::NewProgramFrom;
using TCBase::Program::ProgramTemplate;
using TCBase::Program::ProgramTemplates;

constexpr int kCommands[] = {command::kReefTemplate, command::kPlantedTankTemplate,
                             command::kSeedlingsTemplate, command::kRefugiumTemplate,
                             command::kBlackwaterTemplate};

class Templates : public AppTest {};

TEST_F(Templates, EachHasAnItemOfItsNameBehindAllOthersOfTheMenu) {
  const app::MenuEntry submenu = app::MenuTable()[app::menu::kFile].entries.back();
  EXPECT_EQ(submenu.text, "New from template");
  ASSERT_EQ(submenu.entries.size(), ProgramTemplates().size());
  for (std::size_t i = 0; i < submenu.entries.size(); ++i) {
    EXPECT_EQ(submenu.entries[i].command, kCommands[i]);
    EXPECT_EQ(submenu.entries[i].text, std::string_view(ProgramTemplates()[i]->name));
  }
}

TEST_F(Templates, AreProgramsWithoutAFileAndWithoutAHistory) {
  GivenAnEditedProgram();
  for (std::size_t i = 0; i < std::size(kCommands); ++i) {
    user.WillAnswer(Answer::No);
    ASSERT_TRUE(user.Choose(kCommands[i]));
    EXPECT_TRUE(Program() == NewProgramFrom(*ProgramTemplates()[i])) << i;
    EXPECT_EQ(user.Title(), "Lumarine - New program");
    EXPECT_EQ(UndoDepth(), 0);
    EXPECT_THAT(NewJournal(), testing::Contains("renderer: rebuild")) << "names and colours are others";
    EXPECT_THAT(user.List(app::Control::ModeList), ElementsAre(Mode().name, "AlwaysOn"));
  }
}

TEST_F(Templates, SayInTheLogWhatTheyAreFor) {
  GivenTheProgramRuns();
  ASSERT_TRUE(user.Choose(command::kReefTemplate));
  EXPECT_THAT(NewLog(), HasSubstr("New program \"Reef\". For corals: blue first and last"));
  EXPECT_THAT(user.Text(app::Control::ModeDescription), HasSubstr("For corals: blue first and last"));
}

TEST_F(Templates, AskBeforeWorkIsLost) {
  GivenAnEditedProgram();
  const TCBase::Program::ModeListView before = Program();
  user.WillAnswer(Answer::Cancel);
  ASSERT_TRUE(user.Choose(command::kSeedlingsTemplate));
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(NewLog(), "") << "nothing has begun";
  user.WillAnswer(Answer::Yes);
  user.WillPick({folder / "before.xml"});
  ASSERT_TRUE(user.Choose(command::kSeedlingsTemplate));
  EXPECT_EQ(Mode().name, "Seedlings");
  TCBase::Program::ModeListView saved;
  ASSERT_TRUE(TCBase::Program::LoadProgram(folder / "before.xml", saved));
  EXPECT_TRUE(saved == before);
}

// A list shows 15 characters of a mode, and a dialog takes no more.
TEST_F(Templates, HaveNamesThatFitInEveryLanguage) {
  ASSERT_TRUE(user.ReadTranslations(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources"));
  GivenTheProgramRuns();
  for (const char* const language : {"en", "de", "sk", "it", "cz", "fr01", "fr", "pl", "es"}) {
    user.Translations().SetLanguage(language);
    for (const ProgramTemplate* const each : ProgramTemplates()) {
      const TCBase::Program::ModeListView program = NewProgramFrom(*each);
      EXPECT_LE(WideFromUtf8(program.modes[0].name).size(), 15U) << language << ": " << program.modes[0].name;
      for (const auto& info : program.channelInfos)
        EXPECT_LE(WideFromUtf8(info.name).size(), 20U) << language << ": " << info.name;
    }
  }
}

}  // namespace
