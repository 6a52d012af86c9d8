#pragma once

// What the program has translated, from its sources and its tables, and what of it is English in every
// language.

#include <set>
#include <string>
#include <vector>

#include "tests/localisation/source_texts.h"

namespace program_texts {

/// The sources that speak to users.
source_texts::Found Sources();

/// Why an argument that is no literal needs no look here; null, if there is no reason.
const char* WhereKeysComeFrom(const source_texts::Place& place, const std::string& name);

/// All texts that are looked up: those of the sources and those of the tables.
std::set<std::string> Asked();
/// Those of the menus, the main window and the dialogs' templates.
std::set<std::string> InTables();

/// Looked up, but in no language: they are outside the document.
struct English {
  std::string text;
  const char* reason;
};
const std::vector<English>& LookedUpInVain();
/// Looks like a text of the program, but nobody asks for it.
const std::vector<English>& NeverLookedUp();

/// In the document from former wordings: nobody asks for them, and languages may leave them out.
const std::set<std::string>& LeftOver();

}  // namespace program_texts
