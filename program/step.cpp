// Single steps: range and wording.

#include <algorithm>
#include <atomic>

#include "OvkLib/src/ovk_text.h"
#include "common/message.h"
#include "common/truncate.h"
#include "program/program.h"

namespace TCBase::Program {

namespace {

void AppendTwoDigits(std::string& text, std::int32_t number) {
  const std::string digits = ToDecimal(number);
  if (digits.size() < 2) text += '0';
  text += digits;
}

}  // namespace

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

// Written digit by digit and not through a format, since the chart shows these texts in every frame: so they
// fit into the string itself, and take no memory.

std::string ToTimeText(const Step& step) {
  std::string text;
  AppendTwoDigits(text, step.hour);
  text += ':';
  AppendTwoDigits(text, step.minute);
  return text;
}

std::string ToChartLabel(const Step& step) {
  std::string label = ToTimeText(step);
  label += '\n';
  label += ToDecimal(TruncateToInt(step.value));
  label += '%';
  return label;
}

std::string ToDescription(const Step& step) {
  std::string strength = ToDecimal(TruncateToInt(step.value));
  if (step.jump) strength += ", " + Translate("Jump");
  return Message("(Time: {1}) (Strength: {2})", ToTimeText(step), strength).utf8();
}

}  // namespace TCBase::Program
