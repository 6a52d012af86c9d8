// The log pane's part of Ctrls.

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/ctrls.h"
#include "app/window/numbers.h"
#include "common/log.h"

namespace app {

namespace {
// Text longer than this is emptied before the next goes in; whole, not by lines.
constexpr std::size_t kMostLogText = 20480;
}  // namespace

void Ctrls::ConnectLogs() {
  statusLog.textHandler = [this](const std::string& text) { LogStatus(text); };
  warningLog.textHandler = [this](const std::string& text) { LogWarning(text); };
  statusLog.wakeHandler = [this] { WakeLog(); };
  warningLog.wakeHandler = [this] { WakeLog(); };
}

void Ctrls::DisconnectLogs() {
  for (LogChannel* log : {&statusLog, &warningLog}) {
    log->wakeHandler = nullptr;
    log->textHandler = nullptr;
  }
}

void Ctrls::LogStatus(std::string_view text) {
  // Nothing ever sets the colour back: lines behind a warning look like it.
  AppendLog(text, LogColor::AsBefore);
}

void Ctrls::LogWarning(std::string_view text) {
  AppendLog(text, LogColor::Red);
}

void Ctrls::WakeLog() {
  shell_.mainWindow.Post(WM_LOG_PENDING, 0, 0);
}

void Ctrls::AppendLog(std::string_view text, LogColor color) {
  shell_.logPane.Append(WideFromUtf8(text), color, kMostLogText);
}

}  // namespace app
