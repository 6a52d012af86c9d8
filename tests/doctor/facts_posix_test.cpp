// What Linux says of open files and of time.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>

#include "devices/datagrams.h"
#include "doctor/computer_facts.h"
#include "doctor/network_facts.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

// A process that has a file open until it goes.
class Holding {
 public:
  explicit Holding(const fs::path& file) {
    std::array<int, 2> ready{};
    EXPECT_EQ(pipe(ready.data()), 0);
    child_ = fork();
    if (child_ == 0) {
      const bool opened = open(file.c_str(), O_RDONLY) != -1 && write(ready[1], "x", 1) == 1;
      if (opened) pause();
      _exit(1);
    }
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    for (const int end : ready) close(end);
  }
  ~Holding() {
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }
  Holding(const Holding&) = delete;
  Holding& operator=(const Holding&) = delete;
  pid_t child() const { return child_; }

 private:
  pid_t child_ = 0;
};

TEST(OpenFiles, HaveHolders) {
  const TemporaryFolder folder;
  const fs::path file = FileWith(folder / "hidraw7", "");
  fs::create_symlink(file, folder / "link");
  EXPECT_THAT(platform::UseOfDevice(file).holders, testing::IsEmpty());
  const Holding other(file);
  for (const fs::path& path : {file, folder / "link"}) {
    const platform::DeviceUse use = platform::UseOfDevice(path);
    EXPECT_FALSE(use.refused) << "hidraw lets several in";
    ASSERT_EQ(use.holders.size(), 1U);
    EXPECT_EQ(use.holders.front().process, other.child());
    EXPECT_EQ(use.holders.front().program, "computer_facts_") << "as much as the kernel keeps";
    EXPECT_FALSE(use.holders.front().isThisOne);
  }
  EXPECT_THAT(platform::UseOfDevice(folder / "none").holders, testing::IsEmpty());
}

TEST(Ports, HaveHoldersThatAreTold) {
  constexpr std::uint16_t kPort = 50138;
  const platform::DatagramSocket socket = platform::OpenDatagrams();
  ASSERT_TRUE(platform::BindDatagrams(socket, TCBase::MakeIpv4Address(TCBase::kAnyAddress, kPort)));
  const std::vector<platform::Holder> holders = platform::HoldersOfUdpPort(kPort);
  platform::CloseDatagrams(socket);
  ASSERT_EQ(holders.size(), 1U);
  EXPECT_TRUE(holders.front().isThisOne);
  EXPECT_EQ(holders.front().process, getpid());
}

TEST(TimeZones, AreThoseOfTheDay) {
  const char* const before = std::getenv("TZ");
  const std::string old = before != nullptr ? before : "";
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();
  EXPECT_EQ(platform::UtcOffsetMinutes({2026, 3, 28, 12, 0, 0, 0}), 60);
  EXPECT_EQ(platform::UtcOffsetMinutes({2026, 3, 29, 12, 0, 0, 0}), 120);
  if (before != nullptr) {
    setenv("TZ", old.c_str(), 1);
  } else {
    unsetenv("TZ");
  }
  tzset();
}

}  // namespace
