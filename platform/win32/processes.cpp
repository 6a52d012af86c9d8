#include "platform/win32/processes.h"

#include <filesystem>
#include <memory>

#include "common/files.h"

namespace win32 {

namespace {

struct CloseIt {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

// "Lumarine.exe"; empty if it cannot be told.
std::string ProgramOf(DWORD process) {
  constexpr DWORD kRoom = 1024;
  const std::unique_ptr<void, CloseIt> handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
  wchar_t path[kRoom] = {};
  DWORD length = kRoom;
  if (!handle || QueryFullProcessImageNameW(handle.get(), 0, path, &length) == 0) return {};
  return Utf8FromPath(std::filesystem::path(path).filename());
}

}  // namespace

platform::Holder HolderOf(DWORD process) {
  return {ProgramOf(process), static_cast<std::int64_t>(process), process == GetCurrentProcessId()};
}

}  // namespace win32
