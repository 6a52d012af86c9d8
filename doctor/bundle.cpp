#include "doctor/bundle.h"

#include <zlib.h>

#include <optional>

#include <hidapi/hidapi.h>

#include "common/files.h"
#include "doctor/computer_facts.h"
#include "doctor/device_log.h"
#include "doctor/frame_strike.h"
#include "doctor/report.h"
#include "doctor/secrets.h"
#include "doctor/zip_file.h"

namespace doctor {

namespace {

// Of a log so much is looked at, and so much of it handed on.
constexpr std::size_t kReadBytes = 4 << 20;
constexpr std::size_t kKeptBytes = 256 << 10;
constexpr std::size_t kSettingsBytes = 1 << 20;

std::vector<Finding> Struck(std::vector<Finding> findings, const Secrets& secrets) {
  const auto strike = [&](std::string_view text) { return secrets.Strike(text); };
  for (Finding& finding : findings) {
    finding.found = finding.found.With(strike);
    finding.advice = finding.advice.With(strike);
  }
  return findings;
}

// Behind the first line end, if it is not all.
std::string LastPart(std::string text) {
  if (text.size() <= kKeptBytes) return text;
  const std::size_t from = text.find('\n', text.size() - kKeptBytes);
  return text.substr(from == std::string::npos ? text.size() : from + 1);
}

std::string TextOfVersions(const Versions& versions) {
  std::string text;
  for (const auto& [name, version] : versions) text += name + ": " + version + '\n';
  return text;
}

Versions AllVersions(Versions versions) {
  for (const auto& version : platform::SystemVersions()) versions.push_back(version);
  versions.emplace_back("hidapi", hid_version_str());
  versions.emplace_back("zlib", zlibVersion());
  return versions;
}

}  // namespace

std::vector<BundleFile> MakeBundle(const Subject& subject, const std::vector<Finding>& findings,
                                   const Versions& versions) {
  Secrets secrets(platform::WhoThisIs());
  // The log first: what it tells of networks is struck out of all else, too.
  std::string log;
  const bool hasLog = ReadEnd(subject.deviceLogFile, kReadBytes, log);
  if (hasLog) log = LastPart(StrikeLog(log, secrets));
  const std::vector<Finding> struck = Struck(findings, secrets);
  const std::string version = versions.empty() ? std::string() : versions.front().second;

  std::vector<BundleFile> bundle;
  bundle.push_back({"report.txt", TextOf(struck, Signs::Words)});
  bundle.push_back({"report.json", JsonOf(struck, version)});
  bundle.push_back({"versions.txt", secrets.Strike(TextOfVersions(AllVersions(versions)))});
  std::string settings;
  if (ReadEnd(subject.settingsFile, kSettingsBytes, settings))
    bundle.push_back({"LumarineConfig.xml", secrets.Strike(settings)});
  if (hasLog) bundle.push_back({"LumarineLog.txt", std::move(log)});
  return bundle;
}

bool WriteBundle(const std::filesystem::path& file, const std::vector<BundleFile>& bundle,
                 std::string* reason) {
  return WriteFileBytes(file, ZipOf(bundle), false, reason);
}

}  // namespace doctor
