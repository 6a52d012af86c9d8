// devices/usb_rights.h on POSIX: hidapi's paths are device nodes, whose rights udev sets.

#include "devices/usb_rights.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "platform/posix/program_folder.h"

namespace platform {

namespace {

// A folder that sudo looks into on its own.
bool IsSearched(const std::filesystem::path& folder) {
  return folder == "/usr/bin" || folder == "/usr/local/bin";
}

// `text` as one word of a shell.
std::string ShellWord(const std::string& text) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+";
  if (text.find_first_not_of(kPlain) == std::string::npos) return text;
  std::string word = "'";
  for (const char letter : text) word += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  return word + "'";
}

// How a shell finds lumarinectl, which stands beside each program of ours.
std::string Lumarinectl() {
  constexpr char kName[] = "lumarinectl";
  const std::filesystem::path folder = ProgramFolder();
  if (folder.empty() || IsSearched(folder) || access((folder / kName).c_str(), X_OK) != 0) return kName;
  return ShellWord((folder / kName).native());
}

}  // namespace

bool MayOpenDevice(const std::string& path) {
  // Opening asks for the rights of the effective user.
  return faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) == 0 || errno != EACCES;
}

std::optional<std::filesystem::path> RulesFolder() {
  return "/etc/udev/rules.d";
}

std::vector<std::filesystem::path> PackagedRulesFolders() {
  return {"/usr/local/lib/udev/rules.d", "/usr/lib/udev/rules.d", "/lib/udev/rules.d"};
}

std::string RightsCommand() {
  return "sudo " + Lumarinectl() + " usb-setup";
}

}  // namespace platform
