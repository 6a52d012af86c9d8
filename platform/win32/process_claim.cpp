// common/process_claim.h, on Windows: a file that is open to nobody else and goes when it is closed.

#include "common/process_claim.h"

#include "platform/win32/windows_headers.h"

namespace platform {

namespace {

class OwnFile : public ProcessClaim {
 public:
  explicit OwnFile(const std::filesystem::path& path)
      : file_(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                          FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr)) {}
  OwnFile(const OwnFile&) = delete;
  OwnFile& operator=(const OwnFile&) = delete;
  ~OwnFile() override {
    if (IsOpen()) CloseHandle(file_);
  }

  bool IsOpen() const { return file_ != INVALID_HANDLE_VALUE; }

 private:
  const HANDLE file_;
};

}  // namespace

std::unique_ptr<ProcessClaim> ClaimFile(const std::filesystem::path& path) {
  auto file = std::make_unique<OwnFile>(path);
  if (!file->IsOpen()) return nullptr;
  return file;
}

}  // namespace platform
