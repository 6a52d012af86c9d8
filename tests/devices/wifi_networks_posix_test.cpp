// Wireless networks as NetworkManager's command line tells of them: an nmcli of the test's own stands in its
// place. Time is real here, as another process runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "common/log.h"
#include "devices/wifi.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr char kNoService[] = "Can't connect Wi-Fi! Problem function: WlanOpenHandle.\r\n";
constexpr char kNoAdapter[] = "No Wi-Fi adapter found.\r\n";
constexpr char kNoList[] =
    "Can't get available networks! Probably your PC in Airplane mode, and /or Wifi turned out."
    "Problem function : WlanGetAvailableNetworkList.\r\n";

class NetworkManagerTest : public testing::Test {
 protected:
  void SetUp() override {
    path_ = std::getenv("PATH");
    setenv("PATH", (folder.path().native() + ":" + path_).c_str(), 1);
  }
  void TearDown() override { setenv("PATH", path_.c_str(), 1); }

  // nmcli does this when it is asked for adapters, and that when it is asked for networks.
  void GivenNmcli(const std::string& adapters, const std::string& list = "exit 8") const {
    const std::string script = "#!/bin/sh\necho \"$LC_ALL $*\" >>" + (folder / "asked").native() +
                               "\ncase \"$*\" in *status) " + adapters + ";; *) " + list + ";; esac\n";
    std::filesystem::permissions(FileWith(folder / "nmcli", script), std::filesystem::perms::owner_all);
  }

  // What the user reads.
  std::string List() {
    std::string log;
    statusLog.textHandler = [&log](const std::string& item) { log += item; };
    networks = {{"from before"}};
    const bool listed = TCBase::ListWifiNetworks(networks);
    statusLog.Drain();
    statusLog.textHandler = nullptr;
    EXPECT_EQ(listed, log.empty());
    if (!listed) {
      EXPECT_THAT(networks, IsEmpty());
    }
    return log;
  }

  std::string Asked() const { return BytesOf(folder / "asked"); }

  TemporaryFolder folder;
  std::vector<TCBase::WifiNetwork> networks;

 private:
  std::string path_;
};

TEST_F(NetworkManagerTest, TheNetworksAreListedInItsOrderWithoutTheHiddenOnes) {
  GivenNmcli("printf 'ethernet\\nwifi\\nloopback\\n'",
             "printf '%s\\n' '52656566:WPA2:(none):pair_ccmp group_ccmp psk' '--:WPA2:(none):pair_ccmp psk' "
             "'4174746963::(none):(none)'");
  EXPECT_THAT(List(), IsEmpty());
  ASSERT_THAT(networks, SizeIs(2));
  EXPECT_EQ(networks[0].ssid, "Reef");
  EXPECT_EQ(TCBase::SecurityOf(networks[0]), TCBase::SecurityWPA2);
  EXPECT_EQ(TCBase::EncryptionOf(networks[0]), TCBase::EncryptionAES);
  EXPECT_EQ(networks[1].ssid, "Attic");
  EXPECT_EQ(TCBase::SecurityOf(networks[1]), TCBase::SecurityOpen);
}

// To list what is known is no traffic; a search for networks would be.
TEST_F(NetworkManagerTest, IsAskedInWordsThatAreNotTranslatedAndNotToSearch) {
  GivenNmcli("echo wifi", "true");
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  EXPECT_THAT(List(), IsEmpty());
  unsetenv("LC_ALL");
  EXPECT_EQ(Asked(),
            "C --terse --fields TYPE device status\n"
            "C --terse --fields SSID-HEX,SECURITY,WPA-FLAGS,RSN-FLAGS device wifi list --rescan no\n");
  EXPECT_THAT(networks, IsEmpty());
}

TEST_F(NetworkManagerTest, EachFailureIsItsLineAndAnEmptyList) {
  const struct {
    const char* adapters;
    const char* list;
    const char* told;
  } rows[] = {
      {"exit 8", "true", kNoService},
      {"kill -9 $$", "true", kNoService},
      {"yes wifi", "true", kNoService},
      {"true", "true", kNoAdapter},
      {"printf 'ethernet\\nwifi-p2p\\n'", "true", kNoAdapter},
      {"echo wifi", "exit 10", kNoList},
      {"echo wifi", "echo 52656566:WPA2:; exit 0", kNoList},
      {"echo wifi", "head -c 4000 /dev/urandom", kNoList},
      {"echo wifi", "echo 52656566::::; kill -9 $$", kNoList},
  };
  for (const auto& row : rows) {
    GivenNmcli(row.adapters, row.list);
    EXPECT_EQ(List(), row.told) << row.adapters << "; " << row.list;
  }
}

TEST_F(NetworkManagerTest, WithoutNmcliThereIsNoService) {
  setenv("PATH", folder.path().c_str(), 1);
  EXPECT_EQ(List(), kNoService);
}

// Its output may come to an end without it.
TEST_F(NetworkManagerTest, IsWaitedForNoLongerThanFiveSeconds) {
  GivenNmcli("echo wifi", "exec >&-; exec sleep 600");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(List(), kNoList);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
}

}  // namespace
