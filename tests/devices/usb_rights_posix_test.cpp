// Who may open a device, as the system tells it of files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "devices/usb_rights.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

// Asked as a user to whom rights apply: root becomes nobody.
class UsbRightsTest : public testing::Test {
 protected:
  void SetUp() override { fs::permissions(folder.path(), fs::perms(0755)); }

  bool MayOpen(const fs::path& path) const {
    constexpr uid_t kNobody = 65534;
    const uid_t user = geteuid();
    if (user == 0) {
      EXPECT_EQ(seteuid(kNobody), 0);
    }
    const bool may = platform::MayOpenDevice(path.native());
    EXPECT_EQ(seteuid(user), 0);
    return may;
  }

  fs::path GivenNode(unsigned mode) const {
    const fs::path path = FileWith(folder / std::to_string(mode), "");
    fs::permissions(path, fs::perms(mode));
    return path;
  }

  TemporaryFolder folder;
};

TEST_F(UsbRightsTest, ADeviceIsReadAndWritten) {
  EXPECT_TRUE(MayOpen(GivenNode(0666)));
  EXPECT_FALSE(MayOpen(GivenNode(0444)));
  EXPECT_FALSE(MayOpen(GivenNode(0222)));
  EXPECT_FALSE(MayOpen(GivenNode(0)));
}

TEST_F(UsbRightsTest, WhatIsNotThereIsNotForbidden) {
  EXPECT_TRUE(MayOpen(folder / "hidraw9"));
  EXPECT_TRUE(MayOpen(GivenNode(0666) / "hidraw9"));
  EXPECT_TRUE(MayOpen(""));
}

TEST_F(UsbRightsTest, RootAloneMayOpenAll) {
  EXPECT_EQ(platform::MayOpenDevice(GivenNode(0).native()), geteuid() == 0);
}

TEST(UsbRights, ARuleGivesThem) {
  EXPECT_EQ(platform::RulesFolder(), "/etc/udev/rules.d");
}

TEST(UsbRights, ARuleMayComeWithAPackage) {
  EXPECT_THAT(platform::PackagedRulesFolders(), testing::Contains("/usr/lib/udev/rules.d"));
}

// The command names the lumarinectl beside the program that runs, since sudo looks into the system's folders
// only.
TEST(UsbRights, TheCommandIsThatOfTheSameBuild) {
  const fs::path beside = fs::read_symlink("/proc/self/exe").parent_path() / "lumarinectl";
  ASSERT_TRUE(fs::exists(beside)) << "it is built with this test";
  EXPECT_EQ(platform::RightsCommand(), "sudo " + beside.native() + " usb-setup");
}

}  // namespace
