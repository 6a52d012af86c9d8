#pragma once

// What an examination finds.

#include <string_view>
#include <vector>

#include "doctor/sentence.h"

namespace doctor {

/// From the best to the worst.
enum class Sign {
  Good,
  Look,    // may be wrong, or cannot be told from here: the user looks
  Broken,  // something cannot work like this
};

/// "good", "look", "broken": for other programs, in no language.
std::string_view NameOf(Sign sign);

/// One thing that was looked at. A plain value.
struct Finding {
  Sign sign = Sign::Good;
  std::string_view id;  // "udp-port": the same in every version and language; lives for ever
  Sentence what;        // what was looked at, a few words
  Sentence found;       // how it is
  Sentence advice;      // what to do about it; says nothing where there is nothing to do
};

/// The worst of them; good if there are none.
Sign WorstOf(const std::vector<Finding>& findings);

}  // namespace doctor
