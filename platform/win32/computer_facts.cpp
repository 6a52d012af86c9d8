// doctor/computer_facts.h on Windows.

#include "doctor/computer_facts.h"

#include <memory>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/files.h"
#include "platform/win32/system_time.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#define SECURITY_WIN32
#include <security.h>
#include <shlobj.h>

namespace platform {

namespace {

constexpr DWORD kRoom = 1024;
constexpr wchar_t kClockService[] = L"SYSTEM\\CurrentControlSet\\Services\\W32Time";
constexpr wchar_t kClockParameters[] = L"SYSTEM\\CurrentControlSet\\Services\\W32Time\\Parameters";
constexpr wchar_t kWindows[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

// Empty if there is none.
std::wstring RegistryText(const wchar_t* key, const wchar_t* name) {
  wchar_t text[kRoom] = {};
  DWORD size = sizeof text;
  const LSTATUS error = RegGetValueW(HKEY_LOCAL_MACHINE, key, name, RRF_RT_REG_SZ, nullptr, text, &size);
  return error == ERROR_SUCCESS ? text : L"";
}

// Whether nobody may start it.
bool IsDisabled(const wchar_t* service) {
  DWORD start = 0;
  DWORD size = sizeof start;
  const LSTATUS error =
      RegGetValueW(HKEY_LOCAL_MACHINE, service, L"Start", RRF_RT_REG_DWORD, nullptr, &start, &size);
  return error == ERROR_SUCCESS && start == SERVICE_DISABLED;
}

void AddTo(std::vector<std::string>& list, std::wstring_view text) {
  if (!text.empty()) list.push_back(Utf8FromPlatformWide(text));
}

// As it is, and as old programs spell it: "C:\Users\ANNAMU~1".
void AddHome(Identity& identity, const wchar_t* home) {
  wchar_t brief[kRoom] = {};
  AddTo(identity.homes, home);
  if (GetShortPathNameW(home, brief, kRoom) != 0) AddTo(identity.homes, brief);
}

std::wstring Environment(const wchar_t* name) {
  wchar_t text[kRoom] = {};
  const DWORD length = GetEnvironmentVariableW(name, text, kRoom);
  return length < kRoom ? text : L"";
}

std::int64_t MinuteOf(const SYSTEMTIME& time) {
  constexpr std::int64_t kTicksPerMinute = std::int64_t{60} * 10'000'000;
  FILETIME ticks{};
  SystemTimeToFileTime(&time, &ticks);
  return (static_cast<std::int64_t>(ticks.dwHighDateTime) << 32 | ticks.dwLowDateTime) / kTicksPerMinute;
}

// The version without what Windows tells programs that do not know it.
std::string SystemVersion() {
  using VersionQuery = LONG(WINAPI*)(RTL_OSVERSIONINFOW*);
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  const auto getVersion =
      reinterpret_cast<VersionQuery>(reinterpret_cast<void (*)()>(GetProcAddress(library, "RtlGetVersion")));
  RTL_OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  if (getVersion == nullptr || getVersion(&version) != 0) return "Windows";
  return "Windows " + std::to_string(version.dwMajorVersion) + '.' + std::to_string(version.dwMinorVersion) +
         '.' + std::to_string(version.dwBuildNumber);
}

// Empty on Windows itself.
std::string WineVersion() {
  using VersionQuery = const char* (*)();
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  const auto getVersion = reinterpret_cast<VersionQuery>(
      reinterpret_cast<void (*)()>(GetProcAddress(library, "wine_get_version")));
  return getVersion != nullptr ? getVersion() : "";
}

}  // namespace

DeviceUse UseOfDevice(const std::string& path) {
  const HANDLE device = CreateFileW(PathFromUtf8(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (device == INVALID_HANDLE_VALUE) return {GetLastError() == ERROR_SHARING_VIOLATION, {}};
  CloseHandle(device);
  return {};
}

ClockKeeper WhoKeepsTheClock() {
  const std::wstring type = RegistryText(kClockParameters, L"Type");
  if (type.empty()) return ClockKeeper::Unknown;
  return type == L"NoSync" || IsDisabled(kClockService) ? ClockKeeper::Nobody : ClockKeeper::Network;
}

std::optional<int> UtcOffsetMinutes(const DateTime& local) {
  const SYSTEMTIME time = win32::SystemTimeOf(local);
  SYSTEMTIME utc{};
  // The newer call, which knows the rules of past years, is not there under Wine.
  if (TzSpecificLocalTimeToSystemTime(nullptr, &time, &utc) == 0) return std::nullopt;
  return static_cast<int>(MinuteOf(time) - MinuteOf(utc));
}

Identity WhoThisIs() {
  Identity identity;
  PWSTR profile = nullptr;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Profile, 0, nullptr, &profile))) AddHome(identity, profile);
  CoTaskMemFree(profile);
  AddHome(identity, Environment(L"USERPROFILE").c_str());
  wchar_t name[kRoom] = {};
  DWORD length = kRoom;
  if (GetUserNameW(name, &length) != 0) AddTo(identity.users, name);
  ULONG fullLength = kRoom;
  if (GetUserNameExW(NameDisplay, name, &fullLength) != 0) AddTo(identity.users, name);
  for (const COMPUTER_NAME_FORMAT format : {ComputerNameDnsHostname, ComputerNameNetBIOS}) {
    length = kRoom;
    if (GetComputerNameExW(format, name, &length) != 0) AddTo(identity.hosts, name);
  }
  return identity;
}

std::vector<std::pair<std::string, std::string>> SystemVersions() {
  std::vector<std::pair<std::string, std::string>> versions = {{"System", SystemVersion()}};
  if (const std::wstring name = RegistryText(kWindows, L"ProductName"); !name.empty())
    versions.emplace_back("Edition", Utf8FromPlatformWide(name));
  if (std::string wine = WineVersion(); !wine.empty()) versions.emplace_back("Wine", std::move(wine));
  wchar_t locale[LOCALE_NAME_MAX_LENGTH] = {};
  if (GetUserDefaultLocaleName(locale, LOCALE_NAME_MAX_LENGTH) != 0)
    versions.emplace_back("Locale", Utf8FromPlatformWide(locale));
  return versions;
}

}  // namespace platform
