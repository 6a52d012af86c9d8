#pragma once

#include <string_view>

/// How often a text has this part.
inline int CountOf(std::string_view text, std::string_view part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) ++count;
  return count;
}
