// "Setup TC421 WiFi" on the real window, with the keyboard alone, from its first page to its last. Someone
// else has to see to it that the network is as each suite is called (tests/network/wizard_test.sh).
//   desktop_wizard CONTROLLER [FOLDER]     its name; pictures of the pages are left in the folder

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "devices/udp_device.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/support/patience.h"
#include "tests/support/wizard_steps.h"

namespace {

using dialogs::kOk;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ResultOf;
using testing::SizeIs;
using namespace in_dialog;
namespace command = app::command;
namespace config_id = dialogs::tc421_config_control;
namespace search_id = dialogs::tc421_search_control;

// What the command line says.
std::string controller;
std::filesystem::path folder;

// Another program that has the port.
class HeldPort {
 public:
  HeldPort() : socket_(platform::OpenDatagrams()) {
    const auto local = TCBase::MakeIpv4Address(TCBase::kAnyAddress, TCBase::kUdpPort);
    EXPECT_TRUE(WaitUntil([&] { return platform::BindDatagrams(socket_, local); }))
        << "it is held by somebody else";
  }
  ~HeldPort() { platform::CloseDatagrams(socket_); }
  HeldPort(const HeldPort&) = delete;
  HeldPort& operator=(const HeldPort&) = delete;

 private:
  const platform::DatagramSocket socket_;
};

class StopWatch {
 public:
  double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
  }

 private:
  const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

// What the program waits for a controller that does not answer: three times two seconds, a little less by
// another clock.
constexpr double kSilence = 5.9;

class Wizard : public testing::Test {
 protected:
  void SetUp() override { user.Start(); }
  void TearDown() override { user.Close(); }

  bool RunWizard(std::vector<DialogScript> pages) { return in_wizard::Run(user, std::move(pages)); }
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
  // The user tells the program which network, and agrees to what it says of it.
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
  // The same, with an open one that nobody need agree to, and with more to do before and behind the button.
  DialogScript SetUpOpen(const DialogScript& before, const DialogScript& behind) {
    DialogScript script = {Type(config_id::kNetwork, "Reef"), Pick(config_id::kSecurity, 0),
                           Pick(config_id::kEncryption, 0)};
    script.insert(script.end(), before.begin(), before.end());
    script.push_back(Press(config_id::kSetUp));
    script.insert(script.end(), behind.begin(), behind.end());
    return script;
  }
  static DialogStep AwaitRows(std::size_t count) {
    return Await(
        [count](const SeenDialog& seen) { return seen.controls.at(search_id::kFound).rows.size() == count; });
  }
  DialogStep AwaitLog(const std::string& text) {
    return Await([this, text](const SeenDialog&) { return user.Log().find(text) != std::string::npos; });
  }
  // Until a message has come and been agreed to.
  DialogStep AwaitTold(std::vector<std::string>& told) {
    user.WillAnswer(app::Answer::Ok);
    return Await([this, &told](const SeenDialog&) { return !(told = Told()).empty(); });
  }
  bool WaitForList() {
    return WaitUntil([&] { return !user.List(app::Control::DeviceList).empty(); });
  }
  std::vector<std::string> Told() {
    std::vector<std::string> texts;
    for (const app::Question& question : user.Questions()) texts.push_back(Utf8FromWide(question.text));
    return texts;
  }

