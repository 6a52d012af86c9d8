#pragma once

// The program file and the mode that most commands begin with.

#include <string>

#include "cli/session.h"
#include "program/program.h"

namespace cli {

/// A FILE on the command line, and the number of a mode in it.
struct ProgramArgument {
  std::string file = {};  // UTF-8
  int mode = 1;           // from 1
};

void DeclareFile(CLI::App& app, ProgramArgument& argument);
/// What is wrong with a mode's number as it was typed; empty if nothing is.
std::string CheckModeNumber(const std::string& text);
void DeclareMode(CLI::App& app, ProgramArgument& argument, bool required);

/// Loads the file, or of a folder with the programs of a season that of this week, and makes the mode the
/// current one. Anything but Success has been explained.
ExitStatus LoadArgument(const Session& session, const ProgramArgument& argument,
                        TCBase::Program::ModeListView& document);

}  // namespace cli
