// Bytes as what is left behind by a program that has crashed: whatever they are, nothing happens but an
// answer. What was read is written and read again as it was, to the bits of each percent.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/log.h"
#include "fuzz/input.h"
#include "program/recovery_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace TCBase::Program;
  using fuzz::Require;
  RecoveryFile recovery;
  if (ReadRecovery({reinterpret_cast<const char*>(data), size}, recovery) == RecoveryReading::Good) {
    Require(!recovery.document.modes.empty() && recovery.document.currentMode >= 0 &&
            static_cast<std::size_t>(recovery.document.currentMode) < recovery.document.modes.size());
    const std::string text = ToRecoveryText(recovery);
    RecoveryFile again;
    Require(ReadRecovery(text, again) == RecoveryReading::Good);
    Require(ToRecoveryText(again) == text);
    Require(again.file == recovery.file && again.mark == recovery.mark);
  }
  statusLog.textHandler = nullptr;
  statusLog.Drain();
  return 0;
}
