#pragma once

// Whole files of a test.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "common/files.h"

/// A file with these bytes; its path.
inline std::filesystem::path FileWith(const std::filesystem::path& path, std::string_view bytes) {
  EXPECT_TRUE(WriteFileBytes(path, bytes)) << path;
  return path;
}

inline std::string BytesOf(const std::filesystem::path& path) {
  std::string bytes;
  EXPECT_TRUE(ReadFileBytes(path, bytes)) << path;
  return bytes;
}
