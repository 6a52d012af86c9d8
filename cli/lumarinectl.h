#pragma once

// The command line of Lumarine as a function: the program is its thin main, the tests call it in their own
// process.

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "common/console.h"
#include "localisation/translation_store.h"

namespace cli {

/// What the process answers to its caller; docs/command-line.md explains them to users.
enum class ExitStatus : int {
  Success = 0,
  OperationFailed = 1,  // a controller is there and something went wrong, or the user stopped it
  WrongUsage = 2,       // of the command line, or a request that makes no sense for this file
  NoDevice = 3,         // nobody at the other end
  FileFailed = 4,       // a file, or standard output, that cannot be read or written
};

/// The language of the messages.
struct MessageLanguage {
  std::string id;  // of a translation, or "en"
  /// The store that messages ask. Called for other languages than English only, for which nothing has to be
  /// read.
  std::function<TranslationStore&()> translations;
};

/// Runs one command. Messages are in `language` unless the arguments ask for another one; without such a
/// translation they are in English. Data goes to `out`, all that is said about it to `err`; `arguments` are
/// UTF-8 and do not hold the program's name. Blocks until the command is done, and answers an ExitStatus.
/// Attaches itself to the log channels while it runs, so only one may run at a time.
int RunLumarinectl(const std::vector<std::string>& arguments, MessageLanguage language, std::ostream& out,
                   std::ostream& err, Console& console);

}  // namespace cli
