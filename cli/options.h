#pragma once

// What the option declarations of the commands share.

#include <string>

#include <CLI/CLI.hpp>

namespace cli {

/// The check without its own words in the help, where the option's text says it better.
inline CLI::Validator Unnamed(const CLI::Validator& check) {
  return check.description("");
}

/// The name of the hint that TakesFile gives.
inline constexpr char kFileHint[] = "file";

/// A check that lets everything pass, and tells a shell that completes words that a file is meant, with one
/// of these `endings`, as in ".png .svg .pdf". Help does not show it.
inline CLI::Validator TakesFile(const std::string& endings) {
  return CLI::Validator([](std::string&) { return std::string(); }, endings, kFileHint).active(false);
}

}  // namespace cli
