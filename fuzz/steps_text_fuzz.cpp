// Bytes as typed steps: what is read is in range, reads back as it was written, and is sorted in like one
// step after the other.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/log.h"
#include "program/steps_text.h"
#include "tests/support/plain_program.h"

namespace {

using namespace TCBase::Program;

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  statusLog.textHandler = nullptr;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::vector<Step> steps;
  ParseStepsText(text, steps);
  for (const Step& step : steps) {
    Step normal = step;
    Normalize(normal);
    Require(step == normal);
  }

  std::vector<Step> again;
  ParseStepsText(Utf8FromWide(StepsToText(steps)), again);
  Require(again == steps);

  Channel channel{{8, 0, 10}, {22, 0, 50}};
  Channel plain = channel;
  AddStepsFromText(channel, text);
  Plain::InsertStepsSorted(plain, steps);
  Require(channel == plain);
  statusLog.Drain();
  return 0;
}
