#pragma once

// Answers the shells, which ask how a command line goes on when somebody presses Tab. What they are told is
// read from the declarations of the commands.

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

/// Whether a shell asks: its words are "complete", "--", and behind them what is typed. Help does not list
/// it.
bool IsCompletion(const std::vector<std::string>& arguments);

/// What may stand in place of the last word that is typed, which may be empty: a line each, with a tab and a
/// description behind it. A word that ends in "=" or ":" goes on. A line that begins with "/" says that a
/// file is meant; behind its tab are the endings, as in ".png .svg", or nothing for any file. `languages`
/// answers what --language takes.
std::string CompletionsOf(CLI::App& app, std::vector<std::string> typed,
                          const std::function<std::vector<std::string>()>& languages);

}  // namespace cli
