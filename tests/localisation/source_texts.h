#pragma once

// What the sources ask translations for: a reading of C++ that knows comments, literals and arguments, and no
// more of the language.

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace source_texts {

/// A function that has texts translated, or hands them on to one that does.
struct Asking {
  std::string_view function;
  /// Which of its arguments are keys, from 0. Of one in braces, all elements that are.
  std::vector<std::size_t> arguments;
  /// The file that has the function for itself; empty for one that all may call.
  std::string_view file = {};
};

/// An argument where a key is expected.
struct Place {
  std::string file;  // from the root, with slashes
  int line = 0;
  /// The texts that can stand there, one for each branch of a choice, as the program has them: literals
  /// joined, escapes resolved, constants of the same file looked up.
  std::vector<std::string> keys;
  /// What else stands there, a name mostly, without blanks: "row.text".
  std::vector<std::string> names;
};

/// A text anywhere in the sources.
struct Literal {
  std::string file;
  int line = 0;
  std::string text;
};

struct Found {
  std::vector<Place> places;
  std::vector<Literal> literals;  // all, adjacent ones joined; without the names of included files
};

/// Reads one source. `file` is what it is called in the result.
void Read(std::string_view source, const std::string& file, const std::vector<Asking>& asking, Found& found);

/// Reads all sources in these folders below `root`, by name.
Found ReadFolders(const std::filesystem::path& root, std::initializer_list<const char*> folders,
                  const std::vector<Asking>& asking);

}  // namespace source_texts
