#include "program/figures/figures.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "program/curve.h"

namespace TCBase::Program {

namespace {

constexpr double kWattsPerKilowatt = 1000.0;
constexpr double kMicromolesPerMole = 1e6;
constexpr double kFullLight = kMostPercent;
// Seconds: where one fade takes over from another, both are 0 for a moment.
constexpr std::int32_t kLeastDarkness = kSecondsPerMinute;
// Floats of a straight rise differ by less from minute to minute.
constexpr double kSameRise = 1e-3;

// Percents, one a second.
using Day = std::vector<float>;

float Percent(float value) {
  constexpr auto kMost = static_cast<float>(kMostPercent);
  return value > 0.0F ? std::min(value, kMost) : 0.0F;  // also for not a number
}

Day DayOf(const Channel& channel) {
  Day day(kSecondsPerDay);
  CurveCursor cursor(channel);
  for (std::int32_t second = 0; second < kSecondsPerDay; ++second)
    day[static_cast<std::size_t>(second)] = Percent(cursor.At(second));
  return day;
}

float At(const Day& day, std::int32_t second) {
  return day[static_cast<std::size_t>(second % kSecondsPerDay)];
}

double HoursAbove(const Day& day, double level) {
  const auto seconds = std::ranges::count_if(day, [level](float percent) { return percent > level; });
  return static_cast<double>(seconds) / kSecondsPerHour;
}

double PercentHours(const Day& day) {
  double sum = 0.0;
  for (const float percent : day) sum += percent;
  return sum / kSecondsPerHour;
}

// Walks once around the clock from some light, and keeps what is left beside the longest darkness.
std::optional<LightSpan> LightOf(const Day& day) {
  const auto isLit = [](float percent) { return percent > 0.0F; };
  const auto lit = std::ranges::find_if(day, isLit);
  if (lit == day.end()) return std::nullopt;
  const auto start = static_cast<std::int32_t>(lit - day.begin());
  std::int32_t longest = 0;
  std::int32_t dark = 0;  // for so many seconds by now
  LightSpan span;
  for (std::int32_t second = start; second <= start + kSecondsPerDay; ++second) {
    if (!isLit(At(day, second))) {
      ++dark;
      continue;
    }
    if (dark >= kLeastDarkness && dark > longest)
      span = {second % kSecondsPerDay, (second - dark) % kSecondsPerDay};
    longest = std::max(longest, dark);
    dark = 0;
  }
  return longest >= kLeastDarkness ? std::optional(span) : std::nullopt;
}

void FindSteepestRise(const Day& day, Figures& figures) {
  for (std::int32_t minute = 0; minute < kMinutesPerDay; ++minute) {
    const std::int32_t second = minute * kSecondsPerMinute;
    const double rise = At(day, second) - At(day, second + kSecondsPerDay - kSecondsPerMinute);
    if (rise < figures.steepestRise + kSameRise) continue;
    figures.steepestRise = rise;
    figures.steepestMinute = minute;
  }
}

void CountLight(const Day& day, double level, Figures& figures) {
  figures.light = LightOf(day);
  figures.hoursOfLight = HoursAbove(day, 0.0);
  figures.hoursAboveLevel = HoursAbove(day, level);
}

Figures FiguresOfChannel(const Day& day, double watts, double par, const LampFacts& facts) {
  Figures figures;
  CountLight(day, facts.level, figures);
  figures.percentHours = PercentHours(day);
  FindSteepestRise(day, figures);
  const double fullHours = figures.percentHours / kFullLight;
  if (watts > 0.0) figures.energy = fullHours * watts / kWattsPerKilowatt;
  if (figures.energy && facts.price > 0.0) figures.cost = *figures.energy * facts.price;
  if (par > 0.0) figures.dli = par * fullHours * kSecondsPerHour / kMicromolesPerMole;
  return figures;
}

void AddTold(std::optional<double>& sum, const std::optional<double>& amount) {
  if (amount) sum = sum.value_or(0.0) + *amount;
}

void Add(Figures& sum, const Figures& channel) {
  sum.percentHours += channel.percentHours;
  if (channel.steepestRise >= sum.steepestRise + kSameRise) {
    sum.steepestRise = channel.steepestRise;
    sum.steepestMinute = channel.steepestMinute;
  }
  AddTold(sum.energy, channel.energy);
  AddTold(sum.cost, channel.cost);
  AddTold(sum.dli, channel.dli);
}

}  // namespace

ModeFigures FiguresOf(const Mode& mode, const LampFacts& facts) {
  ModeFigures figures;
  Day brightest(kSecondsPerDay);
  for (std::size_t i = 0; i < mode.channels.size(); ++i) {
    const Day day = DayOf(mode.channels[i]);
    std::ranges::transform(brightest, day, brightest.begin(),
                           [](float a, float b) { return std::max(a, b); });
    figures.channels[i] = FiguresOfChannel(day, facts.watts[i], facts.par[i], facts);
    Add(figures.all, figures.channels[i]);
  }
  CountLight(brightest, facts.level, figures.all);
  return figures;
}

}  // namespace TCBase::Program
