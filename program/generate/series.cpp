#include "program/generate/series.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/xml_file.h"
#include "program/builtin_modes.h"
#include "program/mode_commands.h"
#include "program/program_file.h"

namespace TCBase::Program::Generate {

namespace {

bool SaveQuietly(const ModeListView& document, const std::filesystem::path& path) {
  ovk::xml::element root;
  BuildProgramXml(document, root);
  return ovk::xml::save(path, root);
}

bool MakeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!error) return true;
  LogStatus(Message("Error creating file {1}, error: {2}", Utf8FromPath(folder), error.message()));
  return false;
}

}  // namespace

SeriesSaved SaveSeries(const std::filesystem::path& folder, const std::vector<SeriesFile>& files,
                       bool overwrite) {
  const auto isThere = [&](const SeriesFile& file) { return MayBeThere(folder / file.name); };
  const auto there = overwrite ? files.end() : std::ranges::find_if(files, isThere);
  if (there != files.end()) return {SeriesSaved::Exists, folder / there->name};
  if (!MakeFolder(folder)) return {SeriesSaved::Failed, folder};
  const auto failed = std::ranges::find_if_not(
      files, [&](const SeriesFile& file) { return SaveQuietly(file.document, folder / file.name); });
  return failed == files.end() ? SeriesSaved{} : SeriesSaved{SeriesSaved::Failed, folder / failed->name};
}

ModeListView EmptyProgram() {
  ModeListView document = NewProgram();
  document.modes.clear();
  return document;
}

void PutMode(ModeListView& document, Mode mode, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= document.modes.size())
    return AppendMode(document, std::move(mode));
  mode.name = document.modes[static_cast<std::size_t>(index)].name;
  document.currentMode = index;
  CurrentMode(document) = std::move(mode);
}

}  // namespace TCBase::Program::Generate
