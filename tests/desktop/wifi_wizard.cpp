// "Setup TC421 WiFi" on the real window, with the keyboard alone, from its first page to its last. Someone
// else has to see to it that exactly one controller is on the network (tests/network/wizard_test.sh).
//   desktop_wizard CONTROLLER [FOLDER]     its name; pictures of the pages are left in the folder

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/numbers.h"
#include "common/files.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "tests/desktop/desktop_driver.h"

namespace {

using dialogs::kOk;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using namespace in_dialog;
namespace command = app::command;
namespace config_id = dialogs::tc421_config_control;
namespace search_id = dialogs::tc421_search_control;

// What the command line says.
std::string controller;
std::filesystem::path folder;

class Wizard : public testing::Test {
 protected:
  void SetUp() override { user.Start(); }
  void TearDown() override { user.Close(); }

  bool RunWizard(std::vector<DialogScript> pages) {
    for (DialogScript& page : pages) user.WillFill(std::move(page));
    return user.Choose(command::kSetupWifi);
  }
  DialogStep Picture(const char* name) {
    return Meanwhile([this, name] {
      if (folder.empty()) return;
      EXPECT_TRUE(user.TakePicture(folder / name)) << name;
    });
  }
  static DialogStep AwaitEnabled(int control) {
    return Await([control](const SeenDialog& seen) { return seen.controls.at(control).enabled; });
  }
  static DialogScript FindOne() { return {Press(search_id::kSearch), AwaitEnabled(kOk), Press(kOk)}; }
  /// The user tells the program which network, and agrees to what it says of it.
  DialogScript Use(const char* network, int security, const char* password) {
    user.WillAnswer(app::Answer::Ok);
    return {Type(config_id::kNetwork, network),
            Pick(config_id::kSecurity, security),
            Pick(config_id::kEncryption, 0),
            Type(config_id::kPassword, password),
            Press(config_id::kSetUp),
            AwaitEnabled(kOk),
            Picture("wizard-3-configuration.png")};
  }
  std::vector<std::string> Told() {
    std::vector<std::string> texts;
    for (const app::Question& question : user.Questions()) texts.push_back(Utf8FromWide(question.text));
    return texts;
  }

  desktop::DesktopUser driver;
  User& user = driver;
};

constexpr char kSuccess[] = "Successfully configured TC421 device to use selected WiFi network!";

// One controller.

using OneController = Wizard;

TEST_F(OneController, IsBroughtIntoAProtectedNetwork) {
  DialogScript search = FindOne();
  search.insert(search.end() - 1, {Look(), Picture("wizard-2-search.png")});
  DialogScript config = Use("Café 水 🐠 & é", 2, "secret coral");
  // The button that was pressed is disabled now; the focus is on the one that comes next.
  config.insert(config.end(), {Look(), PressEnter()});
  ASSERT_TRUE(RunWizard({{Picture("wizard-1-initialization.png"), PressEnter()},
                         search,
                         config,
                         {Picture("wizard-4-success.png"), PressEnter()}}));
  EXPECT_THAT(Told(), ElementsAre(kSuccess));
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(6));
  EXPECT_EQ(seen[0].title, "Setup TC421 WiFi - Initialization");
  EXPECT_FALSE(seen[1].controls.at(kOk).enabled);
  EXPECT_THAT(seen[2].controls.at(search_id::kFound).rows, ElementsAre(controller));
  EXPECT_EQ(seen[2].controls.at(search_id::kFound).row, 0);
  EXPECT_EQ(seen[3].controls.at(config_id::kDevice).text, controller);
  EXPECT_THAT(seen[3].controls.at(config_id::kNetwork).rows, IsEmpty()) << "Wine has no adapter";
  EXPECT_FALSE(seen[3].controls.at(kOk).enabled);
  EXPECT_EQ(seen[4].controls.at(config_id::kPassword).text, "secret coral");
  EXPECT_FALSE(seen[4].controls.at(config_id::kSetUp).enabled);
  EXPECT_THAT(seen[5].controls.at(dialogs::tc421_success_control::kText).text,
              HasSubstr("configured WiFi network: Café 水 🐠 & é\r\n"));
  EXPECT_THAT(user.Log(), HasSubstr("Found 1 device(s)\r\n"));
  EXPECT_THAT(user.Log(), HasSubstr("No Wi-Fi adapter found.\r\nSetting up WiFi\r\n"));
}

TEST_F(OneController, IsLeftAloneWhileThePasswordIsEmpty) {
  user.WillAnswer(app::Answer::Ok);
  std::vector<std::string> told;
  ASSERT_TRUE(RunWizard(
      {{PressEnter()},
       FindOne(),
       {Type(config_id::kNetwork, "Reef"), PressEnter(), Press(config_id::kSetUp),
        Await([&](const SeenDialog&) { return !(told = Told()).empty(); }), Look(), PressEscape()}}));
  EXPECT_THAT(told, ElementsAre("WiFi password can not be empty"));
  EXPECT_FALSE(user.Dialogs().back().controls.at(kOk).enabled);
  EXPECT_THAT(user.Log(), testing::Not(HasSubstr("Setting up WiFi")));
}

// One that acknowledges with the wrong letter.

using WrongController = Wizard;

TEST_F(WrongController, IsToldOfAndThePageStays) {
  std::vector<std::string> told;
  DialogScript config = Use("Reef", 0, "");
  user.WillAnswer(app::Answer::Ok);
  config.erase(config.end() - 2, config.end());
  config.insert(config.end(), {Await([&](const SeenDialog&) { return !(told = Told()).empty(); }), Look(),
                               Press(config_id::kSetUp),
                               Await([&](const SeenDialog&) { return !Told().empty(); }), PressEscape()});
  ASSERT_TRUE(RunWizard({{PressEnter()}, FindOne(), config}));
  EXPECT_THAT(told, ElementsAre("Error configuring TC421 device to use selected WiFi network!"));
  const SeenDialog last = user.Dialogs().back();
  EXPECT_FALSE(last.controls.at(kOk).enabled);
  EXPECT_TRUE(last.controls.at(config_id::kSetUp).enabled);
  EXPECT_THAT(user.Log(), HasSubstr("Setting up WiFi\r\nError setting open WiFi\r\nSetting up WiFi\r\n"));
}

// Nobody.

using NoController = Wizard;

TEST_F(NoController, EnterIsNoWayRoundTheDisabledButton) {
  ASSERT_TRUE(RunWizard({{PressEnter()},
                         {Press(search_id::kSearch), Await([this](const SeenDialog&) {
                            return user.Log().find("Found 0 device(s)") != std::string::npos;
                          }),
                          GoTo(search_id::kFound), PressEnter(), Look(), PressEscape()}}));
  EXPECT_THAT(user.Dialogs().back().controls.at(search_id::kFound).rows, IsEmpty());
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 2) return 2;
  controller = arguments[1];
  if (count > 2) folder = PathFromUtf8(arguments[2]);
  return RUN_ALL_TESTS();
}
