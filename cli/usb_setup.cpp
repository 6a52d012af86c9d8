// The command that lets users open controllers on USB: usb-setup.

#include <cerrno>
#include <string_view>
#include <system_error>

#include "cli/commands.h"
#include "cli/options.h"
#include "common/file_replace.h"
#include "common/files.h"
#include "common/helper_program.h"
#include "common/message.h"
#include "common/platform.h"
#include "devices/usb_rights.h"
#include "devices/usb_rule.h"

namespace cli {

namespace {

namespace fs = std::filesystem;

// Answers 0, or the C library's number of the error.
int InstallRule(const fs::path& file) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (error) return error.default_error_condition().value();
  const std::string_view rule =
      platform::FindResourceBytes(TCBase::kUsbRuleResource, TCBase::kUsbRuleType).value();
  return ReplaceFileBytes(*platform::SystemFileCalls(), file, rule);
}

ExitStatus ExplainError(const Session& session, const fs::path& file, int error) {
  const std::string name = Utf8FromPath(file);
  const Message line =
      error == EACCES || error == EPERM
          ? Message("Only root may write {1}. Give this command: {2}", name, platform::RightsCommand())
          : Message("Error creating file {1}, error: {2}", name, std::generic_category().message(error));
  session.status.Print(line.utf8());
  return ExitStatus::FileFailed;
}

bool TellUdev(const std::vector<std::string>& arguments) {
  const platform::HelperResult result = platform::RunSystemProgram("udevadm", arguments);
  return result.outcome == platform::HelperResult::Ended && result.status == 0;
}

ExitStatus SetUp(const Session& session) {
  const auto folder = platform::RulesFolder();
  if (!folder) {
    session.status.Print(
        Message("Nothing is to be set up: on this system every user may open controllers on USB.").utf8());
    return ExitStatus::Success;
  }
  // A package keeps its rule up to date; one of ours would stand before it for ever.
  const auto installed = TCBase::InstalledUsbRule();
  const bool packaged = installed && installed->parent_path() != *folder;
  const fs::path file = packaged ? *installed : *folder / TCBase::kUsbRuleFile;
  const int error = packaged ? 0 : InstallRule(file);
  if (error != 0) return ExplainError(session, file, error);
  // The second goes through the devices that are there, as if each had just been plugged in.
  const bool told = TellUdev({"control", "--reload"}) &&
                    TellUdev({"trigger", "--action=change", "--subsystem-match=hidraw"});
  session.status.Print(Message(told ? TextKey("{1} is installed. Who is logged in at this computer may open "
                                              "controllers on USB. If one is not found, plug it in again.")
                                    : TextKey("{1} is installed, but udev could not be told. Plug the "
                                              "controller in again."),
                               Utf8FromPath(file))
                           .utf8());
  return told ? ExitStatus::Success : ExitStatus::OperationFailed;
}

Run DeclareUsbSetup(CLI::App&) {
  return [](Session& session) { return SetUp(session); };
}

}  // namespace

const Command kUsbSetup = {
    "usb-setup",
    "Let users of this computer open controllers on USB (Linux)",
    R"(Linux keeps USB devices to root until a rule tells otherwise. This installs the rule for controllers,
/etc/udev/rules.d/70-lumarine.rules, unless a package has brought it, and has udev read it; once is enough. It
counts for who is logged in at the computer itself, not for who comes over ssh.
Example:
  sudo lumarinectl usb-setup)",
    &DeclareUsbSetup,
};

}  // namespace cli
