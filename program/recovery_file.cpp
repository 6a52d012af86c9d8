#include "program/recovery_file.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdio>
#include <string>
#include <system_error>

#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"

namespace TCBase::Program {

using ovk::xml::element;

namespace {

constexpr int kVersion = 1;

void Write(element& to, std::string_view attribute, std::string_view text) {
  to.attribute(attribute).value = ovk::string(text);
}
void Write(element& to, std::string_view attribute, std::integral auto number) {
  Write(to, attribute, std::string_view(std::to_string(number)));
}

// The whole attribute as a number; the one it has already if it is none.
template <std::integral Number>
Number ReadOr(const element& from, std::string_view attribute, Number otherwise) {
  const std::string_view text = from.attribute_or_empty(attribute).view();
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && !text.empty() ? number : otherwise;
}

// What is no such text, or no such day, is no time at all.
DateTime TimeFrom(const std::string& text) {
  DateTime time;
  const bool isRead = std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d", &time.year, &time.month, &time.day,
                                  &time.hour, &time.minute) == 5;
  const auto isIn = [](int number, int least, int most) { return number >= least && number <= most; };
  const bool isTime = isRead && isIn(time.year, 1, 9999) && isIn(time.month, 1, 12) &&
                      isIn(time.day, 1, 31) && isIn(time.hour, 0, 23) && isIn(time.minute, 0, 59);
  return isTime ? time : DateTime{};
}

std::uint32_t Bits(float value) {
  return std::bit_cast<std::uint32_t>(value);
}

void WriteFractions(const ModeListView& document, element& root) {
  for (std::size_t mode = 0; mode < document.modes.size(); ++mode) {
    for (std::size_t channel = 0; channel < kChannelCount; ++channel) {
      const Channel& steps = document.modes[mode].channels[channel];
      for (std::size_t step = 0; step < steps.size(); ++step) {
        if (Bits(steps[step].value) == Bits(static_cast<float>(TruncateToInt(steps[step].value)))) continue;
        element& fraction = root.append_child("fraction");
        Write(fraction, "mode", mode);
        Write(fraction, "channel", channel);
        Write(fraction, "step", step);
        Write(fraction, "bits", Bits(steps[step].value));
      }
    }
  }
}

void ReadFraction(const element& fraction, ModeListView& document) {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  const std::size_t mode = ReadOr(fraction, "mode", kNone);
  const std::size_t channel = ReadOr(fraction, "channel", kNone);
  const std::size_t step = ReadOr(fraction, "step", kNone);
  if (mode >= document.modes.size() || channel >= kChannelCount) return;
  Channel& steps = document.modes[mode].channels[channel];
  if (step >= steps.size()) return;
  steps[step].value = std::bit_cast<float>(ReadOr(fraction, "bits", Bits(steps[step].value)));
}

}  // namespace

std::string ToRecoveryText(const RecoveryFile& recovery) {
  element root;
  BuildProgramXml(recovery.document, root);
  Write(root, "recovery", kVersion);
  Write(root, "file", recovery.file);
  Write(root, "mark", recovery.mark);
  Write(root, "changed", ToMinuteText(recovery.changed));
  Write(root, "current", recovery.document.currentMode);
  WriteFractions(recovery.document, root);
  ovk::string text;
  ovk::xml::serialize(text, root, 0);
  return std::string(text.view());
}

RecoveryReading ReadRecovery(std::string_view bytes, RecoveryFile& recovery) {
  element root;
  if (!ovk::xml::parse(root, bytes.data(), bytes.size())) return RecoveryReading::Broken;
  const int version = ReadOr(root, "recovery", 0);
  if (version > kVersion) return RecoveryReading::Newer;
  ovk::xml::trim(root);
  recovery.document = NewProgram();
  if (version != kVersion || !ReadProgramXml(root, recovery.document)) return RecoveryReading::Broken;
  recovery.file = root.attribute_or_empty("file").view();
  recovery.mark = ReadOr(root, "mark", std::uint64_t{0});
  recovery.changed = TimeFrom(std::string(root.attribute_or_empty("changed").view()));
  const auto last = static_cast<std::int32_t>(recovery.document.modes.size()) - 1;
  recovery.document.currentMode = std::clamp(ReadOr(root, "current", 0), 0, last);
  for (const auto& child : root.children)
    if (child->name == "fraction") ReadFraction(*child, recovery.document);
  return RecoveryReading::Good;
}

}  // namespace TCBase::Program
