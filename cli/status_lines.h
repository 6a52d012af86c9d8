#pragma once

// What a run has to say, on standard error: the lines of the log channels as they come, from any thread, and
// below them on a terminal one line of progress that is drawn over.

#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/text.h"
#include "common/console.h"

namespace cli {

/// What is shown of the work in hand, for as long as it lasts.
struct ProgressLine {
  std::string text;            // empty if there is nothing to show
  std::optional<int> percent;  // done of it; nothing if nobody can tell

  friend bool operator==(const ProgressLine&, const ProgressLine&) = default;
};

/// Attached to the log channels for as long as it lives; one at a time. It must outlive the threads that log.
class StatusLines {
 public:
  /// `stream` is what `console` calls standard error.
  StatusLines(std::ostream& stream, const Console& console);
  ~StatusLines();
  StatusLines(const StatusLines&) = delete;
  StatusLines& operator=(const StatusLines&) = delete;

  /// Writes a line. Any thread.
  void Print(std::string_view line);

  /// Replaces the line of progress, and the sign of a terminal that has one; those of an empty line go.
  /// Nothing happens off a terminal. Any thread.
  void ShowProgress(const ProgressLine& line);

  /// Writes the device log too. Before there are other threads.
  void Trace();

 private:
  /// Texts of one channel on their way to a line; the end of a line is a text of its own.
  void Gather(std::string& line, const std::string& text, LineEnds lineEnds);
  void PrintLocked(std::string line, LineEnds lineEnds);
  void EraseProgress();
  void ShowSign(const ProgressLine& line);

  std::ostream& stream_;
  const bool onTerminal_;
  const bool hasSign_;  // the terminal shows how far we are by itself
  const int width_;
  bool tracing_ = false;

  std::mutex mutex_;
  // Guarded by mutex_.
  std::string statusLine_;
  std::string warningLine_;
  std::string deviceLine_;
  std::string progress_;
  std::string sign_;  // the sequence that was written last for the terminal's own sign
};

}  // namespace cli
