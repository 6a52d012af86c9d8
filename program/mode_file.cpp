#include "program/mode_file.h"

#include <algorithm>

#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/lmf.h"
#include "program/raw.h"
#include "program/tmf.h"

namespace TCBase::Program {

const ModeFileKind kTmfFile = {"TMF", ".tmf", &ReadTmf, &WriteTmf};
const ModeFileKind kLmfFile = {"LMF", ".lmf", &ReadLmf, &WriteLmf};
const ModeFileKind kRawFile = {"RAW", ".raw", nullptr, &WriteRaw};

bool HasExtension(const std::filesystem::path& path, std::string_view extension) {
  // tolower would follow the locale, and some have an i without a dot.
  const auto small = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(Utf8FromPath(path.extension()), extension, {}, small);
}

const ModeFileKind* ModeFileKindOf(const std::filesystem::path& path) {
  for (const ModeFileKind* const kind : {&kTmfFile, &kLmfFile, &kRawFile})
    if (HasExtension(path, kind->extension)) return kind;
  return nullptr;
}

bool LoadModeFile(const ModeFileKind& kind, const std::filesystem::path& path, Mode& mode) {
  LogStatus(Message("Loading {1}", path));
  std::string data;
  if (!ReadFileBytes(path, data)) {
    LogStatus(Message("Error opening file"));
    return false;
  }
  if (!kind.read(data, mode)) return false;
  mode.name = Utf8FromPath(path.stem());
  return true;
}

}  // namespace TCBase::Program
