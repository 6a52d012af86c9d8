// usb-setup of a user who may not install rules.

#include <unistd.h>

#include "tests/cli/command_fixture.h"
#include "tests/support/fake_helper.h"

namespace {

namespace fs = std::filesystem;

// Root becomes nobody, to whom rights apply.
class OtherUser {
 public:
  OtherUser() {
    constexpr uid_t kNobody = 65534;
    if (before_ == 0) {
      EXPECT_EQ(seteuid(kNobody), 0);
    }
  }
  ~OtherUser() { EXPECT_EQ(seteuid(before_), 0); }
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;

 private:
  const uid_t before_ = geteuid();
};

class UsbSetupRightsTest : public CommandTest {
 protected:
  // Runs the command where `folder` and what is in it belong to somebody else.
  Outcome RunWithoutRights(const std::string& folder) {
    constexpr fs::perms kReadOnly{0555};
    fs::permissions(PathOf(""), fs::perms{0755});
    fs::create_directories(PathOf(folder));
    fs::permissions(PathOf(folder), kReadOnly);
    sim_hidapi::SetRulesFolder(PathOf("etc/rules.d"));
    Outcome outcome;
    {
      const OtherUser user;
      outcome = Run({"usb-setup"});
    }
    fs::permissions(PathOf(folder), fs::perms{0755});
    return outcome;
  }
};

TEST_F(UsbSetupRightsTest, WhoIsNotRootIsToldWhatToType) {
  for (const char* folder : {"etc", "etc/rules.d"}) {
    const Outcome outcome = RunWithoutRights(folder);
    EXPECT_EQ(outcome.status, kFileFailed) << folder;
    EXPECT_EQ(outcome.err,
              "Only root may write etc/rules.d/70-lumarine.rules. Give this command: sudo lumarinectl "
              "usb-setup\n");
    EXPECT_FALSE(Exists("etc/rules.d/70-lumarine.rules"));
  }
  EXPECT_THAT(fake_helper::Starts(), testing::IsEmpty());
}

TEST_F(UsbSetupRightsTest, ARuleThatIsThereStays) {
  fs::create_directories(PathOf("etc/rules.d"));
  GivenFile("etc/rules.d/70-lumarine.rules", "somebody's own");
  fs::permissions(PathOf("etc/rules.d/70-lumarine.rules"), fs::perms{0444});
  const Outcome outcome = RunWithoutRights("etc/rules.d");
  EXPECT_EQ(outcome.status, kFileFailed);
  EXPECT_THAT(outcome.err, testing::StartsWith("Only root may write "));
  EXPECT_EQ(ContentOf("etc/rules.d/70-lumarine.rules"), "somebody's own");
}

}  // namespace
