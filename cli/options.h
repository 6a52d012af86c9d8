#pragma once

// What the option declarations of the commands share.

#include <CLI/CLI.hpp>

namespace cli {

/// The check without its own words in the help, where the option's text says it better.
inline CLI::Validator Unnamed(const CLI::Validator& check) {
  return check.description("");
}

}  // namespace cli
