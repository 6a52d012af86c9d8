#pragma once

// Terminals that show by themselves how far a program is: on their tab, or on their button in the task bar.

#include <functional>
#include <optional>
#include <string>

/// Whether the terminal is one of those that are known to, by what it says of itself in the environment. To
/// others the sequences below mean nothing, or a notification. `variable` answers the value of a variable,
/// empty if there is none.
bool TerminalShowsProgress(const std::function<std::string(const char* name)>& variable);

/// What is written to such a terminal: how much of the work is done, or without a percentage that it goes on.
std::string TerminalProgress(std::optional<int> percent);
/// And when it is over.
std::string TerminalProgressEnd();
