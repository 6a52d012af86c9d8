#include "program/builtin_modes.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

#include "OvkLib/src/ovk_format.h"
#include "common/message.h"

namespace TCBase::Program {

namespace {

constexpr Step At(std::int32_t hour, std::int32_t minute, float value) {
  return {hour, minute, value};
}

constexpr std::array kDaylight = {At(8, 0, 0),   At(10, 0, 80), At(11, 30, 80), At(12, 0, 50),
                                  At(18, 0, 50), At(19, 0, 90), At(20, 0, 90),  At(23, 30, 0)};
constexpr std::array kBackground = {At(9, 0, 0), At(9, 30, 30), At(21, 30, 30), At(22, 0, 0)};
constexpr std::array kFullLight = {At(9, 0, 100), At(22, 0, 100)};

constexpr std::array<std::uint32_t, 6> kPalette = {0xFFFFFFFF, 0xFFFFFCC9, 0xFFDCEAFF,
                                                   0xFFFFCCCB, 0xFF90EE90, 0xFFA2BAF5};

void SetSteps(Channel& channel, std::span<const Step> steps) {
  channel.assign(steps.begin(), steps.end());
}

}  // namespace

void BuildNormalMode(Mode& mode) {
  mode.name = Translate("Normal");
  mode.description = Translate(
      "Daily program that starts at 8:00, decreases intensity during the afternoon and finishes before "
      "midnight.");
  for (Channel& channel : mode.channels) SetSteps(channel, kDaylight);
  SetSteps(mode.channels.back(), kBackground);
  RenumberSteps(mode);
}

void BuildAlwaysOnMode(Mode& mode) {
  mode.name = Translate("AlwaysOn");
  mode.description = Translate("Program that puts all light on maximum power. This is useful for cleaning.");
  for (Channel& channel : mode.channels) SetSteps(channel, kFullLight);
  RenumberSteps(mode);
}

void BuildDefaultModes(ModeListView& document) {
  BuildNormalMode(document.modes.emplace_back());
  BuildAlwaysOnMode(document.modes.emplace_back());
}

ModeListView NewProgram() {
  ModeListView document;
  BuildDefaultModes(document);
  return document;
}

std::uint32_t NextChannelColor(std::uint32_t color) {
  const auto found = std::find(kPalette.begin(), kPalette.end(), color);
  if (found == kPalette.end() || std::next(found) == kPalette.end()) return kPalette.front();
  return *std::next(found);
}

std::u16string SuggestedModeName(const ModeListView& document) {
  ovk::wformat name(u"PRG{1}");
  name.arg(static_cast<std::int32_t>(document.modes.size()) + 1);
  return name.c_str();
}

}  // namespace TCBase::Program
