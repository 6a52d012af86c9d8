// The translations documents against the program and against themselves: every text that the program has
// translated stands in one of them, and every translation says what its key says.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "OvkLib/src/ovk_xml.h"
#include "common/xml_file.h"
#include "localisation/translation_store.h"
#include "tests/localisation/program_texts.h"
#include "tests/localisation/source_texts.h"

namespace {

using program_texts::English;
using source_texts::Literal;
using testing::ElementsAreArray;

std::string Text(const ovk::string& text) {
  return std::string(text.view());
}

std::filesystem::path SourceFile(const char* path) {
  return std::filesystem::path(LUMARINE_SOURCE_DIR) / path;
}

constexpr char kFirst[] = "resources/translations.xml";
constexpr char kSecond[] = "resources/translations-more.xml";

struct Language {
  const char* id;
  const char* name;
  bool hasAuthor;
  std::size_t texts;  // in the first document
};
constexpr Language kLanguages[] = {
    {"de", "Deutsch", false, 221},
    {"sk", "Slovak", false, 220},
    {"it", "Italian", true, 217},
    {"cz", "Czech", true, 219},
    {"fr01", "French (Lumarine team, tu)", true, 227},
    {"fr", "French (Lumarine team, vous)", true, 219},
    {"pl", "Polish", true, 220},
    {"es", "Spanish", true, 227},
};

// Documents as the program sees them, as one, with line breaks for their escapes.
class Document {
 public:
  explicit Document(std::initializer_list<const char*> files) {
    for (const char* const file : files) {
      ovk::xml::element root;
      EXPECT_TRUE(ovk::xml::load(SourceFile(file), root)) << file;
      UnescapeLineBreaks(root);
      for (const auto& entry : root.child("strings").children) Read(*entry);
    }
  }

  const std::vector<std::string>& keys() const { return keys_; }
  // Key and translation; in the order of the keys.
  std::vector<std::pair<std::string, std::string>> Texts(const std::string& language) const {
    std::vector<std::pair<std::string, std::string>> texts;
    for (const std::string& key : keys_) {
      const auto text = texts_.at(key).find(language);
      if (text != texts_.at(key).end()) texts.emplace_back(key, text->second);
    }
    return texts;
  }
  bool Has(const std::string& key) const { return texts_.contains(key); }
  bool Has(const std::string& key, const std::string& language) const {
    return Has(key) && texts_.at(key).contains(language);
  }
  const std::string& Of(const std::string& key, const std::string& language) const {
    return texts_.at(key).at(language);
  }
  std::set<std::string> LanguagesOfTexts() const {
    std::set<std::string> ids;
    for (const auto& [key, texts] : texts_) {
      for (const auto& [id, text] : texts) ids.insert(id);
    }
    return ids;
  }

 private:
  void Read(const ovk::xml::element& entry) {
    const std::string key = Text(entry.attribute_or_empty("id"));
    keys_.push_back(key);
    for (const auto& child : entry.children) texts_[key][Text(child->name)] = Text(child->text);
  }

