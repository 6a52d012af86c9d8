#pragma once

// Chooses the language of the messages. Help, faults of the command line and data for other programs are
// always in English.

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "cli/lumarinectl.h"

namespace cli {

/// The language that the environment asks for: `locales` are the values of LC_ALL, LC_MESSAGES and LANG, of
/// which the first that is not empty decides. It says "cs_CZ.UTF-8", the answer is "cz". "en" where it names
/// no language that this program may speak.
std::string_view LanguageOfLocale(std::initializer_list<std::string_view> locales);

/// All that there are, English first.
std::vector<std::string> LanguageIds(const MessageLanguage& language);

/// A check of an option: the text of a fault, which lists what there is, or nothing.
std::string CheckLanguage(const MessageLanguage& language);

/// Messages are in this language for as long as it lives, and in English behind that. One that is not there
/// leaves them in English.
class SpokenLanguage {
 public:
  explicit SpokenLanguage(const MessageLanguage& language);
  SpokenLanguage(const SpokenLanguage&) = delete;
  SpokenLanguage& operator=(const SpokenLanguage&) = delete;
  ~SpokenLanguage();

 private:
  TranslationStore* const translations_;  // null for English
};

}  // namespace cli
