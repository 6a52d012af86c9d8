#include "cli/status_lines.h"

#include <functional>
#include <utility>

#include "common/log.h"
#include "common/terminal_progress.h"

namespace cli {

namespace {

// The item by which a log channel ends a line.
constexpr std::string_view kLogLineEnd = "\r\n";

// Drained as it is written: a line shows when it is logged, and a channel that nobody reads does not grow.
void Attach(LogChannel& channel, std::function<void(const std::string&)> handler) {
  channel.textHandler = std::move(handler);
  channel.wakeHandler = [&channel] { channel.Drain(); };
}

void Detach(LogChannel& channel) {
  channel.wakeHandler = nullptr;
  channel.textHandler = nullptr;
}

}  // namespace

StatusLines::StatusLines(std::ostream& stream, const Console& console)
    : stream_(stream),
      onTerminal_(console.ErrorIsTerminal()),
      hasSign_(console.ErrorShowsProgress()),
      width_(console.Width()) {
  Attach(statusLog, [this](const std::string& text) { Gather(statusLine_, text, LineEnds::Replace); });
  Attach(warningLog, [this](const std::string& text) { Gather(warningLine_, text, LineEnds::Replace); });
  Attach(deviceLog, [this](const std::string& text) {
    // A dump brings its own line ends.
    if (tracing_) Gather(deviceLine_, text, LineEnds::Keep);
  });
}

StatusLines::~StatusLines() {
  ShowProgress({});
  for (LogChannel* const channel : {&statusLog, &warningLog, &deviceLog}) Detach(*channel);
}

void StatusLines::Trace() {
  tracing_ = true;
}

void StatusLines::Print(std::string_view line) {
  const std::lock_guard lock(mutex_);
  PrintLocked(std::string(line), LineEnds::Replace);
}

void StatusLines::Gather(std::string& line, const std::string& text, LineEnds lineEnds) {
  const std::lock_guard lock(mutex_);
  if (text != kLogLineEnd) {
    line += text;
    return;
  }
  PrintLocked(line, lineEnds);
  line.clear();
}

void StatusLines::PrintLocked(std::string line, LineEnds lineEnds) {
  const std::string progress = progress_;
  EraseProgress();
  if (onTerminal_) line = ForTerminal(line, lineEnds);
  if (!line.ends_with('\n')) line += '\n';
  // All of it goes out in one piece, since standard error is written through at once.
  stream_ << line + progress << std::flush;
  progress_ = progress;
}

void StatusLines::ShowProgress(const ProgressLine& line) {
  const std::lock_guard lock(mutex_);
  if (!onTerminal_) return;
  ShowSign(line);
  if (line.text == progress_) return;
  EraseProgress();
  // The last column stays free: a terminal may go to the next line behind it.
  progress_ = line.text.substr(0, static_cast<std::size_t>(width_ > 1 ? width_ - 1 : 0));
  stream_ << progress_ << std::flush;
}

void StatusLines::ShowSign(const ProgressLine& line) {
  if (!hasSign_) return;
  const std::string none = TerminalProgressEnd();
  const std::string sign = line.text.empty() ? none : TerminalProgress(line.percent);
  if (sign == (sign_.empty() ? none : sign_)) return;
  sign_ = sign;
  stream_ << sign_ << std::flush;
}

void StatusLines::EraseProgress() {
  if (progress_.empty()) return;
  // Blanks and not an escape sequence, which an old Windows console would print.
  stream_ << '\r' + std::string(progress_.size(), ' ') + '\r';
  progress_.clear();
}

}  // namespace cli
