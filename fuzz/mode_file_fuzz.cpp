// Bytes as mode files of other tools: what is read is within the limits, and comes back from each kind of
// file as a mode of the same times.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "common/log.h"
#include "program/lmf.h"
#include "program/tmf.h"

namespace {

using namespace TCBase::Program;

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireInRange(const Mode& mode) {
  for (const Channel& channel : mode.channels) {
    Require(!channel.empty() && channel.size() <= static_cast<std::size_t>(kMaxModeSteps));
    for (Step step : channel) {
      const Step before = step;
      Normalize(step);
      Require(step == before);
    }
    Require(std::ranges::is_sorted(channel, {}, [](const Step& step) { return MinuteOfDay(step); }));
  }
}

// The same times and jumps; values may have gone down by one (the curve arrives just below a step).
void RequireTmfBack(const Mode& mode) {
  std::string data;
  WriteTmf(mode, data);
  Mode back;
  Require(ReadTmf(data, back));
  RequireInRange(back);
  std::vector<ModeStep> rows;
  std::vector<ModeStep> rowsBack;
  CollectModeSteps(mode, rows);
  CollectModeSteps(back, rowsBack);
  Require(rows.size() == rowsBack.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Require(MinuteOfDay(rows[i]) == MinuteOfDay(rowsBack[i]));
    Require(rows[i].jumps == rowsBack[i].jumps);
    for (std::size_t c = 0; c < rows[i].values.size(); ++c) {
      const int value = std::min(rows[i].values[c] & 0xFF, 100);
      Require(rowsBack[i].values[c] == value || rowsBack[i].values[c] == value - 1);
    }
  }
}

void RequireLmfBack(const Mode& mode) {
  std::string data;
  WriteLmf(mode, data);
  Mode back;
  Require(ReadLmf(data, back));
  RequireInRange(back);
}

void Check(const Mode& mode) {
  RequireInRange(mode);
  RequireTmfBack(mode);
  RequireLmfBack(mode);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  statusLog.textHandler = nullptr;
  const std::string_view data(reinterpret_cast<const char*>(bytes), size);
  Mode mode;
  if (ReadTmf(data, mode)) Check(mode);

  // Only one length is an LMF file; any bytes are made one.
  Mode halfHours;
  if (!ReadLmfSteps(data, halfHours)) {
    std::string whole(data);
    whole.resize(960);
    Require(ReadLmfSteps(whole, halfHours));
    Mode reduced;
    Require(ReadLmf(whole, reduced));
    Check(reduced);
  }
  RequireInRange(halfHours);
  RequireLmfBack(halfHours);
  statusLog.Drain();
  return 0;
}
