#pragma once

// Golden files: expected text that a person reviews in a diff. With LUMARINE_REWRITE_GOLDEN set in the
// environment a run writes them instead of comparing.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "common/files.h"
#include "tests/support/files.h"

namespace golden {

/// Compares `actual` with the file at `path` below the source folder, line ends included.
inline void Expect(const std::filesystem::path& path, const std::string& actual) {
  const std::filesystem::path file = std::filesystem::path(LUMARINE_SOURCE_DIR) / path;
  if (std::getenv("LUMARINE_REWRITE_GOLDEN") != nullptr) {
    std::filesystem::create_directories(file.parent_path());
    FileWith(file, actual);
    return;
  }
  std::string expected;
  ASSERT_TRUE(ReadFileBytes(file, expected))
      << file << " is missing; set LUMARINE_REWRITE_GOLDEN to write it";
  EXPECT_EQ(actual, expected) << "differs from " << file;
}

}  // namespace golden
