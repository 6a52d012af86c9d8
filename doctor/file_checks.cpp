// The files that the program keeps for its user.

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <optional>
#include <system_error>

#include "OvkLib/src/ovk_xml.h"
#include "common/file_replace.h"
#include "common/files.h"
#include "common/platform.h"
#include "common/xml_file.h"
#include "doctor/checks.h"
#include "doctor/device_log.h"
#include "doctor/moments.h"
#include "program/settings.h"

namespace doctor {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kKilobyte = 1024;
constexpr std::uintmax_t kMegabyte = kKilobyte * kKilobyte;
// A program has some kilobytes; a save writes a second one first.
constexpr std::uintmax_t kLeastFreeBytes = kMegabyte;
constexpr std::uintmax_t kLittleFreeBytes = 100 * kMegabyte;
constexpr std::uintmax_t kLargeLogBytes = 100 * kMegabyte;
// What is looked at of a log; its traffic comes to a megabyte a day of uploads.
constexpr std::size_t kLogEndBytes = 1 << 20;

std::string ReasonOf(int error) {
  return std::generic_category().message(error);
}

// 0, or the C library's number of why no file can be made in `folder`. None is left there.
int WriteProbe(const fs::path& folder) {
  const fs::path file = folder / ("LumarineProbe-" + std::to_string(platform::ClockTicks()) + ".tmp");
  const auto calls = platform::SystemFileCalls();
  platform::FileCallResult result = calls->Create(file, true);
  if (result.error != 0) return result.error;
  result = calls->Close();
  calls->Remove(file);
  return result.error;
}

// As people read it.
std::string Megabytes(std::uintmax_t bytes) {
  return std::to_string(bytes / kMegabyte);
}

Finding Documents(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "documents-folder", Sentence(TextKey("Documents folder")), found, advice};
}

Finding FreeSpace(const std::string& name, std::uintmax_t bytes) {
  const Sentence room(TextKey("{1} can be written; free on its disk: {2} MB"), {name, Megabytes(bytes)});
  if (bytes >= kLittleFreeBytes) return Documents(Sign::Good, room);
  return Documents(bytes < kLeastFreeBytes ? Sign::Broken : Sign::Look, room,
                   Sentence(TextKey("Make room there: what cannot be written is not saved.")));
}

Finding SettingsFile(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "settings", Sentence(TextKey("Settings")), found, advice};
}

Finding SettingsThatAreThere(const fs::path& file) {
  const std::string name = Utf8FromPath(file);
  std::string bytes;
  std::string reason;
  if (!ReadFileBytes(file, bytes, kMostFileBytes, &reason))
    return SettingsFile(Sign::Broken, Sentence(TextKey("{1} cannot be read: {2}"), {name, reason}),
                        Sentence(TextKey("Give yourself the right to read and write it.")));
  ovk::xml::element root;
  if (!ovk::xml::load(file, root))
    return SettingsFile(
        Sign::Broken, Sentence(TextKey("{1} is damaged: it is no XML."), {name}),
        Sentence(TextKey("The program starts without it and writes a new one when it ends. Rename it "
                         "if you want to keep the old one.")));
  platform::FileTarget target;
  const int error = platform::SystemFileCalls()->Inspect(file, target).error;
  if (error != 0)
    return SettingsFile(Sign::Broken,
                        Sentence(TextKey("{1} cannot be written: {2}"), {name, ReasonOf(error)}),
                        Sentence(TextKey("Give yourself the right to read and write it.")));
  return SettingsFile(Sign::Good, Sentence(TextKey("{1} can be read and written."), {name}));
}

Finding Log(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "device-log", Sentence(TextKey("Device log")), found, advice};
}

// When the file was last written, as clocks here showed it.
std::optional<DateTime> LastWritten(const fs::path& file) {
  std::error_code error;
  const auto time = fs::last_write_time(file, error);
  if (error) return std::nullopt;
  const auto age = std::chrono::duration_cast<std::chrono::seconds>(fs::file_time_type::clock::now() - time);
  const DateTime now = platform::LocalTime();
  const DateTime then = Earlier(now, age.count());
  const auto offsetNow = platform::UtcOffsetMinutes(now);
  const auto offsetThen = platform::UtcOffsetMinutes(then);
  constexpr int kSecondsPerMinute = 60;
  return offsetNow && offsetThen ? Earlier(then, (*offsetNow - *offsetThen) * kSecondsPerMinute) : then;
}

Finding LogThatIsThere(const fs::path& file, bool isOn) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  const auto written = LastWritten(file);
  std::string end;
  if (error || !written || !ReadEnd(file, kLogEndBytes, end))
    return Log(Sign::Look, Sentence(TextKey("{1} cannot be read."), {Utf8FromPath(file)}),
               Sentence(TextKey("Give yourself the right to read and write it.")));
  const std::string when = ToMinuteText(*written);
  const std::string kilobytes = std::to_string((size + kKilobyte - 1) / kKilobyte);
  if (const std::string trouble = ReadLogEnd(end).error; !trouble.empty())
    return Log(Sign::Look, Sentence(TextKey("It ends with an error ({1}): {2}"), {when, trouble}),
               Sentence(TextKey("Look at the cable or the network, and try again what failed.")));
  const Sentence told(isOn ? TextKey("Logging is on. Last written {1}, {2} KB.")
                           : TextKey("Logging is off. Last written {1}, {2} KB."),
                      {when, kilobytes});
  if (size > kLargeLogBytes)
    return Log(Sign::Look, told,
               Sentence(TextKey("Delete the file when you need it no more: {1}"), {Utf8FromPath(file)}));
  return Log(Sign::Good, told);
}

}  // namespace

Findings CheckDocuments(const Subject&) {
  const auto folder = platform::DocumentsFolder();
  if (!folder)
    return {Documents(Sign::Broken, Sentence(TextKey("There is none.")),
                      Sentence(TextKey("Make a folder for documents: settings and logs are kept there.")))};
  const std::string name = Utf8FromPath(*folder);
  if (const int error = WriteProbe(*folder); error != 0)
    return {Documents(Sign::Broken, Sentence(TextKey("{1} cannot be written: {2}"), {name, ReasonOf(error)}),
                      Sentence(TextKey("Give yourself the right to read and write it.")))};
  std::error_code error;
  const fs::space_info space = fs::space(*folder, error);
  if (error) return {Documents(Sign::Good, Sentence(TextKey("{1} can be read and written."), {name}))};
  return {FreeSpace(name, space.available)};
}

Findings CheckSettings(const Subject& subject) {
  std::error_code error;
  if (fs::exists(subject.settingsFile, error) || error) return {SettingsThatAreThere(subject.settingsFile)};
  return {SettingsFile(
      Sign::Good, Sentence(TextKey("None are kept yet: the desktop program writes them when it ends.")))};
}

Findings CheckDeviceLog(const Subject& subject) {
  const bool isOn = Settings(subject.settingsFile).LoggingEnabled();
  std::error_code error;
  if (fs::exists(subject.deviceLogFile, error) || error) return {LogThatIsThere(subject.deviceLogFile, isOn)};
  return {Log(Sign::Good, Sentence(isOn ? TextKey("Logging is on. Nothing has been written yet.")
                                        : TextKey("Logging is off, and there is none.")))};
}

}  // namespace doctor
