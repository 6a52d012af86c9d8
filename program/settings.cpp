#include "program/settings.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_text.h"
#include "common/file_lock.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "common/xml_file.h"

namespace {

using ovk::xml::element;

std::string TextOf(const element& setting) {
  return std::string(setting.text.view());
}

void Assign(ovk::string& text, std::string_view value) {
  text.assign(value.data(), static_cast<std::int32_t>(value.size()));
}

// Whatever the root of the file is called, its children are taken for settings. These are one level deep.
// Deeper ones, which only a foreign file has, are dropped: the indentation would let the file grow with the
// square of their depth when it is written back.
bool Read(const std::filesystem::path& file, element& root, std::string* reason = nullptr) {
  if (!ovk::xml::load(file, root, reason)) return false;
  for (auto& setting : root.children) setting->children.clear();
  return true;
}

element& DeviceSetting(element& root, std::string_view tag, std::string_view id) {
  if (element* const found = root.find_child_by_id(tag, id)) return *found;
  element& added = root.append_child(tag);
  Assign(added.attribute("id").value, id);
  return added;
}

// Puts into `file` what is new or changed in `held`, which began as a copy of `read`.
void Merge(element& file, const element& held, const element& read) {
  for (std::int32_t i = 0; i < held.children.count(); ++i) {
    const element& setting = *held.children[i];
    const bool wasRead = i < read.children.count();
    if (wasRead && setting.text == read.children[i]->text) continue;
    const std::int32_t id = setting.find_attribute("id");
    if (id >= 0) {
      DeviceSetting(file, setting.name.view(), setting.attributes[id].value.view()).text = setting.text;
    } else {
      element& there = file.child(setting.name.view());
      // A key that somebody merely asked for is there and empty; it is nobody's change.
      if (wasRead || !setting.text.empty()) there.text = setting.text;
    }
  }
}

}  // namespace

std::filesystem::path DocumentPath(std::u16string_view name) {
  const auto folder = platform::DocumentsFolder();
  if (!folder) return std::filesystem::path(".") / "";
  return *folder / PathFromUtf8(Utf8FromWide(name));
}

Settings& Settings::Instance() {
  static Settings* const settings = [] {
    std::atexit([] { Instance().Save(); });
    return new Settings(DocumentPath(fileName));
  }();
  return *settings;
}

Settings::Settings(std::filesystem::path file) : file_(std::move(file)), root_("config") {
  if (Read(file_, root_)) read_ = root_;
}

bool Settings::Save() {
  const std::lock_guard guard(lock_);
  const auto turn = platform::TakeFileLock(file_);
  element merged;
  std::string reason;
  if (Read(file_, merged, &reason)) {
    Merge(merged, root_, read_);
  } else if (!reason.empty() && MayBeThere(file_)) {
    // What stands there would be lost to a drive that fails for a moment.
    LogStatus(Message("Error creating file {1}, error: {2}", file_, reason));
    return false;
  } else {
    merged = root_;
  }
  if (!ovk::xml::save(file_, merged)) return false;
  root_ = merged;
  read_.swap(merged);
  return true;
}

std::string Settings::GetValue(std::string_view key) {
  const std::lock_guard guard(lock_);
  return TextOf(root_.child(key));
}

std::string Settings::FindValue(std::string_view key) {
  const std::lock_guard guard(lock_);
  const std::int32_t found = root_.find_next_child(key, -1);
  return found < 0 ? std::string() : TextOf(*root_.children[found]);
}

void Settings::SetValue(std::string_view key, std::string_view value) {
  const std::lock_guard guard(lock_);
  Assign(root_.child(key).text, value);
}

std::string Settings::GetDeviceValue(std::string_view tag, std::string_view id, std::string_view fallback) {
  const std::lock_guard guard(lock_);
  const element* const found = root_.find_child_by_id(tag, id);
  return found != nullptr ? TextOf(*found) : std::string(fallback);
}

void Settings::SetDeviceValue(std::string_view tag, std::string_view id, std::string_view value) {
  const std::lock_guard guard(lock_);
  Assign(DeviceSetting(root_, tag, id).text, value);
}

std::int32_t Settings::DemoSpeed() {
  const std::string text = GetValue("demo_speed");
  if (text.empty()) return kDefaultDemoSpeed;
  // atoi is undefined for a number that is too large; strtol stops at the limit.
  const long seconds = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<std::int32_t>(std::clamp<long>(seconds, kMinDemoSpeed, kMaxDemoSpeed));
}

void Settings::SetDemoSpeed(std::int32_t seconds) {
  SetValue("demo_speed", ToDecimal(seconds));
  LogStatus(Message("Demo playback speed set to {1} seconds", seconds));
}

bool Settings::LoggingEnabled() {
  return GetValue("logging") == kOn;
}
