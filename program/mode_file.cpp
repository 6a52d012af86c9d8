#include "program/mode_file.h"

#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/lmf.h"
#include "program/raw.h"
#include "program/tmf.h"

namespace TCBase::Program {

const ModeFileKind kTmfFile = {"TMF", &ReadTmf, &WriteTmf};
const ModeFileKind kLmfFile = {"LMF", &ReadLmf, &WriteLmf};
const ModeFileKind kRawFile = {"RAW", nullptr, &WriteRaw};

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
