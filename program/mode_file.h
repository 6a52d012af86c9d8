#pragma once

// The mode files of other tools as kinds, for those who import and export them.

#include <filesystem>
#include <string>
#include <string_view>

#include "program/program.h"

namespace TCBase::Program {

/// One kind of file. The functions are those of tmf.h, lmf.h and raw.h.
struct ModeFileKind {
  std::string_view name;                            // "TMF"
  std::string_view extension;                       // ".tmf", as files are named that we name ourselves
  bool (*read)(std::string_view data, Mode& mode);  // null if it is written only
  bool (*write)(const Mode& mode, std::string& data);
};

extern const ModeFileKind kTmfFile;
extern const ModeFileKind kLmfFile;
extern const ModeFileKind kRawFile;

/// The kind whose extension a file has, in letters of any size; null if there is none.
const ModeFileKind* ModeFileKindOf(const std::filesystem::path& path);
/// Whether a file has this extension, which is in small letters.
bool HasExtension(const std::filesystem::path& path, std::string_view extension);

/// Reads a file of a kind that can be read into an empty mode, which gets the file's name without folder and
/// extension. Logs "Loading {1}" first. False, with the reason in the log, if the file cannot be read or is
/// none of its kind; the mode is then to be thrown away.
bool LoadModeFile(const ModeFileKind& kind, const std::filesystem::path& path, Mode& mode);

}  // namespace TCBase::Program
