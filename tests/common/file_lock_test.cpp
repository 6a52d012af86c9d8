#include "common/file_lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <iterator>
#include <thread>

#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class FileLock : public testing::Test {
 protected:
  // Whether another thread gets its turn at a file.
  static bool OthersGet(const fs::path& file) {
    bool got = false;
    std::thread([&] { got = platform::TakeFileLock(file) != nullptr; }).join();
    return got;
  }

  const TemporaryFolder folder_;
  const fs::path file_ = folder_ / "settings.xml";
};

TEST_F(FileLock, IsOnesOwnUntilItIsGone) {
  auto lock = platform::TakeFileLock(file_);
  ASSERT_NE(lock, nullptr);
  EXPECT_FALSE(OthersGet(file_)) << "after a second";
  lock.reset();
  EXPECT_TRUE(OthersGet(file_));
}

TEST_F(FileLock, KeepsOneAfterTheOther) {
  std::atomic<int> inside = 0;
  const auto stay = [&] {
    for (int i = 0; i < 20; ++i) {
      const auto lock = platform::TakeFileLock(file_);
      ASSERT_NE(lock, nullptr);
      EXPECT_EQ(++inside, 1);
      std::this_thread::yield();
      --inside;
    }
  };
  std::thread other(stay);
  stay();
  other.join();
}

TEST_F(FileLock, LeavesNothingOnTheDisk) {
  { const auto lock = platform::TakeFileLock(file_); }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 0);
}

}  // namespace
