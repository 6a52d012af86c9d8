#pragma once

// What a random user does, as a list that can be kept, told to others and shortened. A deed is a word and a
// number: the number is the chance by which the deed chooses whatever it has to choose from what it finds. So
// each means something wherever it stands in a list, and a list without some of its deeds is one, too.
//
// As text a line for each deed, with what it came to behind the sign of a remark:
//
//   command 81985529216486895   # 32785
//   drag 1147797409030816545    # 312,60 to 500,90

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct Deed {
  std::string word;
  std::uint64_t chance = 0;

  friend bool operator==(const Deed&, const Deed&) = default;
};
using Deeds = std::vector<Deed>;

/// A word and how often it comes, against the others.
struct Habit {
  std::string_view word;
  int weight = 1;
};
using Habits = std::vector<Habit>;

/// The deeds of a seed: the same for the same habits.
Deeds DeedsOf(std::uint64_t seed, std::size_t count, const Habits& habits);

/// `remarks` are those of the first deeds; lines behind them have none.
std::string TextOf(const Deeds& deeds, const std::vector<std::string>& remarks = {});
/// Reads such a text; lines that are no deeds are passed over.
Deeds DeedsFrom(std::string_view text);

/// A short list that still fails, made from one that does by leaving out deeds, first many at once and then
/// each by itself; without any of its deeds it does not fail, as far as `most` tries tell. `fails` is asked
/// for each try.
Deeds Shortened(Deeds deeds, const std::function<bool(const Deeds&)>& fails, int most);
