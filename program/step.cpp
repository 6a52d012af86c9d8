// Single steps: range and wording.

#include <algorithm>
#include <atomic>

#include "OvkLib/src/ovk_format.h"
#include "OvkLib/src/ovk_text.h"
#include "common/message.h"
#include "common/truncate.h"
#include "program/program.h"

namespace TCBase::Program {

std::uint32_t NextStepId() {
  // Atomic, since the worker numbers the steps of its own copies. Only uniqueness is asked of it, no order.
  static std::atomic<std::uint32_t> lastId{0};
  return lastId.fetch_add(1, std::memory_order_relaxed) + 1;
}

void Normalize(Step& step) {
  if (step.value > 100.0F) step.value = 100.0F;
  if (step.value < 0.0F) step.value = 0.0F;
  const std::int64_t second = std::clamp<std::int64_t>(SecondOfDay(step), 0, kSecondsPerDay - 1);
  step.hour = static_cast<std::int32_t>(second / 3600);
  step.minute = static_cast<std::int32_t>(second % 3600 / 60);
}

std::string ToTimeText(const Step& step) {
  ovk::format text("{1}:{2}");
  text.arg(step.hour, 2);
  text.arg(step.minute, 2);
  return text.c_str();
}

std::string ToChartLabel(const Step& step) {
  ovk::format label("{1}:{2}\n{3}%");
  label.arg(step.hour, 2);
  label.arg(step.minute, 2);
  label.arg(TruncateToInt(step.value), 0);
  return label.c_str();
}

std::string ToDescription(const Step& step) {
  std::string strength = ToDecimal(TruncateToInt(step.value));
  if (step.jump) strength += ", " + Translate("Jump");
  return Message("(Time: {1}) (Strength: {2})", ToTimeText(step), strength).utf8();
}

}  // namespace TCBase::Program
