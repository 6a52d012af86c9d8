// common/file_lock.h, on Windows: a mutex that bears the file's name.

#include "common/file_lock.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "platform/win32/windows_headers.h"

namespace platform {

namespace {

constexpr DWORD kPatience = 1000;  // milliseconds

// The only backslash of a name stands behind the session's word, and the system limits its length. The end
// of a path tells more than its beginning.
std::wstring NameOf(const std::filesystem::path& path) {
  constexpr std::size_t kMost = 200;
  std::error_code error;
  std::wstring name = std::filesystem::absolute(path, error).native();
  if (name.size() > kMost) name.erase(0, name.size() - kMost);
  CharLowerBuffW(name.data(), static_cast<DWORD>(name.size()));
  std::ranges::replace(name, L'\\', L'/');
  return L"Local\\Lumarine " + name;
}

class MutexLock : public FileLock {
 public:
  explicit MutexLock(const std::wstring& name) : mutex_(CreateMutexW(nullptr, FALSE, name.c_str())) {}
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;
  ~MutexLock() override {
    if (isTaken_) ReleaseMutex(mutex_);
    if (mutex_ != nullptr) CloseHandle(mutex_);
  }

  bool Take() {
    const DWORD result = mutex_ != nullptr ? WaitForSingleObject(mutex_, kPatience) : WAIT_FAILED;
    // Who ended without giving it back has left a whole file all the same.
    isTaken_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    return isTaken_;
  }

 private:
  const HANDLE mutex_;
  bool isTaken_ = false;
};

}  // namespace

std::unique_ptr<FileLock> TakeFileLock(const std::filesystem::path& path) {
  auto lock = std::make_unique<MutexLock>(NameOf(path));
  if (!lock->Take()) return nullptr;
  return lock;
}

}  // namespace platform
