#pragma once

// What a run has to say, on standard error: the lines of the log channels as they come, from any thread, and
// below them on a terminal one line of progress that is drawn over.

#include <mutex>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/text.h"

namespace cli {

/// Attached to the log channels for as long as it lives; one at a time. It must outlive the threads that log.
class StatusLines {
 public:
  /// `width` is the terminal's in columns; it matters only with `onTerminal`.
  StatusLines(std::ostream& stream, bool onTerminal, int width);
  ~StatusLines();
  StatusLines(const StatusLines&) = delete;
  StatusLines& operator=(const StatusLines&) = delete;

  /// Writes a line. Any thread.
  void Print(std::string_view line);

  /// Replaces the line of progress; an empty one goes. Nothing happens off a terminal. Any thread.
  void ShowProgress(std::string_view text);

  /// Writes the device log too. Before there are other threads.
  void Trace();

 private:
  /// Texts of one channel on their way to a line; the end of a line is a text of its own.
  void Gather(std::string& line, const std::string& text, LineEnds lineEnds);
  void PrintLocked(std::string line, LineEnds lineEnds);
  void EraseProgress();

  std::ostream& stream_;
  const bool onTerminal_;
  const int width_;
  bool tracing_ = false;

  std::mutex mutex_;
  // Guarded by mutex_.
  std::string statusLine_;
  std::string warningLine_;
  std::string deviceLine_;
  std::string progress_;
};

}  // namespace cli
