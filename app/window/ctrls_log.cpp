// The log pane's part of Ctrls.

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/ctrls.h"
#include "app/window/numbers.h"
#include "common/log.h"

namespace app {

namespace {
// Text longer than this is emptied before the next goes in; whole, not by lines.
constexpr std::size_t kMostLogText = 20480;
constexpr std::uint32_t kWarningColor = 255;  // red
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
  AppendLog(text, 0);
}

void Ctrls::LogWarning(std::string_view text) {
  AppendLog(text, kWarningColor);
}

void Ctrls::WakeLog() {
  shell_.mainWindow.Post(WM_LOG_PENDING, 0, 0);
}

void Ctrls::AppendLog(std::string_view text, std::uint32_t color) {
  LogPanePort& pane = shell_.logPane;
  std::size_t length = pane.Length();
  if (length > kMostLogText) {
    pane.Clear();
    length = 0;
  }
  // Nothing ever sets the colour back: lines behind a warning look like it.
  if (color != 0) pane.SetSelectionColor(color);
  pane.MoveCaret(length);
  pane.ReplaceSelection(WideFromUtf8(text));
  pane.ScrollToBottom();
}

}  // namespace app
