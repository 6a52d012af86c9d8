#include "cli/language.h"

#include <algorithm>

#include "localisation/translation_store.h"

namespace cli {

namespace {

constexpr std::string_view kEnglish = TranslationStore::kEnglish;

/// What a locale calls a language, and the id of its translation.
struct Row {
  std::string_view code;
  std::string_view id;
};
// Czech has its country's code, as the desktop program's settings do.
constexpr Row kRows[] = {{"de", "de"}, {"sk", "sk"}, {"it", "it"}, {"cs", "cz"},
                         {"fr", "fr"}, {"pl", "pl"}, {"es", "es"}};

}  // namespace

std::string_view LanguageOfLocale(std::initializer_list<std::string_view> locales) {
  const auto decisive = std::ranges::find_if(locales, [](auto locale) { return !locale.empty(); });
  if (decisive == locales.end()) return kEnglish;
  // language[_territory][.codeset][@modifier]
  const std::string_view code = decisive->substr(0, decisive->find_first_of("_.@"));
  const auto* const row = std::ranges::find(kRows, code, &Row::code);
  return row == std::end(kRows) ? kEnglish : row->id;
}

std::string CheckLanguage(const std::string& id) {
  if (id == kEnglish) return "";
  const ovk::xml::element& languages = TranslationStore::Instance().GetLanguages();
  if (languages.find_child_by_id("language", id) != nullptr) return "";
  std::string known(kEnglish);
  for (const auto& language : languages.children)
    known.append(", ").append(language->attribute_or_empty("id").view());
  return "there is no language " + id + ", there are " + known;
}

SpokenLanguage::SpokenLanguage(std::string_view id) : translated_(id != kEnglish) {
  if (translated_) TranslationStore::Instance().SetLanguage(id);
}

SpokenLanguage::~SpokenLanguage() {
  if (translated_) TranslationStore::Instance().SetLanguage(kEnglish);
}

}  // namespace cli
