#include "tests/localisation/source_texts.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/files.h"

namespace source_texts {

namespace {

struct Token {
  enum class Kind { Word, Text, Sign };

  Kind kind;
  std::string text;
  int line;

  bool Is(std::string_view sign) const { return kind == Kind::Sign && text == sign; }
};
using Tokens = std::span<const Token>;

bool IsOfWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// The lexer

class Lexer {
 public:
  explicit Lexer(std::string_view source) : rest_(source) {}

  std::vector<Token> Tokens() {
    while (!rest_.empty()) Next();
    return std::move(tokens_);
  }

 private:
  void Next() {
    if (rest_.starts_with("//") || rest_.starts_with("#include") || rest_.starts_with("#error")) {
      Skip(rest_.find('\n'));
    } else if (rest_.starts_with("/*")) {
      Skip(rest_.find("*/", 2) + 2);
    } else if (std::isspace(static_cast<unsigned char>(rest_.front())) != 0) {
      Skip(1);
    } else if (const std::size_t prefix = LiteralPrefix(); rest_[prefix] == '"') {
      TakeText(prefix);
    } else if (IsOfWord(rest_.front())) {
      TakeWord();
    } else if (rest_.front() == '\'') {
      TakeCharacter();
    } else {
      Take(Token::Kind::Sign, rest_.starts_with("::") || rest_.starts_with("->") ? 2 : 1);
    }
  }

  void Skip(std::size_t length) {
    length = std::min(length, rest_.size());
    line_ += static_cast<int>(
        std::count(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(length), '\n'));
    rest_.remove_prefix(length);
  }

  void Take(Token::Kind kind, std::size_t length) {
    tokens_.push_back({kind, std::string(rest_.substr(0, length)), line_});
    Skip(length);
  }

  void TakeWord() {
    // A number keeps the apostrophes between its digits.
    const bool isNumber = std::isdigit(static_cast<unsigned char>(rest_.front())) != 0;
    std::size_t end = 1;
    while (end < rest_.size() && (IsOfWord(rest_[end]) || (isNumber && rest_[end] == '\''))) ++end;
    Take(Token::Kind::Word, end);
  }

  void TakeCharacter() {
    std::size_t end = 1;
    while (rest_.at(end) != '\'') end += rest_[end] == '\\' ? 2U : 1U;
    Take(Token::Kind::Sign, end + 1);
  }

  std::size_t LiteralPrefix() const {
    for (const std::string_view prefix : {"u8R", "uR", "UR", "LR", "u8", "u", "U", "L", "R"}) {
      if (rest_.starts_with(prefix) && rest_.substr(prefix.size()).starts_with('"')) return prefix.size();
    }
    return 0;
  }

  void TakeText(std::size_t prefix) {
    const int line = line_;
    const bool isRaw = prefix > 0 && rest_[prefix - 1] == 'R';
    Skip(prefix + 1);
    std::string text = isRaw ? RawText() : EscapedText();
    // Adjacent literals are one.
    if (!tokens_.empty() && tokens_.back().kind == Token::Kind::Text) {
      tokens_.back().text += text;
    } else {
      tokens_.push_back({Token::Kind::Text, std::move(text), line});
    }
  }

  std::string RawText() {
    const std::size_t open = rest_.find('(');
    std::string close(1, ')');
    close.append(rest_.substr(0, open)).append(1, '"');
    const std::size_t end = rest_.find(close, open);
    if (end == std::string_view::npos) throw std::runtime_error("a raw literal without an end");
    std::string text(rest_.substr(open + 1, end - open - 1));
    Skip(end + close.size());
    return text;
  }

  std::string EscapedText() {
    std::string text;
    while (rest_.at(0) != '"') {
      if (rest_.front() == '\\') {
        Skip(1);
        text += Escaped();
      } else {
        text += rest_.front();
        Skip(1);
      }
    }
    Skip(1);
    return text;
  }

  std::string Escaped() {
    static constexpr std::string_view kShort = "ntr0abfv";
    static constexpr std::string_view kMeant("\n\t\r\0\a\b\f\v", kShort.size());
    const char c = rest_.at(0);
    Skip(1);
    if (const std::size_t at = kShort.find(c); at != std::string_view::npos) return {kMeant[at]};
    if (c == 'x') return {static_cast<char>(Hexadecimal(2))};
    if (c == 'u') return Utf8FromWide(std::u16string(1, static_cast<char16_t>(Hexadecimal(4))));
    return {c};
  }

  unsigned Hexadecimal(std::size_t digits) {
    const unsigned number =
        static_cast<unsigned>(std::stoul(std::string(rest_.substr(0, digits)), nullptr, 16));
    Skip(digits);
    return number;
  }

