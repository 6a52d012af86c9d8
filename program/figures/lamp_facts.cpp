#include "program/figures/lamp_facts.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "program/figures/amount.h"

namespace TCBase::Program {

namespace {

using Amounts = std::array<double, kChannelCount>;

constexpr std::string_view kWattsKey = "lamp_watts";
constexpr std::string_view kParKey = "lamp_par";
constexpr std::string_view kPriceKey = "electricity_price";
constexpr std::string_view kLevelKey = "figures_level";
constexpr char kBetween = ';';

// "24;24;;0.5;" of five channels.
std::string AmountsText(const Amounts& amounts) {
  std::string text;
  for (const double amount : amounts) text += AmountText(amount) + kBetween;
  text.pop_back();
  return text;
}

Amounts ParseAmounts(std::string_view text) {
  Amounts amounts{};
  for (double& amount : amounts) {
    const std::size_t end = std::min(text.find(kBetween), text.size());
    amount = ParseAmount(text.substr(0, end)).value_or(0.0);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return amounts;
}

void KeepText(Settings& settings, std::string_view key, bool isNew, const std::string& text) {
  if (isNew) settings.SetValue(key, text);
}

}  // namespace

std::optional<double> ParseLevel(std::string_view text) {
  const auto level = ParseAmount(text);
  return level && *level <= kMostPercent ? level : std::nullopt;
}

std::string LevelText(double level) {
  return level == 0.0 ? "0" : AmountText(level);
}

LampFacts ReadLampFacts(Settings& settings) {
  LampFacts facts;
  facts.watts = ParseAmounts(settings.FindValue(kWattsKey));
  facts.par = ParseAmounts(settings.FindValue(kParKey));
  facts.price = ParseAmount(settings.FindValue(kPriceKey)).value_or(0.0);
  // Here an empty text is not 0, which is a level like others.
  const std::string level = settings.FindValue(kLevelKey);
  if (!level.empty()) facts.level = ParseLevel(level).value_or(LampFacts::kUsualLevel);
  return facts;
}

void KeepLampFacts(Settings& settings, const LampFacts& facts) {
  const LampFacts kept = ReadLampFacts(settings);
  KeepText(settings, kWattsKey, facts.watts != kept.watts, AmountsText(facts.watts));
  KeepText(settings, kParKey, facts.par != kept.par, AmountsText(facts.par));
  KeepText(settings, kPriceKey, facts.price != kept.price, AmountText(facts.price));
  KeepText(settings, kLevelKey, facts.level != kept.level, LevelText(facts.level));
}

}  // namespace TCBase::Program
