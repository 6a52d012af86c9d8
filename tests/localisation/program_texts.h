#pragma once

// What the program has translated, from its sources and its tables, and what of it is English in every
// language.

#include <set>
#include <string>
#include <vector>

#include "tests/localisation/source_texts.h"

namespace program_texts {

/// All texts of the sources that speak to users.
const std::vector<source_texts::Literal>& Sources();

/// All texts that are looked up: those that the sources mark as keys, and those of the tables.
std::set<std::string> Asked();
/// Those of the menus, the main window and the dialogs' templates.
std::set<std::string> InTables();

/// Those of the main window and the templates that other texts take the place of before they are seen.
std::set<std::string> ReplacedInTables();

/// Looked up, but in no language: they are outside the document.
struct English {
  std::string text;
  const char* reason;
};
const std::vector<English>& LookedUpInVain();
/// Looks like a text of the program, but nobody asks for it.
const std::vector<English>& NeverLookedUp();

/// The keys of the first document, in its order, as tests/localisation/keys.txt has them: one on a line, line
/// breaks escaped. Behind "- " stands one from a former wording: nobody asks for it any more, and languages
/// may leave it out.
struct ListedKey {
  std::string key;
  bool isLeftOver = false;
};
const std::vector<ListedKey>& ListedKeys();
/// The left over ones, with line breaks.
const std::set<std::string>& LeftOver();

}  // namespace program_texts
