// Bytes as a file of settings: whatever they are, the settings answer within their limits, what is set comes
// back from the file, and two copies of the program that have both read it keep each other's changes.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/log.h"
#include "fuzz/input.h"
#include "fuzz/working_folder.h"
#include "program/settings.h"

namespace {

using fuzz::Require;

constexpr char kFile[] = "LumarineConfig.xml";

void UseEverything(Settings& settings) {
  const std::int32_t speed = settings.DemoSpeed();
  Require(speed >= Settings::kMinDemoSpeed && speed <= Settings::kMaxDemoSpeed);
  settings.LoggingEnabled();
  settings.IsOn(Settings::kLightStrip);
  for (const char* const key : {"locale", "last_open_file", "place", "lamp_watts"}) {
    Require(settings.FindValue(key) == settings.GetValue(key));
  }
  settings.GetDeviceValue("device", "TC421-1", "TC421-1");
}

// In a file that is there: the writer says no to none of these.
void CheckTwoCopies(const std::filesystem::path& file) {
  Settings one(file);
  Settings other(file);
  one.SetValue("place", "55.5;12.5");
  one.SetDeviceValue("device", "TC421-1", "Reef");
  other.SetDemoSpeed(600);
  other.SetDeviceValue("device", "TC420-1", "Lagoon & 'more'");
  Require(one.Save() && other.Save());
  for (Settings* const settings : {&one, &other}) {
    if (settings == &one) Require(one.Save());
    Require(settings->GetValue("place") == "55.5;12.5" && settings->DemoSpeed() == 600);
    Require(settings->GetDeviceValue("device", "TC421-1", "") == "Reef");
    Require(settings->GetDeviceValue("device", "TC420-1", "") == "Lagoon & 'more'");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  statusLog.textHandler = nullptr;
  const fuzz::WorkingFolder& folder = fuzz::ThisFolder();
  const std::filesystem::path file = folder / kFile;
  folder.Write(kFile, std::string_view(reinterpret_cast<const char*>(data), size));
  Settings settings(file);
  UseEverything(settings);
  Require(settings.Save());

  const std::string saved = folder.Read(kFile);
  Settings again(file);
  UseEverything(again);
  Require(again.Save());
  // The writer lets such a text through as a CDATA section, which is none when it comes back.
  if (saved.find("<![CDATA[") == std::string::npos) Require(folder.Read(kFile) == saved);
  CheckTwoCopies(file);
  statusLog.Drain();
  return 0;
}
