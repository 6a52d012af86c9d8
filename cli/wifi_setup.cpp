// The command that brings a controller into a wireless network: wifi-setup.

#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "cli/device_word.h"
#include "cli/explain.h"
#include "cli/options.h"
#include "cli/serve.h"
#include "common/files.h"
#include "common/message.h"
#include "devices/controller_models.h"
#include "devices/wifi.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::WifiNetworkConfig;

constexpr std::size_t kLongestSsid = 32;
// Lengths of what protects a network: a phrase, or, with the longest, a key in hexadecimal.
constexpr std::size_t kShortestPassword = 8;
constexpr std::size_t kLongestPassword = 64;
// A packet carries no more to a controller with a name of full length.
constexpr std::size_t kCarriedPassword = 42;

struct WifiArguments {
  DeviceArguments device;  // one
  std::string ssid;
  std::string security;
  std::string encryption = "aes";
  std::string passwordFile;  // UTF-8; "-" is standard input, empty asks for it
};

TCBase::WifiSecurity SecurityOf(const std::string& word) {
  if (word == "open") return TCBase::SecurityOpen;
  return word == "wpa" ? TCBase::SecurityWPA : TCBase::SecurityWPA2;
}

std::string CheckSsid(const std::string& ssid) {
  if (!ssid.empty() && ssid.size() <= kLongestSsid) return {};
  return "the name of a wireless network has 1 to 32 bytes, not " + std::to_string(ssid.size());
}

std::string CheckNetworkDevice(const std::string& word) {
  std::string fault = CheckDevice(word);
  if (!fault.empty() || IsOnNetwork(*ParseDevice(word))) return fault;
  return "WiFi is set up over the network: --device udp:NAME@ADDRESS, as \"lumarinectl scan\" lists it, "
         "not " +
         word;
}

// Some editors put it in front of a file; it is no part of a password.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// Enough of a line to tell that it is too long.
constexpr std::size_t kMostRead = kByteOrderMark.size() + kLongestPassword + 1;

// The first line, of a file of any length.
std::optional<std::string> ReadFirstLine(const std::string& file) {
  std::ifstream stream;
  if (OpenToRead(PathFromUtf8(file), stream) != 0) return std::nullopt;
  std::string line;
  char byte = 0;
  while (line.size() < kMostRead && stream.get(byte) && byte != '\n') line += byte;
  if (stream.bad() || (line.empty() && !stream)) return std::nullopt;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

ExitStatus ReadPassword(const Session& session, const WifiArguments& arguments, std::string& password) {
  const bool typed = arguments.passwordFile.empty();
  if (typed && !session.console.InputIsTerminal())
    return session.Fail(ExitStatus::WrongUsage,
                        "there is no terminal to ask for the password, give --password-file FILE, or - for "
                        "standard input");
  const bool fromConsole = typed || arguments.passwordFile == "-";
  const std::optional<std::string> read =
      fromConsole ? session.console.ReadSecret(Message("Password:").utf8() + " ", kMostRead)
                  : ReadFirstLine(arguments.passwordFile);
  if (!read && typed) return session.Fail(ExitStatus::OperationFailed, "no password was given");
  if (!read)
    return session.Fail(ExitStatus::FileFailed, "no password can be read from " + arguments.passwordFile);
  password = *read;
  if (!typed && password.starts_with(kByteOrderMark)) password.erase(0, kByteOrderMark.size());
  if (password.size() < kShortestPassword || password.size() > kLongestPassword)
    return session.Fail(ExitStatus::WrongUsage,
                        "the password of a protected network has 8 to 64 bytes, this one has not");
  if (password.size() > kCarriedPassword)
    session.status.Print(
        Message("A controller may be given the first 42 bytes of a password only. If it does not join, "
                "give the network a shorter one.")
            .utf8());
  return ExitStatus::Success;
}

ExitStatus SetUp(const Session& session, const WifiArguments& arguments) {
  WifiNetworkConfig config;
  config.ssid = arguments.ssid;
  config.security = SecurityOf(arguments.security);
  config.encryption = arguments.encryption == "aes" ? TCBase::EncryptionAES : TCBase::EncryptionTKIP;
  if (config.security != TCBase::SecurityOpen) {
    const ExitStatus read = ReadPassword(session, arguments, config.password);
    if (read != ExitStatus::Success) return read;
  }
  if (arguments.device.trace) session.status.Trace();

  const DeviceInfo device = *ParseDevice(arguments.device.devices.front());
  const TCBase::OperationResult result = SetupWifi(device, config).result;
  if (result == TCBase::OperationResult::Done) {
    session.status.Print(
        Message("The controller has the settings. Bring this computer into the same network, "
                "and \"lumarinectl scan\" finds it there.")
            .utf8());
    return ExitStatus::Success;
  }
  const bool explained = ExplainNetwork(session, device, result);
  return explained ? ExitStatus::NoDevice : ExitStatus::OperationFailed;
}

Run DeclareWifiSetup(CLI::App& app) {
  const auto arguments = std::make_shared<WifiArguments>();
  app.add_option("--device", arguments->device.devices, "The controller, as \"lumarinectl scan\" lists it")
      ->required()
      ->expected(1)
      ->check(CLI::Validator(CheckNetworkDevice, ""))
      ->type_name("udp:NAME@ADDRESS");
  app.add_option("--ssid", arguments->ssid, "The name of the wireless network that it is to join")
      ->required()
      ->check(CLI::Validator(CheckSsid, ""))
      ->type_name("SSID");
  app.add_option("--security", arguments->security, "How that network is protected")
      ->required()
      ->check(Unnamed(CLI::IsMember({"open", "wpa", "wpa2"})))
      ->type_name("open|wpa|wpa2");
  app.add_option("--encryption", arguments->encryption, "Of a protected network, aes unless told")
      ->check(Unnamed(CLI::IsMember({"aes", "tkip"})))
      ->type_name("aes|tkip");
  app.add_option("--password-file", arguments->passwordFile,
                 "Take the password from the first line of this file, - for standard input")
      ->type_name("FILE");
  DeclareTrace(app, arguments->device);
  return [arguments](Session& session) { return SetUp(session, *arguments); };
}

}  // namespace

const Command kWifiSetup = {
    "wifi-setup",
    "Bring a network controller into a wireless network",
    R"(The password of a protected network is asked for, or read from a file; it is no option, since other
users of the computer see those. A trace shows it.
Examples:
  lumarinectl wifi-setup --device udp:Smart-123456@192.168.4.1 --ssid Home --security wpa2
  lumarinectl wifi-setup --device udp:Smart-123456@192.168.4.1 --ssid Guests --security open)",
    &DeclareWifiSetup,
};

}  // namespace cli
