#include "tests/support/view_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/window/numbers.h"

namespace scripts {

namespace {

using app::Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
namespace command = app::command;
namespace key = app::key;

void Leave(User& user) {
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace

void ChangeTheMode(User& user, const Folders&) {
  user.Start();
  user.ClickRow(Control::ModeList, 1);
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(1));
  EXPECT_THAT(user.Text(Control::ModeDescription), StartsWith("Mode AlwaysOn (Steps: 2)"));
  Leave(user);
}

void ZoomByKeysFromAnywhere(User& user, const Folders&) {
  user.Start();
  user.ClickRow(Control::ModeList, 0);
  user.PressKey(key::kNumpadAdd);
  user.PressKey(key::kNumpadAdd);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  user.PressKey(key::kNumpadSubtract);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  user.Press(Control::StopButton);
  user.PressKey(key::kNumpadAdd);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  Leave(user);
}

void FillTheLog(User& user, const Folders&) {
  user.Start();
  std::size_t longest = 0;
  while (user.Log().size() >= longest && longest < 100000) {
    longest = user.Log().size();
    user.Choose(command::kProgramInfo);
  }
  EXPECT_LT(user.Log().size(), longest);
  EXPECT_THAT(user.Log(), Not(HasSubstr("Language set to English")))
      << "it is emptied whole, not from its top";
  Leave(user);
}

void ReadTheKnownIssues(User& user, const Folders&) {
  user.Start();
  user.WillAnswer(app::Answer::Ok);
  ASSERT_TRUE(user.Choose(command::kKnownIssues));
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Known issues with some TC420 devices");
  EXPECT_NE(asked[0].text.find(u"\"AlwaysOn\" (2 steps)"), std::u16string::npos);
  Leave(user);
}

void CancelALoad(User& user, const Folders&) {
  user.Start();
  user.WillPick({});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  Leave(user);
}

}  // namespace scripts
