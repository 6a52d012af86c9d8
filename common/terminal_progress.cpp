#include "common/terminal_progress.h"

#include <charconv>

namespace {

// The first version of the widget behind GNOME's terminals that shows it: 0.79.
constexpr int kVteVersion = 7900;

int NumberOf(const std::string& text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// "ESC ] 9 ; 4 ; state ; percent BEL", as ConEmu began it.
std::string Sequence(int state, int percent) {
  return "\x1b]9;4;" + std::to_string(state) + ';' + std::to_string(percent) + '\a';
}

}  // namespace

bool TerminalShowsProgress(const std::function<std::string(const char* name)>& variable) {
  // One that stands between passes nothing on.
  if (!variable("TMUX").empty() || !variable("STY").empty()) return false;
  const std::string program = variable("TERM_PROGRAM");
  return !variable("WT_SESSION").empty() || variable("ConEmuANSI") == "ON" || program == "WezTerm" ||
         program == "ghostty" || NumberOf(variable("VTE_VERSION")) >= kVteVersion;
}

std::string TerminalProgress(std::optional<int> percent) {
  constexpr int kMeasured = 1;
  constexpr int kUnmeasured = 3;
  return percent ? Sequence(kMeasured, *percent) : Sequence(kUnmeasured, 0);
}

std::string TerminalProgressEnd() {
  constexpr int kNone = 0;
  return Sequence(kNone, 0);
}
