#pragma once

#include <string>
#include <vector>

namespace app {

/// A language of the Language menu, besides English.
struct Language {
  std::string id;
  std::string name;  // in the language itself
};

struct Languages {
  std::vector<Language> known;  // in the order of their command numbers
  std::string active = "en";    // id of the one in use
};

}  // namespace app
