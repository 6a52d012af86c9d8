#include "cli/language.h"

#include <algorithm>

namespace cli {

namespace {

constexpr std::string_view kEnglish = TranslationStore::kEnglish;

// What a locale calls a language, and the id of its translation.
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

std::vector<std::string> LanguageIds(const MessageLanguage& language) {
  std::vector<std::string> ids{std::string(kEnglish)};
  for (const auto& each : language.translations().GetLanguages().children)
    ids.emplace_back(each->attribute_or_empty("id").view());
  return ids;
}

std::string CheckLanguage(const MessageLanguage& language) {
  if (language.id == kEnglish) return "";
  std::string known;
  for (const std::string& id : LanguageIds(language)) {
    if (id == language.id) return "";
    known += (known.empty() ? "" : ", ") + id;
  }
  return "there is no language " + language.id + ", there are " + known;
}

SpokenLanguage::SpokenLanguage(const MessageLanguage& language)
    : translations_(language.id == kEnglish ? nullptr : &language.translations()) {
  if (translations_ != nullptr) translations_->SetLanguage(language.id);
}

SpokenLanguage::~SpokenLanguage() {
  if (translations_ != nullptr) translations_->SetLanguage(kEnglish);
}

}  // namespace cli
