#include "tests/localisation/source_texts.h"

#include <algorithm>
#include <cctype>
#include <regex>

#include "tests/support/files.h"

namespace source_texts {

namespace {

// Whether what stands in front of a literal makes it a key.
bool MarksKey(std::string_view before) {
  static const std::regex marker(R"(\b(Message|Translate|Hint|TextKey)(\s+\w+)?\s*[({]\s*$)");
  constexpr std::size_t kLongestMarker = 80;  // with the line break and the blanks behind it
  const std::string end(before.substr(before.size() - std::min(before.size(), kLongestMarker)));
  return std::regex_search(end, marker);
}

// What the escapes of a literal stand for.
std::string Unescaped(std::string_view literal) {
  std::string text;
  for (std::size_t i = 0; i < literal.size(); ++i) {
    if (literal[i] == '\\') ++i;
    const bool escaped = i > 0 && literal[i - 1] == '\\';
    text += escaped && literal[i] == 'r' ? '\r' : escaped && literal[i] == 'n' ? '\n' : literal[i];
  }
  return text;
}

// The length of the literal that `source` begins with, its quotes included. A character is one, too.
std::size_t LiteralLength(std::string_view source) {
  std::size_t end = 1;
  while (source.at(end) != source.front()) end += source[end] == '\\' ? 2U : 1U;
  return end + 1;
}

bool IsOfWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// Whether a character begins here; a quote between digits parts them. Its kind may stand in front: u'x'.
bool BeginsCharacter(std::string_view source, std::size_t at) {
  if (source[at] != '\'' || at == 0) return false;
  const char before = source[at - 1];
  const bool isKind = before == 'u' || before == 'U' || before == 'L';
  return !IsOfWord(before) || (isKind && (at == 1 || !IsOfWord(source[at - 2])));
}

}  // namespace

std::vector<Literal> Read(std::string_view source, const std::string& file) {
  std::vector<Literal> found;
  std::size_t behindLast = std::string_view::npos;  // where the last literal ended, if only blanks followed
  for (std::size_t at = 0; at < source.size(); ++at) {
    const std::string_view rest = source.substr(at);
    if (rest.starts_with("//") || rest.starts_with("#include") || rest.starts_with("#error")) {
      at += std::min(rest.find('\n'), rest.size()) - 1;
    } else if (rest.starts_with("R\"(")) {
      at += rest.find(")\"") + 1;
    } else if (BeginsCharacter(source, at)) {
      at += LiteralLength(rest) - 1;
    } else if (rest.front() == '"') {
      const std::size_t length = LiteralLength(rest);
      if (at != behindLast) {
        const auto line =
            1 + std::count(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(at), '\n');
        found.push_back({file, static_cast<int>(line), "", MarksKey(source.substr(0, at))});
      }
      found.back().text += Unescaped(rest.substr(1, length - 2));
      behindLast = std::min(source.find_first_not_of(" \n", at + length), source.size());
      at += length - 1;
    }
  }
  return found;
}

std::vector<Literal> ReadFolders(const std::filesystem::path& root,
                                 std::initializer_list<const char*> folders) {
  std::vector<Literal> found;
  for (const char* const folder : folders) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::filesystem::path& file = entry.path();
      const std::filesystem::path extension = file.extension();
      if (extension != ".cpp" && extension != ".h" && extension != ".in") continue;
      const auto literals = Read(BytesOf(file), file.lexically_relative(root).generic_string());
      found.insert(found.end(), literals.begin(), literals.end());
    }
  }
  return found;
}

}  // namespace source_texts
