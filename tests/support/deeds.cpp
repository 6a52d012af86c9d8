#include "tests/support/deeds.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

#include "tests/support/dice.h"

namespace {

Deeds Without(const Deeds& deeds, std::size_t from, std::size_t count) {
  Deeds rest(deeds.begin(), deeds.begin() + static_cast<std::ptrdiff_t>(from));
  const std::size_t behind = std::min(from + count, deeds.size());
  rest.insert(rest.end(), deeds.begin() + static_cast<std::ptrdiff_t>(behind), deeds.end());
  return rest;
}

std::string_view WordOf(std::string_view& line) {
  const std::size_t begin = std::min(line.find_first_not_of(" \t\r"), line.size());
  const std::size_t end = std::min(line.find_first_of(" \t\r", begin), line.size());
  const std::string_view word = line.substr(begin, end - begin);
  line.remove_prefix(end);
  return word;
}

bool ReadDeed(std::string_view line, Deed& deed) {
  deed.word = WordOf(line);
  const std::string_view number = WordOf(line);
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), deed.chance);
  return error == std::errc() && end == number.data() + number.size();
}

}  // namespace

Deeds DeedsOf(std::uint64_t seed, std::size_t count, const Habits& habits) {
  const int all = std::accumulate(habits.begin(), habits.end(), 0,
                                  [](int sum, const Habit& habit) { return sum + habit.weight; });
  Dice dice(seed);
  Deeds deeds;
  deeds.reserve(count);
  while (deeds.size() < count) {
    int place = dice.Below(all);
    auto habit = habits.begin();
    for (; place >= habit->weight; ++habit) place -= habit->weight;
    deeds.push_back({std::string(habit->word), dice.Throw()});
  }
  return deeds;
}

std::string TextOf(const Deeds& deeds, const std::vector<std::string>& remarks) {
  std::string text;
  for (std::size_t i = 0; i < deeds.size(); ++i) {
    text += deeds[i].word + ' ' + std::to_string(deeds[i].chance);
    if (i < remarks.size() && !remarks[i].empty()) text += "   # " + remarks[i];
    text += '\n';
  }
  return text;
}

Deeds DeedsFrom(std::string_view text) {
  Deeds deeds;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    Deed deed;
    if (ReadDeed(text.substr(0, end), deed)) deeds.push_back(std::move(deed));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return deeds;
}

Deeds Shortened(Deeds deeds, const std::function<bool(const Deeds&)>& fails, int most) {
  int tries = 0;
  // What fails depends on what came last, mostly, and few deeds are tried quickly.
  for (std::size_t last = 4; last < deeds.size() / 2 && tries < most; last *= 4) {
    Deeds rest = Without(deeds, 0, deeds.size() - last);
    ++tries;
    if (!fails(rest)) continue;
    deeds = std::move(rest);
    break;
  }
  for (std::size_t part = std::max<std::size_t>(deeds.size() / 2, 1);;) {
    bool shorter = false;
    // From the end: what comes late is most likely for nothing, or all there is to it.
    for (std::size_t end = deeds.size(); end > 0 && tries < most;) {
      const std::size_t from = end > part ? end - part : 0;
      Deeds rest = Without(deeds, from, end - from);
      ++tries;
      if (fails(rest)) {
        deeds = std::move(rest);
        shorter = true;
      }
      end = from;
    }
    if (tries >= most || (part == 1 && !shorter)) return deeds;
    if (part > 1) part = (part + 1) / 2;
  }
}