  desktop::DesktopUser driver;
  User& user = driver;
};

constexpr char kError[] = "Error configuring TC421 device to use selected WiFi network!";
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

// Two controllers.

using TwoControllers = Wizard;

TEST_F(TwoControllers, AreListedAndTheChosenOneIsBroughtIntoAnOpenNetwork) {
  DialogScript config = Use("Reef", 0, "");
  config.push_back(PressEnter());
  ASSERT_TRUE(RunWizard({{PressEnter()},
                         {Press(search_id::kSearch), AwaitRows(2), Look(), Pick(search_id::kFound, 0),
                          AwaitEnabled(kOk), Press(kOk)},
                         config,
                         {PressEnter()}}));
  EXPECT_THAT(Told(), ElementsAre(kSuccess));
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(5));
  EXPECT_THAT(seen[2].controls.at(search_id::kFound).rows, ElementsAre("Smart-000001", controller));
  EXPECT_EQ(seen[2].controls.at(search_id::kFound).row, -1);
  EXPECT_FALSE(seen[2].controls.at(kOk).enabled) << "neither is chosen";
  EXPECT_EQ(seen[3].controls.at(config_id::kDevice).text, "Smart-000001");
  EXPECT_THAT(user.Log(), HasSubstr("Found 2 device(s)\r\n"));
}

// One, and a program that wants the same port.

using TakenPort = Wizard;

TEST_F(TakenPort, MakesTheSearchAndTheSetUpFailAndTheNextTriesSucceed) {
  std::optional<HeldPort> held(std::in_place);
  const DialogStep letGo = Meanwhile([&] { held.reset(); });
  std::vector<std::string> told;
  DialogScript config = Use("Reef", 0, "");
  const auto setUp = config.end() - 3;
  config.insert(
      setUp, {Meanwhile([&] { held.emplace(); }), Press(config_id::kSetUp), AwaitTold(told), Look(), letGo});
  config.push_back(PressEscape());
  ASSERT_TRUE(RunWizard({{PressEnter()},
                         {Press(search_id::kSearch), AwaitLog("Found 0 device(s)"), Look(), letGo,
                          Press(search_id::kSearch), AwaitEnabled(kOk), Press(kOk)},
                         config}));
  EXPECT_THAT(told, ElementsAre(kError));
  EXPECT_THAT(Told(), ElementsAre(kSuccess));
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(5));
  EXPECT_THAT(seen[2].controls.at(search_id::kFound).rows, IsEmpty());
  EXPECT_FALSE(seen[2].controls.at(kOk).enabled);
  EXPECT_TRUE(seen[4].controls.at(config_id::kSetUp).enabled) << "it can be tried again";
  EXPECT_THAT(user.Log(), HasSubstr("Connect error\r\nSetting up WiFi\r\n"));
}

// One that is switched off behind the search.

using SilentController = Wizard;

TEST_F(SilentController, IsToldOfAfterSixSecondsAndThePageStays) {
  std::vector<std::string> told;
  std::optional<StopWatch> waited;
  double seconds = 0.0;
  ASSERT_TRUE(RunWizard({{PressEnter()},
                         FindOne(),
                         SetUpOpen({Meanwhile([&] { waited.emplace(); })},
                                   {AwaitTold(told), Meanwhile([&] { seconds = waited->Seconds(); }), Look(),
                                    PressEscape()})}));
  EXPECT_THAT(told, ElementsAre(kError));
  EXPECT_GE(seconds, kSilence);
  EXPECT_TRUE(user.Dialogs().back().controls.at(config_id::kSetUp).enabled);
  EXPECT_THAT(user.Log(), HasSubstr("Setting up WiFi\r\nError setting open WiFi\r\n"));
}

