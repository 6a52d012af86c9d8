#pragma once

// What one process of the user's has for itself as long as it runs.

#include <filesystem>
#include <memory>

namespace platform {

/// Ends with the object or with the process, however that ends.
class ProcessClaim {
 public:
  virtual ~ProcessClaim() = default;
};

/// Claims what the file `path` stands for, without waiting. The file is made for the claim alone and goes
/// with it, but may stay behind, without meaning anything, where a process ends by force. Null if another
/// process, or another claim of this one, has it, or if the file cannot be made or locked. Any thread.
std::unique_ptr<ProcessClaim> ClaimFile(const std::filesystem::path& path);

}  // namespace platform
