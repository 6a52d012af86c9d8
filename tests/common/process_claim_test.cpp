#include "common/process_claim.h"

#include <gtest/gtest.h>

#include <atomic>
#include <iterator>
#include <thread>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class ProcessClaim : public testing::Test {
 protected:
  const TemporaryFolder folder_;
  const fs::path file_ = folder_ / "one.lock";
};

TEST_F(ProcessClaim, IsOnesOwnUntilItIsGone) {
  auto claim = platform::ClaimFile(file_);
  ASSERT_NE(claim, nullptr);
  EXPECT_EQ(platform::ClaimFile(file_), nullptr);
  claim.reset();
  EXPECT_NE(platform::ClaimFile(file_), nullptr);
}

TEST_F(ProcessClaim, IsOfOneFileAlone) {
  const auto one = platform::ClaimFile(file_);
  EXPECT_NE(platform::ClaimFile(folder_ / "two.lock"), nullptr);
}

TEST_F(ProcessClaim, LeavesNothingOnTheDisk) {
  { const auto claim = platform::ClaimFile(file_); }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 0);
}

TEST_F(ProcessClaim, OfAFileThatWasLeftThereCanBeTaken) {
  { const TemporaryFolder other; }
  fs::create_directory(folder_ / "sub");
  EXPECT_EQ(platform::ClaimFile(folder_ / "sub"), nullptr) << "a folder is none";
  EXPECT_EQ(platform::ClaimFile(folder_ / "absent" / "one.lock"), nullptr);
}

// The one who gives it back removes the file, and another may have opened that by then.
TEST_F(ProcessClaim, NeverBelongsToTwo) {
  std::atomic<int> inside = 0;
  std::atomic<int> claims = 0;
  const auto claim = [&] {
    for (int i = 0; i < 2000; ++i) {
      const auto mine = platform::ClaimFile(file_);
      if (mine == nullptr) continue;
      EXPECT_EQ(++inside, 1);
      ++claims;
      --inside;
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 3; ++i) threads.emplace_back(claim);
  for (std::thread& thread : threads) thread.join();
  EXPECT_GT(claims, 0);
}

}  // namespace
