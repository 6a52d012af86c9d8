#pragma once

// The mode files of other tools as kinds, for those who import and export them.

#include <filesystem>
#include <string>
#include <string_view>

#include "program/program.h"

namespace TCBase::Program {

/// One kind of file. The functions are those of tmf.h, lmf.h and raw.h.
struct ModeFileKind {
  std::string_view name;                            // "TMF"; in small letters the extension
  bool (*read)(std::string_view data, Mode& mode);  // null if it is written only
  bool (*write)(const Mode& mode, std::string& data);
};

extern const ModeFileKind kTmfFile;
extern const ModeFileKind kLmfFile;
extern const ModeFileKind kRawFile;

/// Reads a file of a kind that can be read into an empty mode, which gets the file's name without folder and
/// extension. Logs "Loading {1}" first. False, with the reason in the log, if the file cannot be read or is
/// none of its kind; the mode is then to be thrown away.
bool LoadModeFile(const ModeFileKind& kind, const std::filesystem::path& path, Mode& mode);

}  // namespace TCBase::Program