  std::string_view rest_;
  std::vector<Token> tokens_;
  int line_ = 1;
};

// Arguments

bool Opens(const Token& token) {
  return token.Is("(") || token.Is("{") || token.Is("[");
}
bool Closes(const Token& token) {
  return token.Is(")") || token.Is("}") || token.Is("]");
}

/// Past the bracket that closes the one at the front.
std::size_t EndOfBrackets(Tokens tokens) {
  int depth = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (Opens(tokens[i])) ++depth;
    if (Closes(tokens[i]) && --depth == 0) return i + 1;
  }
  throw std::runtime_error("a bracket that does not close");
}

/// The parts between these signs, but for those in brackets. Each knows the sign behind it.
struct Part {
  Tokens tokens;
  std::string_view sign;
};
std::vector<Part> Split(Tokens tokens, std::initializer_list<std::string_view> signs) {
  std::vector<Part> parts;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (Opens(tokens[i])) {
      i += EndOfBrackets(tokens.subspan(i)) - 1;
      continue;
    }
    const auto* const sign = std::ranges::find_if(signs, [&](std::string_view s) { return tokens[i].Is(s); });
    if (sign == signs.end()) continue;
    parts.push_back({tokens.subspan(begin, i - begin), *sign});
    begin = i + 1;
  }
  parts.push_back({tokens.subspan(begin), {}});
  return parts;
}

std::string Spelled(Tokens tokens) {
  std::string text;
  for (const Token& token : tokens) text += token.text;
  return text;
}

/// As the parameter of a declaration has it.
bool IsParameter(Tokens tokens) {
  return tokens.size() > 1 &&
         (tokens[0].text == "const" || Spelled(tokens.first(tokens.size() - 1)) == "std::string_view");
}

using Constants = std::map<std::string, std::string>;

/// Texts with a name: `name = "text"` and `name[] = "text"`.
Constants ConstantsIn(Tokens tokens) {
  Constants constants;
  for (std::size_t i = 2; i < tokens.size(); ++i) {
    if (tokens[i].kind != Token::Kind::Text || !tokens[i - 1].Is("=")) continue;
    const std::size_t name = tokens[i - 2].Is("]") && i >= 4 ? i - 4 : i - 2;
    constants[tokens[name].text] = tokens[i].text;
  }
  return constants;
}

class Reader {
 public:
  Reader(Tokens tokens, Place& place, const Constants& constants) : place_(place), constants_(constants) {
    ReadChoice(tokens);
  }

 private:
  void ReadChoice(Tokens tokens) {
    for (const Part& part : Split(tokens, {"?", ":"})) {
      if (part.sign != "?") ReadOne(part.tokens);  // the other kind is the condition
    }
  }

  void ReadOne(Tokens tokens) {
    if (tokens.empty()) return;
    if (tokens.front().Is("{")) {
      for (const Part& part : Split(tokens.subspan(1, EndOfBrackets(tokens) - 2), {","}))
        ReadChoice(part.tokens);
    } else if (tokens.size() == 1 && tokens.front().kind == Token::Kind::Text) {
      place_.keys.push_back(tokens.front().text);
    } else if (const auto constant = constants_.find(Spelled(tokens)); constant != constants_.end()) {
      place_.keys.push_back(constant->second);
    } else {
      place_.names.push_back(Spelled(tokens));
    }
  }

  Place& place_;
  const Constants& constants_;
};

/// The arguments behind a function's name, if it is called there: as `name(...)`, or as the constructor of
/// `name variable(...)`.
std::optional<Tokens> ArgumentsAt(Tokens tokens, std::size_t name) {
  if (name > 0 && (tokens[name - 1].Is(".") || tokens[name - 1].Is("->"))) return std::nullopt;
  std::size_t open = name + 1;
  if (open < tokens.size() && tokens[open].kind == Token::Kind::Word) ++open;
  if (open >= tokens.size() ||
      !(tokens[open].Is("(") || (tokens[open].Is("{") && tokens[name - 1].text != "class")))
    return std::nullopt;
  const std::size_t length = EndOfBrackets(tokens.subspan(open));
  return tokens.subspan(open + 1, length - 2);
}

}  // namespace

void Read(std::string_view source, const std::string& file, const std::vector<Asking>& asking, Found& found) {
  const std::vector<Token> tokens = Lexer(source).Tokens();
  const Constants constants = ConstantsIn(tokens);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].kind == Token::Kind::Text) found.literals.push_back({file, tokens[i].line, tokens[i].text});
    if (tokens[i].kind != Token::Kind::Word) continue;
    for (const Asking& function : asking) {
      if (tokens[i].text != function.function || (!function.file.empty() && file != function.file)) continue;
      const std::optional<Tokens> inside = ArgumentsAt(tokens, i);
      if (!inside) continue;
      const std::vector<Part> arguments = Split(*inside, {","});
      for (const std::size_t number : function.arguments) {
        if (number >= arguments.size() || IsParameter(arguments[number].tokens)) continue;
        Place place{file, tokens[i].line, {}, {}};
        Reader(arguments[number].tokens, place, constants);
        found.places.push_back(std::move(place));
      }
    }
  }
}

Found ReadFolders(const std::filesystem::path& root, std::initializer_list<const char*> folders,
                  const std::vector<Asking>& asking) {
  std::vector<std::filesystem::path> files;
  for (const char* const folder : folders) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension == ".cpp" || extension == ".h" || extension == ".in") files.push_back(entry.path());
    }
  }
  std::ranges::sort(files);
  Found found;
  for (const std::filesystem::path& file : files) {
    std::string source;
    if (!ReadFileBytes(file, source)) throw std::runtime_error("cannot read " + file.string());
    Read(source, file.lexically_relative(root).generic_string(), asking, found);
  }
  return found;
}

}  // namespace source_texts
