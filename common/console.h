#pragma once

// The console that a command line program is run from: its arguments, its terminal, and the key that stops
// it. One filling per platform below platform/; tests bring a console of their own.

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Tells where the program's output goes, and hears when its user stops it.
class Console {
 public:
  /// Watches for as long as it lives.
  class InterruptWatch {
   public:
    virtual ~InterruptWatch() = default;
  };

  virtual ~Console() = default;

  /// Whether a person reads along, as against a file or another program.
  virtual bool OutputIsTerminal() const = 0;
  virtual bool ErrorIsTerminal() const = 0;

  /// Whether standard output is a terminal that shows UTF-8 and obeys the escapes of colours, and its user
  /// wants them.
  virtual bool OutputShowsColours() const = 0;

  /// Whether that terminal shows by itself how far a program is (common/terminal_progress.h).
  virtual bool ErrorShowsProgress() const = 0;

  /// Columns of the terminal behind standard error; 80 if that cannot be told.
  virtual int Width() const = 0;

  /// Whether a person types the input.
  virtual bool InputIsTerminal() const = 0;

  /// A line of standard input (UTF-8) without its end, or as much of it as `most` bytes hold. A person is
  /// shown `prompt` first, and not what is typed. Nothing at the end of the input, or if the person gives up.
  virtual std::optional<std::string> ReadSecret(std::string_view prompt, std::size_t most) = 0;

  /// The same of a line that is shown as it is typed.
  virtual std::optional<std::string> ReadLine(std::string_view prompt, std::size_t most) = 0;

  /// From now on the first request to stop (Ctrl+C, the terminal closed, the system asking) calls `action`,
  /// once and on a thread of the console's own, instead of ending the program; a second one ends the program
  /// at once. To be called before other threads start, so that the request interrupts none of their waits.
  virtual std::unique_ptr<InterruptWatch> WatchInterrupts(std::function<void()> action) = 0;
};

namespace platform {

/// The arguments behind the program's name, in UTF-8; taken from main's, or from the system where that knows
/// better.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// Makes the standard streams carry bytes as they are written: UTF-8, no conversion of line ends. A reader
/// who goes away makes writes fail instead of ending the program. Call it once, before anything is
/// written.
Console& OpenConsole();

}  // namespace platform
