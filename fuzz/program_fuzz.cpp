// Bytes as a program file: load, transform in every way there is, save, load again. What was saved once comes
// back equal, and the fast ways agree with their plain definitions.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <vector>

#include "OvkLib/src/ovk_xml_reader.h"
#include "common/log.h"
#include "program/align.h"
#include "program/builtin_modes.h"
#include "program/channel_edit.h"
#include "program/endpoint.h"
#include "program/mode_commands.h"
#include "program/optimize.h"
#include "program/program_file.h"
#include "program/resample.h"
#include "program/steps_text.h"
#include "tests/support/plain_program.h"

namespace {

using namespace TCBase::Program;

void Require(bool holds) {
  if (!holds) std::abort();
}

std::optional<ModeListView> Load(const char* bytes, std::size_t size) {
  ovk::xml::element root;
  if (!ovk::xml::parse(root, bytes, size)) return {};
  ovk::xml::trim(root);
  ModeListView document = NewProgram();
  if (!ReadProgramXml(root, document)) return {};
  return document;
}

// What a document is once it has been a file: whole percents, and those as far as a float is exact.
ModeListView SavedAndLoaded(const ModeListView& document) {
  ovk::xml::element root;
  BuildProgramXml(document, root);
  ovk::string text;
  ovk::xml::serialize(text, root, 0);
  const auto loaded = Load(text.c_str(), static_cast<std::size_t>(text.length()));
  Require(loaded.has_value());
  return *loaded;
}

std::vector<std::uint32_t> Serials(const Mode& mode) {
  std::vector<std::uint32_t> serials;
  for (const Channel& channel : mode.channels) {
    for (const Step& step : channel) serials.push_back(step.id);
  }
  return serials;
}

void CheckAgainstPlain(const Mode& mode) {
  std::size_t steps = 0;
  for (const Channel& channel : mode.channels) steps += channel.size();
  if (steps > 80) return;  // the plain ways take their time

  std::vector<ModeStep> rows;
  std::vector<ModeStep> plainRows;
  CollectModeSteps(mode, rows);
  Plain::CollectModeSteps(mode, plainRows);
  Require(rows == plainRows && CountModeSteps(mode) == static_cast<int>(rows.size()));

  const int limit = static_cast<int>(steps / 2);
  Mode fast = mode;
  Mode plain = mode;
  Require(OptimizeModeTo(fast, limit) == Plain::OptimizeModeTo(plain, limit));
  Require(Serials(fast) == Serials(plain));
  RemoveExactSteps(fast);
  Plain::RemoveExactSteps(plain);
  Require(Serials(fast) == Serials(plain));
}

void EditEveryChannel(ModeListView& document) {
  for (std::int32_t c = 0; c < kChannelCount; ++c) {
    StepSelection selection{document, c, 1};
    StepClipboard clipboard;
    CopyChannelSteps(selection, clipboard);
    NudgeSelectedStep(selection, 1, -1, 0.5F);
    ScaleChannel(*SelectedChannel(selection), 55.0F);
    DeleteSelectedStep(selection);
    const std::u16string text = StepsToText(*SelectedChannel(selection));
    MoveChannelDown(selection);
    MoveChannelUp(selection);
    PasteChannelSteps(selection, clipboard);
    AddStepsFromText(*SelectedChannel(selection), "12:34 56 J\r99:99 999");
    OptimizeMode(CurrentMode(document));
  }
}

void TransformCurrentMode(ModeListView& document) {
  Mode& mode = CurrentMode(document);
  CheckAgainstPlain(mode);
  Mode other;
  ResampleHalfHour(mode, other);
  Require(CountModeSteps(other) == kMaxModeSteps);
  AlignMode(mode, other, 1 + static_cast<std::int32_t>(mode.name.size()));
  EditEveryChannel(document);
  AddEndpointSteps(document, kDayEnd);
  AlignCurrentMode(document, 15);
  OptimizeForTC421(document);
  Require(OptimizeMode(mode));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  statusLog.textHandler = nullptr;
  auto document = Load(reinterpret_cast<const char*>(data), size);
  if (document) {
    const ModeListView saved = SavedAndLoaded(*document);
    Require(SavedAndLoaded(saved) == saved);
    LogModeSteps(*document);
    for (std::size_t i = 0; i < document->modes.size(); ++i) {
      document->currentMode = static_cast<std::int32_t>(i);
      TransformCurrentMode(*document);
    }
    SavedAndLoaded(*document);
  }
  statusLog.Drain();
  return 0;
}
