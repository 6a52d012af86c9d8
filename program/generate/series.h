#pragma once

// Programs that belong together, such as those of the weeks of a year, as files of one folder.

#include <filesystem>
#include <string>
#include <vector>

#include "program/program.h"

namespace TCBase::Program::Generate {

struct SeriesFile {
  std::string name;  // in the folder, ASCII
  ModeListView document;
};

/// What became of the files. `path` is the one that was in the way or could not be written.
struct SeriesSaved {
  enum Outcome {
    Done,
    Exists,  // there is such a file already; nothing has been written
    Failed,  // the reason is in the log; those before it stand there, whole
  };

  Outcome outcome = Done;
  std::filesystem::path path;
};

/// Writes the files, each all or nothing, and makes the folder if there is none. Without `overwrite` no file
/// that is there is touched. User interface thread.
SeriesSaved SaveSeries(const std::filesystem::path& folder, const std::vector<SeriesFile>& files,
                       bool overwrite);

/// A document with the channels of a new program and no mode, to put modes into.
ModeListView EmptyProgram();

/// Puts the mode in the place of the mode `index`, from 0, which keeps its name; behind all others if there
/// is no such mode. It is the current one then.
void PutMode(ModeListView& document, Mode mode, int index);

}  // namespace TCBase::Program::Generate
