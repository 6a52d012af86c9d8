#pragma once

// What the option declarations of the commands share.

#include <string>
#include <utility>

#include <CLI/CLI.hpp>

#include "cli/session.h"

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

/// Adds a command below `app`. What it is to run gets into `chosen`, which must outlive the parsing, once it
/// has been parsed.
inline void AddCommand(CLI::App& app, const Command& command, Run& chosen) {
  CLI::App* const subcommand = app.add_subcommand(command.name, command.summary);
  subcommand->footer(command.examples);
  // --language may stand behind the command, too.
  subcommand->fallthrough();
  Run run = command.declare(*subcommand);
  subcommand->final_callback([&chosen, run = std::move(run)] { chosen = run; });
}

}  // namespace cli
