#pragma once

// What a command works with, and what a command is.

#include <functional>
#include <ostream>
#include <string_view>

#include "cli/lumarinectl.h"
#include "cli/status_lines.h"
#include "common/console.h"

namespace CLI {
class App;
}

namespace cli {

/// One run of the program.
struct Session {
  std::ostream& out;    // data
  StatusLines& status;  // everything else
  Console& console;
  int outError = 0;  // the C library's number of why PrintNow could not write

  /// Writes data that is wanted before the command ends.
  void PrintNow(std::string_view data);

  /// Tells the user why nothing came of the command, and hands the status on.
  ExitStatus Fail(ExitStatus exitStatus, std::string_view reason) const;
};

/// Does what the parsed options ask for.
using Run = std::function<ExitStatus(Session&)>;

/// A row of the command table (command_line.cpp).
struct Command {
  const char* name;
  const char* summary;        // one line, for the list of commands
  const char* examples;       // at the end of the command's own help
  Run (*declare)(CLI::App&);  // adds the options; what it answers runs once they have been parsed
};

}  // namespace cli
