#pragma once

// Output for other programs.

#include <ostream>

#include <nlohmann/json.hpp>

namespace cli {

/// Keys stay in the order in which they are written.
using Json = nlohmann::ordered_json;

/// What of a text is written as an escape.
enum class Escaped {
  Controls,     // what JSON wants
  BeyondAscii,  // for the texts of strangers: no terminal obeys them, and they compare as they are
};

/// One line. Text that is no UTF-8 gets U+FFFD in its place, numbers that are none are null.
inline void PrintJson(std::ostream& out, const Json& json, Escaped escaped = Escaped::Controls) {
  constexpr int kNoIndent = -1;
  out << json.dump(kNoIndent, ' ', escaped == Escaped::BeyondAscii, Json::error_handler_t::replace) << '\n';
}

}  // namespace cli
