#pragma once

// The program's few lasting preferences: one XML tree in memory, read when the program starts and written
// back when it ends. Values are text, and an empty one means the same as an absent one. What other running
// copies of the program have written meanwhile stays: only what this one changed goes into the file.
//
// Keys: "locale", "last_open_file" (UTF-8), "demo_speed" (seconds), "logging", "careful_mouse" and
// "light_strip" ("on" or "off"), "lamp_watts" and "lamp_par" (five numbers with semicolons between them),
// "electricity_price", "figures_level" (percent), "place" (of the last day of sun); for each device, told
// apart by the device's name for itself: "device" (the name shown) and "device_description".

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_xml.h"

/// The path of a file in the user's Documents folder. If the platform does not know that folder the answer is
/// the working folder alone, which neither opens nor takes a file.
std::filesystem::path DocumentPath(std::u16string_view name);

/// What the desktop program writes of its traffic with controllers, in the Documents folder.
inline constexpr char16_t kDeviceLogName[] = u"LumarineLog.txt";

/// All operations may be called on any thread; values come and go as copies.
class Settings {
 public:
  /// Quickest demo and slowest, and the one without a setting: seconds for a whole day.
  static constexpr std::int32_t kMinDemoSpeed = 10;
  static constexpr std::int32_t kMaxDemoSpeed = 86400;
  static constexpr std::int32_t kDefaultDemoSpeed = 60;

  static constexpr char16_t fileName[] = u"LumarineConfig.xml";

  /// Choices for IsOn and SetOn.
  static constexpr std::string_view kLightStrip = "light_strip";

  /// The one of the process, from `fileName` in the Documents folder. It is built at the first call, saved at
  /// the process's regular end, and never destroyed. A crash loses the changes of the run.
  static Settings& Instance();

  /// Reads `file`. If that does not give settings they start empty, without a message.
  explicit Settings(std::filesystem::path file);

  /// Reads the file anew, puts in each value that is another one here than it was when it was read, and
  /// writes the file, all or nothing. From then on the values here are those of the file. Where a value was
  /// changed here and in another copy of the program, the last to save wins. Of two that save at the same
  /// moment one waits for the other, a second at most: then, or where the folder cannot be locked, it might
  /// take back what the other one is just writing. A file that is no settings by now is replaced by all that
  /// is held here. False and a line on statusLog if that fails. Nobody but
  /// Instance() calls it unasked.
  bool Save();

  /// The text of a key. Reading a key creates it, so it stands in the file from then on.
  std::string GetValue(std::string_view key);
  /// The same, and the key is not created.
  std::string FindValue(std::string_view key);
  void SetValue(std::string_view key, std::string_view value);

  /// A choice that the user turns on and off: on for the text "on", off for any other and for none. Reading
  /// it creates no key.
  bool IsOn(std::string_view key) { return FindValue(key) == kOn; }
  void SetOn(std::string_view key, bool on) { SetValue(key, on ? kOn : kOff); }

  /// The text of a key of one device, or `fallback` if it was never set.
  std::string GetDeviceValue(std::string_view tag, std::string_view id, std::string_view fallback);
  void SetDeviceValue(std::string_view tag, std::string_view id, std::string_view value);

  /// Seconds that a demo takes for a whole day, within the limits above whatever the file says.
  std::int32_t DemoSpeed();
  /// Tells the user. Expects a value within the limits.
  void SetDemoSpeed(std::int32_t seconds);

  bool LoggingEnabled();

 private:
  static constexpr std::string_view kOn = "on";
  static constexpr std::string_view kOff = "off";

  const std::filesystem::path file_;

  std::mutex lock_;
  // Guarded by lock_.
  ovk::xml::element root_;
  ovk::xml::element read_;  // root_ as the file had it; the same settings are at the same indices
};