  std::vector<std::string> keys_;
  std::map<std::string, std::map<std::string, std::string>> texts_;
};

const Document& FirstDocument() {
  static const Document document{kFirst};
  return document;
}

// Both.
const Document& TheDocument() {
  static const Document document{kFirst, kSecond};
  return document;
}

// As they stand in the file, line breaks escaped.
std::vector<std::string> KeysIn(const ovk::xml::element& strings) {
  std::vector<std::string> keys;
  for (const auto& entry : strings.children) {
    EXPECT_EQ(entry->name, "string");
    keys.push_back(Text(entry->attribute_or_empty("id")));
  }
  return keys;
}

// All of a pattern that a text has, sorted.
std::vector<std::string> All(const std::string& text, const std::regex& pattern) {
  std::vector<std::string> found;
  for (std::sregex_iterator i(text.begin(), text.end(), pattern), end; i != end; ++i)
    found.push_back(i->str());
  std::ranges::sort(found);
  return found;
}

std::set<std::string> Placeholders(const std::string& text) {
  static const std::regex pattern(R"(\{\d+\})");
  const std::vector<std::string> all = All(text, pattern);
  return {all.begin(), all.end()};
}

bool EndsWithDots(const std::string& text) {
  return text.ends_with("...") || text.ends_with("…");
}

std::set<std::string> TextsOf(const std::vector<English>& texts) {
  std::set<std::string> result;
  for (const English& text : texts) result.insert(text.text);
  return result;
}

// The document

TEST(TranslationsDocument, HasTheseKeysInThisOrder) {
  std::vector<std::string> keys;
  for (const program_texts::ListedKey& listed : program_texts::ListedKeys()) keys.push_back(listed.key);
  ovk::xml::element escaped;
  ASSERT_TRUE(ovk::xml::load(SourceFile(kFirst), escaped));
  const std::vector<std::string> found = KeysIn(escaped.child("strings"));
  EXPECT_THAT(found, ElementsAreArray(keys));
  EXPECT_EQ(found.size(), 227U);
  EXPECT_EQ(std::set(found.begin(), found.end()).size(), 227U) << "none comes twice";
  EXPECT_EQ(std::ranges::count_if(found, [](const auto& key) { return !Placeholders(key).empty(); }), 63);
}

// New texts stand here, sorted, so that two who add some do not meet at the end.
TEST(TranslationsDocument, TheSecondHasFurtherKeysSortedAndNoLanguages) {
  ovk::xml::element root;
  ASSERT_TRUE(ovk::xml::load(SourceFile(kSecond), root));
  EXPECT_EQ(root.name, "localisation");
  EXPECT_EQ(root.child("languages").children.count(), 0);
  const std::vector<std::string> keys = KeysIn(root.child("strings"));
  EXPECT_FALSE(keys.empty());
  for (std::size_t i = 1; i < keys.size(); ++i)
    EXPECT_LT(keys[i - 1], keys[i]) << "sorted by their bytes, and none comes twice";
}

TEST(TranslationsDocument, NoKeyIsInBoth) {
  const Document second{kSecond};
  for (const std::string& key : second.keys()) EXPECT_FALSE(FirstDocument().Has(key)) << key;
}

TEST(TranslationsDocument, HasTheseLanguagesInTheOrderOfTheMenu) {
  ovk::xml::element root;
  ASSERT_TRUE(ovk::xml::load(SourceFile(kFirst), root));
  std::vector<std::string> found;
  for (const auto& language : root.child("languages").children) {
    EXPECT_EQ(language->name, "language");
    found.push_back(Text(language->attribute_or_empty("id")) + ": " +
                    Text(language->attribute_or_empty("name")) +
                    (language->attribute_or_empty("author").empty() ? "" : ", with author"));
  }
  std::vector<std::string> expected;
  std::set<std::string> ids;
  for (const Language& language : kLanguages) {
    expected.push_back(std::string(language.id) + ": " + language.name +
                       (language.hasAuthor ? ", with author" : ""));
    ids.insert(language.id);
  }
  EXPECT_THAT(found, ElementsAreArray(expected));
  EXPECT_EQ(TheDocument().LanguagesOfTexts(), ids) << "no text of a language that is not listed";
}

// The program's texts

TEST(TranslationsDocument, HasEveryTextThatTheProgramHasTranslated) {
  const std::set<std::string> english = TextsOf(program_texts::LookedUpInVain());
  for (const std::string& text : program_texts::Asked()) {
    EXPECT_NE(TheDocument().Has(text), english.contains(text))
        << "neither in the document nor listed as English, or both: " << text;
  }
}

// A text that is shown without being asked for, or asked for without a mark in the sources, is found by its
// looks: two words, or one with a capital.
TEST(TranslationsDocument, NoTextOfTheProgramIsShownUntranslated) {
  static const std::regex looksLikeText("[A-Za-z]{2,} [A-Za-z]|^[A-Z][a-z]+$");
  std::set<std::string> known = program_texts::Asked();
  known.merge(program_texts::ReplacedInTables());
  for (const auto& texts : {program_texts::LookedUpInVain(), program_texts::NeverLookedUp()}) {
    for (const English& text : texts) known.insert(text.text);
  }
  for (const Literal& literal : program_texts::Sources()) {
    // The command line's own pages and reports are English throughout.
    if (literal.file.starts_with("cli/") || literal.file.starts_with("platform/qt/") ||
        literal.file.starts_with("platform/posix/"))
      continue;
    if (!std::regex_search(literal.text, looksLikeText)) continue;
    EXPECT_TRUE(known.contains(literal.text)) << literal.file << ":" << literal.line << ": " << literal.text;
  }
}

TEST(TranslationsDocument, WhatIsListedAsEnglishIsStillInTheSources) {
  std::set<std::string> literals;
  for (const Literal& literal : program_texts::Sources()) literals.insert(literal.text);
  for (const auto& texts : {program_texts::LookedUpInVain(), program_texts::NeverLookedUp()}) {
    for (const English& text : texts) {
      if (std::string_view(text.reason) == "set when the program is built") continue;
      EXPECT_TRUE(literals.contains(text.text)) << text.text;
    }
  }
}

TEST(TranslationsDocument, ListsWhatNobodyAsksForAnyMore) {
  const std::set<std::string> asked = program_texts::Asked();
  std::set<std::string> unasked;
  for (const std::string& key : TheDocument().keys()) {
    if (!asked.contains(key)) unasked.insert(key);
  }
  EXPECT_EQ(unasked, program_texts::LeftOver());
}

// Each language

class EachLanguage : public testing::TestWithParam<Language> {
 protected:
  const std::string id = GetParam().id;
  std::vector<std::pair<std::string, std::string>> Texts() const { return TheDocument().Texts(id); }
};

TEST_P(EachLanguage, HasItsNumberOfTexts) {
  EXPECT_EQ(FirstDocument().Texts(id).size(), GetParam().texts);
}

TEST_P(EachLanguage, LeavesOutOnlyWhatNobodyAsksFor) {
  for (const std::string& key : TheDocument().keys()) {
    EXPECT_TRUE(TheDocument().Has(key, id) || program_texts::LeftOver().contains(key)) << key;
  }
}

TEST_P(EachLanguage, KeepsThePlaceholders) {
  for (const auto& [key, text] : Texts())
    EXPECT_EQ(Placeholders(key), Placeholders(text)) << key << "\n" << text;
}

TEST_P(EachLanguage, BreaksLinesWhereTheKeyDoes) {
  static const std::regex breaks(R"(\r\n|\r|\n|\\)");
  for (const auto& [key, text] : Texts())
    EXPECT_EQ(All(key, breaks), All(text, breaks)) << key << "\n" << text;
}

TEST_P(EachLanguage, EndsAsTheKeyDoes) {
  for (const auto& [key, text] : Texts()) {
    EXPECT_EQ(EndsWithDots(key), EndsWithDots(text)) << key << ": " << text;
    EXPECT_EQ(key.ends_with("\r\n"), text.ends_with("\r\n")) << key;
    for (const char* const sign : {".", "!", "?", ":"}) {
      if (EndsWithDots(key)) break;
      EXPECT_EQ(key.ends_with(sign), text.ends_with(sign)) << key << ": " << text;
    }
  }
}

TEST_P(EachLanguage, HasNoStrayBlanks) {
  static const std::regex stray("^ | $|  |^$");
  for (const auto& [key, text] : Texts())
    EXPECT_FALSE(std::regex_search(text, stray)) << key << ": \"" << text << "\"";
}

// Words that a language shares with English.
const std::map<std::string, std::set<std::string>> kSameWords = {
    {"de", {"Firewall", "Normal", "OK", "Refugium", "Zoom", "{1}, Version {2}.{3}, Build {4}"}},
    {"sk", {"UDP port 5000", "Normal", "OK"}},
    {"it", {"Firewall", "File", "OK", "Password", "Password:", "Refugium", "Zoom"}},
    {"cz", {"UDP port 5000", "Normal", "OK", "Refugium"}},
    {"fr01", {"Civil", "Date", "Mode", "Mode {1}", "Modes", "Normal", "OK", "Violet", "Zoom"}},
    {"fr", {"Civil", "Date", "Mode", "Mode {1}", "Modes", "Normal", "OK", "Violet", "Zoom"}},
    {"pl", {"OK", "Refugium"}},
    {"es", {"Civil", "Normal", "Zoom"}},
};

TEST_P(EachLanguage, RepeatsTheEnglishOnlyWhereItIsTheSameWord) {
  std::set<std::string> same;
  for (const auto& [key, text] : Texts()) {
    if (key == text) same.insert(key);
  }
  EXPECT_EQ(same, kSameWords.at(id));
}

// Controllers show so many bytes of a mode's name. The English "AlwaysOn" is longer.
TEST_P(EachLanguage, NamesTheBuiltInModesAsControllersCanShowThem) {
  for (const char* const key : {"Normal", "AlwaysOn"}) {
    EXPECT_LE(TheDocument().Of(key, id).size(), 7U) << TheDocument().Of(key, id);
  }
}

// With U+00A0, so that no line of the log or of a box ends between them.
TEST_P(EachLanguage, KeepsNumbersAndTheirUnitsTogether) {
  static const std::regex apart(R"((\}|\d) (s|ms|min|h)($|[ .,:;)!?\r\n])| (Nr\.|č\.|n\.|nr|n\.º) \{)");
  for (const auto& [key, text] : Texts()) {
    const bool isAName = key == "Search for TC421 WiFi device";  // "TC421 s Wi-Fi" means "with"
    EXPECT_TRUE(isAName || !std::regex_search(text, apart)) << key << ": " << text;
  }
}

TEST_P(EachLanguage, WritesTheNetworkAsItsBrandAndDashesAsDashes) {
  for (const auto& [key, text] : Texts()) {
    EXPECT_EQ(text.find("WiFi"), std::string::npos) << key << ": " << text;
    EXPECT_EQ(text.find(" - "), std::string::npos) << key << ": " << text;
  }
}

// Names of menu items and buttons that a text sends its reader to.
struct Quote {
  const char* inKey;
  std::vector<const char*> items;
};
const std::vector<Quote> kQuotes = {
    {"\"Scan WiFi devices\"", {"Scan WiFi devices"}},
    {"press Next", {"Next"}},
    {"Help / Known Issues", {"Help", "Known issues ..."}},
    {"Help / Known issues", {"Help", "Known issues ..."}},
    {"Mode / Align Steps", {"Mode", "Align steps"}},
    {"Align Steps feature in Mode", {"Mode", "Align steps"}},
};

// Of a menu item, without the dots.
std::string Words(std::string text) {
  if (text.ends_with("...")) text.resize(text.size() - 3);
  while (text.ends_with(" ")) text.pop_back();
  return text;
}

TEST_P(EachLanguage, QuotesMenuItemsInTheirOwnWords) {
  int quotes = 0;
  for (const auto& [key, text] : Texts()) {
    for (const Quote& quote : kQuotes) {
      if (key.find(quote.inKey) == std::string::npos) continue;
      for (const char* const item : quote.items) {
        ++quotes;
        EXPECT_THAT(text, testing::HasSubstr(Words(TheDocument().Of(item, id)))) << item;
      }
    }
  }
  EXPECT_GE(quotes, 10);
}

// So that a translator can look for the other text of the same thing.
TEST_P(EachLanguage, SaysTheSameForKeysThatDifferInCapitalsAndBlanksOnly) {
  const auto folded = [](const std::string& key) {
    std::string result;
    for (const char c : key) {
      if (c != ' ') result += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return result;
  };
  std::map<std::string, std::string> seen;
  for (const auto& [key, text] : Texts()) {
    const auto [other, isNew] = seen.emplace(folded(key), text);
    EXPECT_TRUE(isNew || other->second == text) << key << ": " << text << ", " << other->second;
  }
}

TEST_P(EachLanguage, NamesEachItemOfAMenuDifferently) {
  std::map<std::string, std::string> seen;
  for (const std::string& key : program_texts::InTables()) {
    const std::string& text = TheDocument().Of(key, id);
    const auto [other, isNew] = seen.emplace(text, key);
    if (isNew) continue;
    // "Devices" over their list, "Device" in the menu; "Undo" in the menu, "Cancel" in dialogs.
    const std::set<std::set<std::string>> alike = {{"Device", "Devices"}, {"Undo", "Cancel"}};
    EXPECT_TRUE(alike.contains({key, other->second})) << text << ": " << key << ", " << other->second;
  }
}

INSTANTIATE_TEST_SUITE_P(Document, EachLanguage, testing::ValuesIn(kLanguages),
                         [](const auto& tested) { return std::string(tested.param.id); });

}  // namespace
