#pragma once

// The kinds of controls in words.

#include <array>
#include <cstddef>

#include "dialogs/control.h"

inline const char* NameOf(dialogs::ControlKind kind) {
  static constexpr std::array kNames = {"label",      "edit",      "button", "group", "list",
                                        "drop-down",  "combo",     "picker", "icon",  "slider",
                                        "scroll bar", "rich text", "chart"};
  return kNames.at(static_cast<std::size_t>(kind));
}
