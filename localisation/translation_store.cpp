#include "localisation/translation_store.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include "OvkLib/src/ovk_xml_reader.h"
#include "common/files.h"
#include "common/xml_file.h"

namespace {

using ovk::xml::element;

// Calls `visit` with every element of the tree, the root first. A document decides how deep its tree is, so
// this does not recurse.
template <class Visit>
void ForEachElement(element& root, Visit visit) {
  std::vector<element*> pending{&root};
  while (!pending.empty()) {
    element& next = *pending.back();
    pending.pop_back();
    visit(next);
    for (const auto& child : next.children) pending.push_back(child.get());
  }
}

// Calls `change` with every text and attribute of the tree.
template <class Change>
void ForEachText(element& root, Change change) {
  ForEachElement(root, [&](element& each) {
    change(each.text);
    for (auto& attribute : each.attributes) change(attribute.value);
  });
}

void Assign(ovk::string& to, std::string_view text) {
  to = ovk::string(text);
}

// The others stay in their order.
template <class Predicate>
void RemoveFirstChild(element& parent, Predicate is) {
  auto& children = parent.children;
  const auto at =
      std::find_if(children.begin(), children.end(), [&](const auto& child) { return is(*child); });
  if (at == children.end()) return;
  std::rotate(at, at + 1, children.end());
  children.pop_back();
}

std::string UpToZero(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

// A document or exchange file as the store works on it. False, with `root` as it was, if it is no XML.
bool ParseTexts(element& root, std::string_view bytes) {
  if (!ovk::xml::parse(root, bytes.data(), bytes.size())) return false;
  // The order lets an escaped line break at either end of a text survive.
  ovk::xml::trim(root);
  UnescapeLineBreaks(root);
  return true;
}

std::string ResourceBytes(int number) {
  std::string bytes;
  LoadResourceBytes(number, "XML", bytes);
  return bytes;
}

// Moves the entries of the second document, as bytes, behind those of the first. Answers their keys.
std::set<std::string, std::less<>> AddEntries(element& root, std::string_view bytes) {
  std::set<std::string, std::less<>> keys;
  element more;
  if (!ParseTexts(more, bytes)) return keys;
  element& strings = root.child("strings");
  for (const auto& entry : more.child("strings").children) {
    const std::int32_t at = entry->find_attribute("id");
    if (entry->name != "string" || at < 0) continue;
    const std::string_view key = entry->attributes[at].value.view();
    if (strings.find_child_by_id("string", key) != nullptr) continue;
    keys.emplace(key);
    strings.add_child(std::move(*entry));
  }
  return keys;
}

}  // namespace

TranslationStore& TranslationStore::Instance() {
  // Never destroyed: messages are also built when the process ends.
  static TranslationStore& store = []() -> TranslationStore& {
    auto& made = *new TranslationStore(ResourceBytes(kDocumentResource), ResourceBytes(kMoreResource));
    made.AnswerMessages();
    return made;
  }();
  return store;
}

TranslationStore::TranslationStore(std::string_view document, std::string_view more) : root_("localisation") {
  if (!ParseTexts(root_, document)) {
    root_.child("languages");
  } else if (!more.empty()) {
    moreKeys_ = AddEntries(root_, more);
  }
}

TranslationStore::~TranslationStore() {
  if (answersMessages_) SetTranslator(nullptr);
}

void TranslationStore::AnswerMessages() {
  const std::lock_guard guard(lock_);
  answersMessages_ = true;
  UseLanguage(std::string(languageId_));
}

void TranslationStore::UseLanguage(std::string_view id) {
  languageId_ = id;
  if (answersMessages_) SetTranslator(id == kEnglish ? nullptr : this);
}

void TranslationStore::SetLanguage(std::string_view id) {
  const std::lock_guard guard(lock_);
  if (id == kEnglish || root_.child("languages").find_child_by_id("language", id) != nullptr) UseLanguage(id);
}

std::string TranslationStore::GetLanguageId() const {
  const std::lock_guard guard(lock_);
  return languageId_;
}

element& TranslationStore::GetLanguages() {
  const std::lock_guard guard(lock_);
  return root_.child("languages");
}

std::string TranslationStore::Translate(std::string_view key) {
  const std::lock_guard guard(lock_);
  if (languageId_ == kEnglish) return std::string(key);
  element& strings = root_.child("strings");
  element* const entry = strings.find_child_by_id("string", key);
  if (entry == nullptr) {
    Assign(strings.append_child("string").attribute("id").value, key);
    return std::string(key);
  }
  const ovk::string& text = entry->child(languageId_).text;
  return text.empty() ? std::string(key) : UpToZero(text.view());
}

bool TranslationStore::LoadTranslationFile(const std::filesystem::path& path, std::string_view id,
                                           std::string_view name) {
  std::string bytes;
  return ReadFileBytes(path, bytes, kMostExchangeBytes) && LoadTranslation(bytes, id, name);
}

bool TranslationStore::LoadTranslation(std::string_view bytes, std::string_view id, std::string_view name) {
  element file;
  if (!ParseTexts(file, bytes)) return false;

  const std::lock_guard guard(lock_);
  // A file has as many entries as it likes: each must not cost a walk through all keys.
  std::map<std::string_view, element*> known;
  for (const auto& string : root_.child("strings").children) {
    const std::int32_t key = string->find_attribute("id");
    if (string->name == "string" && key >= 0)
      known.emplace(string->attributes[key].value.view(), string.get());
  }
  for (const auto& entry : file.children) {
    if (entry->children.count() != 1) continue;
    const std::int32_t key = entry->find_attribute("id");
    const auto found = known.find(key < 0 ? "not_found" : entry->attributes[key].value.view());
    if (found != known.end()) Assign(found->second->child(id).text, entry->children[0]->text.view());
  }

  element& languages = root_.child("languages");
  element* language = languages.find_child_by_id("language", id);
  if (language == nullptr) language = &languages.append_child("language");
  Assign(language->attribute("id").value, id);
  Assign(language->attribute("name").value, name);
  return true;
}

bool TranslationStore::ExportTranslationFile(const std::filesystem::path& path) {
  // The lock is not held here: a failure is a message, and that is translated.
  return ovk::xml::save(path, ExportTranslation());
}

element TranslationStore::ExportTranslation() {
  std::vector<std::string> keys;
  {
    const std::lock_guard guard(lock_);
    for (const auto& string : root_.child("strings").children) {
      keys.emplace_back(string->attribute_or_empty("id").view());
    }
  }
  // strcmp compares unsigned bytes, and ends at a zero byte.
  std::sort(keys.begin(), keys.end(),
            [](const std::string& a, const std::string& b) { return std::strcmp(a.c_str(), b.c_str()) < 0; });

  element file("strings");
  for (const std::string& key : keys) {
    element& string = file.append_child("string");
    Assign(string.attribute("id").value, key);
    Assign(string.append_child("translate").text, Translate(key));
  }
  EscapeLineBreaks(file);
  return file;
}

element TranslationStore::CopyTree() const {
  const std::lock_guard guard(lock_);
  element copy(root_);
  // A copied string shares the block of its source until it is written to, and then without the lock.
  ForEachElement(copy, [](element& each) {
    each.name.writable();
    each.text.writable();
    for (auto& attribute : each.attributes) {
      attribute.name.writable();
      attribute.value.writable();
    }
  });
  return copy;
}

TranslationStore::Documents TranslationStore::CopyDocuments() const {
  Documents copy{CopyTree(), element("localisation")};
  copy.more.child("languages");
  element first("strings");
  element& more = copy.more.child("strings");
  element& strings = copy.document.child("strings");
  const std::lock_guard guard(lock_);
  for (const auto& entry : strings.children) {
    const bool isOfMore =
        entry->name == "string" && moreKeys_.contains(entry->attribute_or_empty("id").view());
    (isOfMore ? more : first).add_child(std::move(*entry));
  }
  strings.children = std::move(first.children);
  return copy;
}

void RemoveLanguage(element& tree, std::string_view id) {
  for (const auto& string : tree.child("strings").children) {
    if (string->name == "string")
      RemoveFirstChild(*string, [&](const element& text) { return text.name == id; });
  }
  element& languages = tree.child("languages");
  const element* const language = languages.find_child_by_id("language", id);
  RemoveFirstChild(languages, [&](const element& each) { return &each == language; });
}

void EscapeLineBreaks(element& tree) {
  ForEachText(tree, [](ovk::string& text) {
    const std::string_view old = text.view();
    if (old.find_first_of("\r\n") == old.npos) return;
    std::string escaped;
    for (const char c : old) {
      if (c == '\r') {
        escaped += "\\r";
      } else if (c == '\n') {
        escaped += "\\n";
      } else {
        escaped += c;
      }
    }
    Assign(text, escaped);
  });
}

void UnescapeLineBreaks(element& tree) {
  ForEachText(tree, [](ovk::string& text) {
    const std::string_view old = text.view();
    std::size_t mark = old.find('\\');
    if (mark == old.npos) return;
    std::string plain;
    for (std::size_t i = 0; i < old.size(); ++i) {
      const char next = old[i] == '\\' && i + 1 < old.size() ? old[i + 1] : '\0';
      if (next == 'r' || next == 'n') {
        plain += next == 'r' ? '\r' : '\n';
        ++i;
      } else {
        plain += old[i];
      }
    }
    Assign(text, plain);
  });
}
