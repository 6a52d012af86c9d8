#include "doctor/secrets.h"

#include <algorithm>

namespace doctor {

namespace {

constexpr std::string_view kHome = "~";
constexpr std::string_view kUser = "(user)";
constexpr std::string_view kComputer = "(computer)";
constexpr std::string_view kStruckOut = "(struck out)";
constexpr std::size_t kShortestSecret = 4;

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool IsSame(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, &Lower, &Lower);
}

// Whether it may be a part of a word; all beyond ASCII may.
bool IsWordByte(char byte) {
  const char lower = Lower(byte);
  return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') ||
         static_cast<unsigned char>(byte) >= 0x80;
}

// Everybody has it, and it tells nothing of anybody.
bool IsCommon(std::string_view name) {
  return IsSame(name, "root") || IsSame(name, "localhost");
}

// What stands in front of the names of users in paths.
constexpr std::string_view kHomes[] = {"/home/", "/Users/", "\\Users\\", "/media/", "/run/media/"};

// The length of the name of a user that begins there. On Windows it may have blanks.
std::size_t UserLength(std::string_view text, char separator) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n\"'<>|:"));
  const std::size_t end = line.find(separator);
  if (end != std::string_view::npos) return end;
  return separator == '\\' ? line.size() : std::min(line.find_first_of(" ,;)"), line.size());
}

// As XML has it in texts and attributes.
std::string AsXml(std::string_view text) {
  std::string xml;
  for (const char letter : text) {
    switch (letter) {
      case '&':
        xml += "&amp;";
        break;
      case '<':
        xml += "&lt;";
        break;
      case '>':
        xml += "&gt;";
        break;
      case '\'':
        xml += "&apos;";
        break;
      case '"':
        xml += "&quot;";
        break;
      default:
        xml += letter;
    }
  }
  return xml;
}

// Where `folder` stands in `text` behind `from`, in capitals or without; npos if it does not.
std::size_t FindFolder(std::string_view text, std::string_view folder, std::size_t from) {
  const auto isSame = [](char a, char b) { return Lower(a) == Lower(b); };
  const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
  const auto found = std::search(begin, text.end(), folder.begin(), folder.end(), isSame);
  return found != text.end() ? static_cast<std::size_t>(found - text.begin()) : std::string_view::npos;
}

// The names in paths that no identity knew of.
std::string StrikeOtherHomes(std::string text) {
  for (const std::string_view folder : kHomes) {
    for (std::size_t at = FindFolder(text, folder, 0); at != std::string::npos;
         at = FindFolder(text, folder, at)) {
      at += folder.size();
      const std::size_t length = UserLength(std::string_view(text).substr(at), folder.back());
      if (length > 0) text.replace(at, length, kUser);
    }
  }
  return text;
}

}  // namespace

Secrets::Secrets(const platform::Identity& identity) {
  for (const std::string& home : identity.homes) {
    // "/" is nobody's.
    if (home.size() < 2) continue;
    AddNeedle({home, kHome, true});
    std::string turned = home;
    std::ranges::replace(turned, '\\', '/');
    AddNeedle({turned, kHome, true});
  }
  for (const std::string& user : identity.users) AddName(user, kUser);
  for (const std::string& host : identity.hosts) {
    AddName(host, kComputer);
    AddName(host.substr(0, host.find('.')), kComputer);
  }
}

void Secrets::Add(std::string_view secret) {
  if (secret.size() >= kShortestSecret) AddNeedle({std::string(secret), kStruckOut});
}

void Secrets::AddName(const std::string& name, std::string_view replacement) {
  if (name.empty() || IsCommon(name)) return;
  AddNeedle({name, replacement, name.size() < kShortestSecret});
}

void Secrets::AddNeedle(Needle needle) {
  const auto isThere = [&](const Needle& other) { return other.text == needle.text; };
  if (std::ranges::any_of(needles_, isThere)) return;
  const Needle xml{AsXml(needle.text), needle.replacement, needle.wholeWord};
  needles_.push_back(std::move(needle));
  if (!std::ranges::any_of(needles_, [&](const Needle& other) { return other.text == xml.text; }))
    needles_.push_back(xml);
  std::ranges::stable_sort(needles_, std::greater(), [](const Needle& each) { return each.text.size(); });
}

const Secrets::Needle* Secrets::FindAt(std::string_view text, std::size_t at) const {
  for (const Needle& needle : needles_) {
    if (Lower(text[at]) != Lower(needle.text.front())) continue;
    const std::size_t end = at + needle.text.size();
    if (!IsSame(text.substr(at, needle.text.size()), needle.text)) continue;
    const bool isPart = (at > 0 && IsWordByte(text[at - 1])) || (end < text.size() && IsWordByte(text[end]));
    if (!needle.wholeWord || !isPart) return &needle;
  }
  return nullptr;
}

std::string Secrets::Strike(std::string_view text) const {
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (const Needle* const needle = FindAt(text, at)) {
      clean += needle->replacement;
      at += needle->text.size();
    } else {
      clean += text[at++];
    }
  }
  return StrikeOtherHomes(std::move(clean));
}

void Secrets::Mark(std::string_view bytes, std::vector<bool>& struck) const {
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (const Needle* const needle = FindAt(bytes, at))
      std::fill_n(struck.begin() + static_cast<std::ptrdiff_t>(at), needle->text.size(), true);
  }
}

}  // namespace doctor
