// usb-setup: the rule that it installs, and what it tells of it.

#include "common/files.h"
#include "tests/cli/command_fixture.h"
#include "tests/support/fake_helper.h"
#include "tests/support/files.h"

namespace {

using platform::HelperResult;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kRule[] = "etc/rules.d/70-lumarine.rules";

// As it is told: the command itself puts the name behind the folder, the way the system does.
std::string ToldRule() {
  return Utf8FromPath(std::filesystem::path("etc/rules.d") / "70-lumarine.rules");
}

class UsbSetupTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    sim_hidapi::SetRulesFolder(PathOf("etc/rules.d"));
  }

  // What a package brings, into the folder lib.
  void GivenPackagedRule() {
    sim_hidapi::SetPackagedRulesFolders({PathOf("local"), PathOf("lib")});
    std::filesystem::create_directory(PathOf("lib"));
    GivenFile("lib/70-lumarine.rules", "what the package has brought");
  }

  static std::string ShippedRule() {
    return BytesOf(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources/linux/70-lumarine.rules");
  }
};

TEST_F(UsbSetupTest, TheRuleIsInstalledAndUdevTold) {
  const Outcome outcome = Run({"usb-setup"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, ToldRule() +
                             " is installed. Who is logged in at this computer may open "
                             "controllers on USB. If one is not found, plug it in again.\n");
  EXPECT_EQ(ContentOf(kRule), ShippedRule());
  EXPECT_THAT(fake_helper::Starts(),
              ElementsAre(ElementsAre("udevadm", "control", "--reload"),
                          ElementsAre("udevadm", "trigger", "--action=change", "--subsystem-match=hidraw")));
}

TEST_F(UsbSetupTest, ToDoItAgainIsToDoTheSame) {
  Run({"usb-setup"});
  GivenFile(kRule, "what an older program has installed");
  const Outcome again = Run({"usb-setup"});
  EXPECT_EQ(again.status, kSuccess);
  EXPECT_EQ(ContentOf(kRule), ShippedRule());
  EXPECT_EQ(Run({"usb-setup"}).err, again.err);
  EXPECT_EQ(fake_helper::Starts().size(), 6U);
  const std::filesystem::path folder = PathOf("etc/rules.d");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1)
      << "nothing else is left there";
}

TEST_F(UsbSetupTest, ARuleOfAPackageIsLeftToThePackage) {
  GivenPackagedRule();
  const Outcome outcome = Run({"usb-setup"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err,
              testing::StartsWith(Utf8FromPath(std::filesystem::path("lib") / "70-lumarine.rules") +
                                  " is installed. "));
  EXPECT_FALSE(Exists("etc")) << "it would stand before the package's, and stay when that is renewed";
  EXPECT_EQ(ContentOf("lib/70-lumarine.rules"), "what the package has brought");
  EXPECT_EQ(fake_helper::Starts().size(), 2U);
}

TEST_F(UsbSetupTest, TheAdministratorsRuleStandsBeforeThatOfAPackage) {
  Run({"usb-setup"});
  GivenPackagedRule();
  GivenFile(kRule, "what an older program has installed");
  EXPECT_THAT(Run({"usb-setup"}).err, testing::StartsWith(ToldRule() + " is installed. "));
  EXPECT_EQ(ContentOf(kRule), ShippedRule());
}

TEST_F(UsbSetupTest, WhereUdevCannotBeToldTheCableHelps) {
  for (const HelperResult& result : {HelperResult{HelperResult::Missing}, HelperResult{HelperResult::Stopped},
                                     HelperResult{HelperResult::Ended, 1}}) {
    for (const int before : {0, 1}) {
      fake_helper::Reset();
      fake_helper::EndWith(result, before);
      const Outcome outcome = Run({"usb-setup"});
      EXPECT_EQ(outcome.status, kOperationFailed);
      EXPECT_EQ(outcome.err, ToldRule() +
                                 " is installed, but udev could not be told. Plug the controller in "
                                 "again.\n");
      EXPECT_EQ(ContentOf(kRule), ShippedRule());
    }
  }
}

TEST_F(UsbSetupTest, AFolderThatCannotBeMadeIsTold) {
  GivenFile("etc", "no folder");
  const Outcome outcome = Run({"usb-setup"});
  EXPECT_EQ(outcome.status, kFileFailed);
  EXPECT_THAT(outcome.err, testing::StartsWith("Error creating file " + ToldRule() + ", error: "));
  EXPECT_THAT(fake_helper::Starts(), IsEmpty());
}

// As on Windows.
TEST_F(UsbSetupTest, WhereEveryUserHasTheRightsNothingIsToBeDone) {
  sim_hidapi::SetRulesFolder(std::nullopt);
  const Outcome outcome = Run({"usb-setup"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Nothing is to be set up: on this system every user may open controllers on USB.\n");
  EXPECT_THAT(fake_helper::Starts(), IsEmpty());
  EXPECT_FALSE(Exists("etc"));
}

TEST_F(UsbSetupTest, ItTakesNoArguments) {
  EXPECT_EQ(Run({"usb-setup", "tc420"}).status, kWrongUsage);
  EXPECT_FALSE(Exists("etc"));
}

}  // namespace
