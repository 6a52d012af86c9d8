#include "app/handlers/device_log.h"

#include "common/files.h"
#include "common/log.h"
#include "common/message.h"

namespace app {

void ConfigureDeviceLog(Settings& settings, const std::filesystem::path& file) {
  if (settings.LoggingEnabled()) {
    deviceLog.textHandler = [file](const std::string& text) { WriteFileBytes(file, text, true); };
    deviceLog.wakeHandler = [] { deviceLog.Drain(); };
  } else {
    deviceLog.textHandler = nullptr;
    deviceLog.wakeHandler = nullptr;
  }
}

void ToggleDeviceLog(Settings& settings, const std::filesystem::path& file) {
  const bool on = !settings.LoggingEnabled();
  settings.SetOn("logging", on);
  LogStatus(Message("Device communication logging {1}", on ? "ON." : "OFF."));
  ConfigureDeviceLog(settings, file);
}

}  // namespace app
