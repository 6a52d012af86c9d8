// doctor/computer_facts.h on POSIX.

#include "doctor/computer_facts.h"

#include <gnu/libc-version.h>
#include <pwd.h>
#include <sys/timex.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>

#include "common/files.h"
#include "doctor/system_texts.h"
#include "platform/posix/processes.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

void AddTo(std::vector<std::string>& list, const std::string& text) {
  if (!text.empty()) list.push_back(text);
}

// With what symbolic links lead to.
void AddHome(Identity& identity, const std::string& home) {
  AddTo(identity.homes, home);
  std::error_code error;
  const fs::path real = fs::canonical(home, error);
  if (!error && real != home) AddTo(identity.homes, real.native());
}

void AddAccount(Identity& identity, const passwd* account) {
  if (account == nullptr) return;
  AddTo(identity.users, account->pw_name);
  AddHome(identity, account->pw_dir);
  const std::string_view about = account->pw_gecos != nullptr ? account->pw_gecos : "";
  AddTo(identity.users, std::string(about.substr(0, about.find(','))));
}

}  // namespace

DeviceUse UseOfDevice(const std::string& path) {
  std::error_code error;
  const fs::path node = fs::canonical(path, error);
  if (error) return {};
  return {false, ProcessesWith([&](std::string_view file) { return file == node.native(); })};
}

ClockKeeper WhoKeepsTheClock() {
  timex clock{};
  const int state = adjtimex(&clock);
  if (state < 0) return ClockKeeper::Unknown;
  return state == TIME_ERROR || (clock.status & STA_UNSYNC) != 0 ? ClockKeeper::Nobody : ClockKeeper::Network;
}

std::optional<int> UtcOffsetMinutes(const DateTime& local) {
  constexpr int kFirstYear = 1900;
  constexpr long kSecondsPerMinute = 60;
  tm time{};
  time.tm_year = local.year - kFirstYear;
  time.tm_mon = local.month - 1;
  time.tm_mday = local.day;
  time.tm_hour = local.hour;
  time.tm_min = local.minute;
  time.tm_sec = local.second;
  time.tm_isdst = -1;  // as the calendar has it
  tm found{};
  const std::time_t moment = mktime(&time);
  if (moment == std::time_t{-1} || localtime_r(&moment, &found) == nullptr) return std::nullopt;
  return static_cast<int>(found.tm_gmtoff / kSecondsPerMinute);
}

Identity WhoThisIs() {
  constexpr std::size_t kMostHostName = 256;
  Identity identity;
  AddHome(identity, Environment("HOME"));
  AddAccount(identity, getpwuid(getuid()));
  // Whom sudo works for.
  const std::string caller = Environment("SUDO_USER");
  if (!caller.empty()) AddAccount(identity, getpwnam(caller.c_str()));
  for (const char* const name : {"USER", "LOGNAME", "SUDO_USER"}) AddTo(identity.users, Environment(name));
  std::array<char, kMostHostName> host{};
  if (gethostname(host.data(), host.size() - 1) == 0) AddTo(identity.hosts, host.data());
  return identity;
}

std::vector<std::pair<std::string, std::string>> SystemVersions() {
  std::string release;
  ReadFileBytes("/etc/os-release", release);
  utsname kernel{};
  uname(&kernel);
  std::vector<std::pair<std::string, std::string>> versions = {
      {"System", doctor::OsReleaseValue(release, "PRETTY_NAME")},
      {"Kernel", std::string(kernel.sysname) + ' ' + kernel.release + ' ' + kernel.machine},
      {"C library", std::string("glibc ") + gnu_get_libc_version()}};
  for (const char* const name : {"LANG", "XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE"})
    if (std::string value = Environment(name); !value.empty()) versions.emplace_back(name, std::move(value));
  return versions;
}

}  // namespace platform
