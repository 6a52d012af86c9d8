#pragma once

// Output for other programs.

#include <ostream>

#include <nlohmann/json.hpp>

namespace cli {

/// Keys stay in the order in which they are written.
using Json = nlohmann::ordered_json;

/// One line. Text that is no UTF-8 gets U+FFFD in its place, numbers that are none are null.
inline void PrintJson(std::ostream& out, const Json& json) {
  constexpr int kNoIndent = -1;
  out << json.dump(kNoIndent, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace cli
