#pragma once

// The texts in the sources, and which of them are keys of the translations. It reads literals and the word in
// front of them, and knows nothing else of C++.

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace source_texts {

struct Literal {
  std::string file;  // from the root, with slashes
  int line = 0;
  std::string text;    // as the program has it; adjacent literals are one
  bool isKey = false;  // it stands in Message("..."), Translate("..."), Hint("...") or TextKey("...")
};

/// Reads one source, without the names of included files. `file` is what it is called in the result.
std::vector<Literal> Read(std::string_view source, const std::string& file);

/// Reads all sources in these folders below `root`.
std::vector<Literal> ReadFolders(const std::filesystem::path& root,
                                 std::initializer_list<const char*> folders);

}  // namespace source_texts