TEST_F(SilentController, DoesNotKeepThePageFromBeingClosedMeanwhile) {
  std::vector<std::string> told;
  std::future<bool> closed;
  const DialogStep close =
      Meanwhile([&] { closed = driver.CloseBehindNextSpace(desktop::DesktopUser::Closed::Dialog); });
  ASSERT_TRUE(RunWizard({{PressEnter()}, FindOne(), SetUpOpen({close}, {AwaitTold(told)})}));
  EXPECT_TRUE(closed.get());
  EXPECT_THAT(told, ElementsAre(kError));
  EXPECT_THAT(user.Log(), HasSubstr("Setting up WiFi\r\nError setting open WiFi\r\n"));
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(SilentController, DoesNotKeepTheProgramFromBeingClosedMeanwhile) {
  std::optional<StopWatch> waited;
  std::future<bool> closed;
  const DialogStep close = Meanwhile([&] {
    waited.emplace();
    closed = driver.CloseBehindNextSpace(desktop::DesktopUser::Closed::Program);
  });
  ASSERT_TRUE(RunWizard({{PressEnter()}, FindOne(), SetUpOpen({close}, {})}));
  user.Close();
  EXPECT_TRUE(closed.get());
  EXPECT_FALSE(user.IsRunning());
  EXPECT_GE(waited->Seconds(), kSilence) << "the exchange with the controller comes to its end";
}

// Somebody who answers whatever he likes, as fast as he can.

class HostileNeighbour : public Wizard {
 protected:
  // Nothing in it hides, turns round or breaks out of its line.
  static bool IsHarmless(const std::string& text) {
    const std::u16string wide = WideFromUtf8(text);
    return std::none_of(wide.begin(), wide.end(), [](char16_t c) {
      return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200B && c <= 0x200F) ||
             (c >= 0x2028 && c <= 0x202E);
    });
  }
  static std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find("\r\n", at), text.size());
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
};

TEST_F(HostileNeighbour, IsShownHarmlesslyAndHoldsNothingUp) {
  std::vector<std::string> told;
  ASSERT_TRUE(RunWizard({{PressEnter()},
                         {Press(search_id::kSearch), Await([](const SeenDialog& seen) {
                            return !seen.controls.at(search_id::kFound).rows.empty();
                          }),
                          Look(), Pick(search_id::kFound, 0), AwaitEnabled(kOk), Press(kOk)},
                         SetUpOpen({}, {AwaitTold(told), PressEscape()})}));
  EXPECT_THAT(told, ElementsAre(kError)) << "what he says is no acknowledgement";
  const std::vector<SeenDialog> seen = user.Dialogs();
  const std::vector<std::string> rows = seen.at(2).controls.at(search_id::kFound).rows;
  EXPECT_LE(rows.size(), 10U);
  EXPECT_THAT(rows, Each(ResultOf(&IsHarmless, true)));
  EXPECT_THAT(rows, Contains(HasSubstr("\uFFFD[2J\uFFFD\uFFFDTank\uFFFD\uFFFD")));
  EXPECT_TRUE(IsHarmless(seen.at(3).controls.at(config_id::kDevice).text));

  ASSERT_TRUE(user.Choose(command::kScanWifi));
  ASSERT_TRUE(WaitForList());
  EXPECT_THAT(user.List(app::Control::DeviceList), Each(ResultOf(&IsHarmless, true)));
  EXPECT_THAT(LinesOf(user.Log()), Each(ResultOf(&IsHarmless, true)));
  EXPECT_THAT(user.Log(), HasSubstr("Hostname not found, using \uFFFD[2J"));
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
  EXPECT_THAT(told, ElementsAre(kError));
  const SeenDialog last = user.Dialogs().back();
  EXPECT_FALSE(last.controls.at(kOk).enabled);
  EXPECT_TRUE(last.controls.at(config_id::kSetUp).enabled);
  EXPECT_THAT(user.Log(), HasSubstr("Setting up WiFi\r\nError setting open WiFi\r\nSetting up WiFi\r\n"));
}

// Nobody.

using NoController = Wizard;

TEST_F(NoController, NothingIsSentByTheStartNorByThePagesThemselves) {
  ASSERT_TRUE(RunWizard({{Look(), PressEscape()}}));
  ASSERT_TRUE(RunWizard({{PressEnter()}, {Look(), PressEscape()}}));
  // Longer than anything in the program waits before it looks at something by itself.
  user.Wait(6.0);
}

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
  platform::StartNetwork();
  if (count < 2) return 2;
  controller = arguments[1];
  if (count > 2) folder = PathFromUtf8(arguments[2]);
  return RUN_ALL_TESTS();
}
